// Fixtures of tests that need a display. Each test runs in a process of its own on a server of its own.
//
// The name of the suite says on which servers a test runs (tests/CMakeLists.txt filters by it):
//   ...On24, ...On8, ...On16   only on that number of planes
//   ...WmTest                  24 planes, mwm running
//   anything else              on 24 planes, and once more on 8
#pragma once

#include "tests/support/counters.h"
#include "tests/support/events.h"
#include "tests/support/heap.h"
#include "tests/support/input.h"
#include "tests/support/pixels.h"
#include "tests/support/temp_dir.h"
#include "tests/support/window_manager.h"
#include "tests/support/x_errors.h"
#include "tests/support/xserver.h"

#include "host_g.h"
#include "xt_f.h"

#include <gtest/gtest.h>

#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace grxtest {

// 24, 8 or 16: GRX_TEST_PLANES of the environment, 24 without it.
int test_planes();

// A server, a private HOME, empty host state, real input. The library is not started.
class XTest : public testing::Test {
  public:
    XTest();
    ~XTest() override;

  protected:
    void SetUp() override;
    void TearDown() override; // fails on X protocol errors, unless the test permitted them

    // A fixture that needs another server overrides this.
    virtual XServerOptions server_options() const { return {}; }

    XServer& server() { return *server_; }
    Pointer& pointer() { return *pointer_; }
    void take_pointer_away() { pointer().move(1270, 1000); } // to where no window is by itself
    Keyboard& keyboard() { return *keyboard_; }
    Display* test_display() { return input_->display(); } // the connection of the pointer and the keyboard

    // Folder that HOME, sstate[SST_REP_SYSTEME] and sstate[SST_REP_MENU] name.
    const TempDir& home() const { return home_; }
    void write_ini(std::string_view content) { home_.write("INI_SYST.DAT", content); }
    void write_menu(std::string_view content, const std::string& name = "MNU_COMM.DAT") { home_.write(name, content); }
    void set_system_directory(const std::string& path);
    void set_menu_directory(const std::string& path);

    void permit_x_errors() { x_errors_permitted_ = true; }

  private:
    TempDir home_;
    std::string system_directory_;
    std::string menu_directory_;
    std::optional<XServer> server_;
    std::optional<InputConnection> input_;
    std::optional<Pointer> pointer_;
    std::optional<Keyboard> keyboard_;
    bool x_errors_permitted_ = false;
};

// The same with the library started: both bases allocated, grx_init_application done.
class DisplayTest : public XTest {
  protected:
    void SetUp() override;

    // Runs before the library starts: INI files, host state, a FakeVisual, a CellHog.
    virtual void before_start() {}

    // Dispatches events through `events` until the condition holds.
    bool wait_for(const std::function<bool()>& condition, Milliseconds deadline = default_deadline);
    void drain() { events.drain(); }
    void settle();                            // drains, and forgets what was posted
    bool visible(Window window);              // it and all its ancestors are mapped
    bool wait_visible(Widget widget);         // dispatches until it is
    Point root_position(Widget widget) const; // of its top left corner, as the server says

    Events events;
};

// The calls an application makes before its first window. True when all of them succeeded.
bool start_up();

class On24 : public DisplayTest {
  protected:
    void SetUp() override;
};

class On8 : public DisplayTest {
  protected:
    void SetUp() override;
};

// Start-up must fail here, so the library is not started.
class On16 : public XTest {
  protected:
    void SetUp() override;
};

class WmTest : public DisplayTest {
  protected:
    void SetUp() override;
    virtual WindowManager::Kind manager_kind() const { return WindowManager::Kind::mwm; }
    WindowManager& manager() { return *manager_; }
    Window frame(Widget shell); // the manager's outermost window around the shell, None when there is none
    Area frame_area(Widget shell);

  private:
    std::optional<WindowManager> manager_;
};

} // namespace grxtest
