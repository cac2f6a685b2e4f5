#include "tests/support/events.h"

#include <algorithm>
#include <sstream>

namespace grxtest {
namespace {

constexpr Milliseconds idle_pause{5}; // at most, between two looks at a condition when the connection is silent

bool pending() {
    return XtAppPending(contexte) != 0;
}

} // namespace

bool Events::poll() {
    GRX_EVENEMENT record{};
    if (!grx_digitaliseur(&record, 0)) return false;
    seen_.push_back(record);
    return true;
}

void Events::drain() {
    do {
        XSync(x11_disp, False);
        while (pending()) poll();
        XSync(x11_disp, False);
    } while (pending());
}

void Events::step() {
    if (!poll() && !pending()) wait_readable(ConnectionNumber(x11_disp), idle_pause);
}

std::optional<GRX_EVENEMENT> Events::wait(INT type, Milliseconds deadline) {
    return wait([type](const GRX_EVENEMENT& record) { return record.type_evenement == type; }, deadline);
}

std::optional<GRX_EVENEMENT> Events::wait(const Match& match, Milliseconds deadline) {
    std::optional<GRX_EVENEMENT> found;
    const auto look = [&] {
        while (unlooked_ < seen_.size() && !found) {
            const GRX_EVENEMENT& record = seen_[unlooked_++];
            if (match(record)) found = record;
        }
        return found.has_value();
    };
    wait_until(
        look, [this] { step(); }, deadline);
    return found;
}

std::vector<INT> Events::types() const {
    std::vector<INT> result;
    for (const auto& record : seen_) result.push_back(record.type_evenement);
    return result;
}

int Events::count(INT type) const {
    return static_cast<int>(std::count_if(
        seen_.begin(), seen_.end(), [type](const auto& record) { return record.type_evenement == type; }));
}

std::string Events::describe() const {
    std::ostringstream text;
    const char* separator = "";
    for (const auto& record : seen_) {
        text << separator << record.type_evenement << " window " << record.affichage.nofen;
        separator = ", ";
    }
    return text.str();
}

void Events::clear() {
    seen_.clear();
    unlooked_ = 0;
}

} // namespace grxtest
