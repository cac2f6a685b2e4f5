// Key presses anywhere in the application, for tips and the help key.
#include "controls/key_watch.h"

#include <algorithm>
#include <array>

#include "menus/menu_keys.h"
#include "system/shut_down.h"

namespace grx {

namespace {

std::array<KeyWatcher, 2> watchers{};

bool on_press(const XKeyEvent& event, bool of_entry) {
    bool taken = false;
    for (const KeyWatcher watcher : watchers) taken = (watcher != nullptr && watcher(event, of_entry)) || taken;
    return taken;
}

void forget_watchers() {
    watchers.fill(nullptr);
    show_presses(nullptr);
}

} // namespace

void watch_key_presses(KeyWatcher watcher) {
    at_shut_down(forget_watchers);
    if (std::find(watchers.begin(), watchers.end(), watcher) == watchers.end())
        *std::find(watchers.begin(), watchers.end(), nullptr) = watcher;
    show_presses(on_press);
}

} // namespace grx
