// grx-verif FILE... | --help | --version: says line by line what the library would make of its configuration files.
#include <iostream>
#include <string>
#include <vector>

#include "tools/verif/command.h"

int main(int argc, char** argv) {
    const std::vector<std::string> paths(argv + (argc > 0), argv + argc);
    return verif::run(paths, std::cout, std::cerr, GRX_VERSION);
}
