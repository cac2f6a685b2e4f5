// Takes the colour cells of the default colormap away from the code under test (8-plane servers).
#pragma once

#include <X11/Xlib.h>

#include <memory>
#include <string>
#include <vector>

namespace grxtest {

class CellHog {
  public:
    // Leaves exactly `free_cells` cells free. Throws when there are fewer to begin with.
    CellHog(const std::string& server_name, int free_cells);
    int held() const { return static_cast<int>(held_.size()); }
    void leave(int free_cells); // gives back or takes until exactly that many are free
    void release();             // gives all back

  private:
    bool take_one();

    std::unique_ptr<Display, int (*)(Display*)> connection_;
    std::vector<unsigned long> held_;
};

// How many cells another client could still get.
int free_cells(const std::string& server_name);

} // namespace grxtest
