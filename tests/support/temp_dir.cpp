#include "tests/support/temp_dir.h"

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <stdexcept>

namespace grxtest {

namespace fs = std::filesystem;

TempDir::TempDir() {
    std::string name = (fs::temp_directory_path() / "grx-test-XXXXXX").string();
    if (!mkdtemp(name.data())) throw std::runtime_error("no temporary folder " + name);
    path_ = name;
}

TempDir::~TempDir() {
    std::error_code ignored;
    fs::remove_all(path_, ignored);
}

fs::path TempDir::write(const fs::path& name, std::string_view content) const {
    const fs::path full = path_ / name;
    fs::create_directories(full.parent_path());
    std::ofstream file(full, std::ios::binary | std::ios::trunc);
    file.write(content.data(), static_cast<std::streamsize>(content.size()));
    if (!file) throw std::runtime_error("cannot write " + full.string());
    return full;
}

std::string TempDir::read(const fs::path& name) const {
    std::ifstream file(path_ / name, std::ios::binary);
    if (!file) throw std::runtime_error("cannot read " + (path_ / name).string());
    return {std::istreambuf_iterator<char>(file), {}};
}

} // namespace grxtest
