// What is done when the connection is lost, before the process ends: the rooms forget what they made on it, and the
// application is called.
#include "display/lost_connection.h"

#include <algorithm>
#include <array>
#include <cassert>
#include <cstddef>
#include <utility>

#include "display/forget_display.h"
#include "system/inventory.h"
#include "system/trace.h"

namespace grx {

namespace {

constexpr std::size_t kMost = 32;
std::array<void (*)(), kMost> noted{};
std::size_t count = 0;

std::array<void*, kMost> hidden_memory{};
std::size_t hidden_count = 0;

GRX_FONCTION_SECOURS rescue = nullptr;
void* rescue_data = nullptr;
bool lost = false;
bool called = false;

} // namespace

void at_lost_connection(void (*hide)()) {
    const auto end = noted.begin() + static_cast<std::ptrdiff_t>(count);
    if (std::find(noted.begin(), end, hide) != end) return;
    assert(count < kMost);
    noted[count++] = hide;
}

void keep_hidden(void* memory) {
    if (hidden_count < kMost) hidden_memory[hidden_count++] = memory;
}

bool set_rescue(GRX_FONCTION_SECOURS function, void* data) {
    if (lost) return false;
    rescue = function;
    rescue_data = data;
    return true;
}

void forget_lost_connection() {
    noted = {};
    count = 0;
    rescue = nullptr;
    rescue_data = nullptr;
}

void call_rescue() {
    if (std::exchange(lost, true)) return;
    trace_line("the connection to the display is lost");
    cancel_inventory();
    if (rescue == nullptr) return;
    while (count > 0) noted[--count]();
    called = true;
    rescue(rescue_data);
}

bool rescue_was_called() {
    return called;
}

} // namespace grx
