// A window manager on a test's server, ready when the constructor returns.
#pragma once

#include "tests/support/child.h"
#include "tests/support/xserver.h"

namespace grxtest {

class WindowManager {
  public:
    enum class Kind { mwm, openbox, fvwm };

    explicit WindowManager(const XServer& server, Kind kind = Kind::mwm);
    bool running() { return child_.running(); }
    void end() { child_.end(); }

  private:
    Child child_;
};

} // namespace grxtest
