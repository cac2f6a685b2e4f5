// Columns of lists: where the text behind each tab begins.
#pragma once

#include <Xm/Xm.h>

#include <array>
#include <cstddef>
#include <span>

#include "host_t.h"

namespace grx {

inline constexpr std::size_t kMostColumns = 32;

/// The widths in pixels of the columns of some texts: of each the widest.
class ColumnWidths {
  public:
    void add(const char* text);
    void add(const ColumnWidths& other);
    std::size_t count() const { return count_; }
    INT operator[](std::size_t column) const { return widths_[column]; }

  private:
    void add_line(const char* begin, const char* end);

    std::array<INT, kMostColumns> widths_{};
    std::size_t count_ = 0;
};

/// Lines up the columns of a list for entries of these widths that are about to be put in; `all` when no other ones
/// stay. Nothing for a list that never had a tab. False, with nothing changed, when memory is short.
bool line_up_columns(Widget list, const ColumnWidths& widths, bool all);

/// The least distances in pixels at which the second and further columns begin; none to have them by their widths
/// alone. False, with nothing changed, when memory is short.
bool set_column_stops(Widget list, std::span<const INT> stops);

} // namespace grx
