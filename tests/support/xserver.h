// An X server of the test's own: an Xvfb on the first free display number.
#pragma once

#include "tests/support/child.h"

#include <X11/Xlib.h>

#include <string>
#include <vector>

namespace grxtest {

struct XServerOptions {
    int planes = 24; // 24 TrueColor, 8 PseudoColor, 16 TrueColor
    int width = 1280;
    int height = 1024;
    std::vector<std::string> arguments; // more of the command line, {"-extension", "RENDER"} for example
};

class XServer {
  public:
    explicit XServer(const XServerOptions& options = {}); // throws std::runtime_error with the server's own words
    const std::string& name() const { return name_; }     // ":7"
    pid_t pid() const { return child_.pid(); }
    void end() { child_.end(); }

  private:
    bool start(const XServerOptions& options);

    Child child_;
    std::string name_;
    std::string log_;
};

// A connection of the test itself, untouched by FakeVisual; its X errors are nobody's.
Display* open_connection(const std::string& server_name);

} // namespace grxtest
