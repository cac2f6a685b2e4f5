#include "tests/support/cell_hog.h"

#include "tests/support/xserver.h"

#include <stdexcept>

namespace grxtest {
namespace {

Colormap default_colormap(Display* display) {
    return DefaultColormap(display, DefaultScreen(display));
}

} // namespace

CellHog::CellHog(const std::string& server_name, int free_cells)
    : connection_(open_connection(server_name), XCloseDisplay) {
    leave(free_cells);
}

bool CellHog::take_one() {
    unsigned long mask = 0, pixel = 0;
    Display* display = connection_.get();
    if (!XAllocColorCells(display, default_colormap(display), False, &mask, 0, &pixel, 1)) return false;
    held_.push_back(pixel);
    return true;
}

void CellHog::leave(int free_cells) {
    while (take_one()) {
    }
    if (free_cells > held()) throw std::runtime_error("only " + std::to_string(held()) + " colour cells are free");
    if (free_cells == 0) return;
    Display* display = connection_.get();
    const auto first = held_.size() - static_cast<std::size_t>(free_cells);
    XFreeColors(display, default_colormap(display), &held_[first], free_cells, 0);
    held_.resize(first);
    XSync(display, False);
}

void CellHog::release() {
    leave(0);
    leave(held());
}

int free_cells(const std::string& server_name) {
    CellHog probe(server_name, 0);
    return probe.held();
}

} // namespace grxtest
