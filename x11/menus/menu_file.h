// The menu file of the application's module, for those who build menus of it.
#pragma once

#include <cstdio>
#include <string_view>

#include "host_t.h"
#include "xt_fen_t.h"

namespace grx {

/// Opens the file, which is closed with the reader; false when there is none.
class MenuFile {
  public:
    MenuFile();
    MenuFile(const MenuFile&) = delete;
    MenuFile& operator=(const MenuFile&) = delete;
    ~MenuFile();
    explicit operator bool() const { return file_ != nullptr; }

    /// Goes on to the next line that is neither skipped nor wrong; false at the end of the file.
    bool next();
    const LI_MENU& line() const { return line_; }
    INT depth() const { return depth_; } // braces open around the line

  private:
    FILE* file_;
    char text_[HOST_LIGNE_MAX] = "";
    LI_MENU line_;
    bool in_zone_ = false;
    INT depth_ = 0;
};

/// The lines between the braces behind the marker of a zone, of a file in the directory of menu files; null or "" is the
/// file of the application's module. False when there is no such file. `zone` has to outlive the reader.
class MenuZone {
  public:
    MenuZone(const char* file, const char* zone);
    MenuZone(const MenuZone&) = delete;
    MenuZone& operator=(const MenuZone&) = delete;
    ~MenuZone();
    explicit operator bool() const { return file_ != nullptr; }

    /// As that of MenuFile; false at the end of the zone.
    bool next();
    const LI_MENU& line() const { return line_; }
    INT depth() const { return depth_; }

  private:
    bool find_marker();

    FILE* file_;
    std::string_view zone_;
    char text_[HOST_LIGNE_MAX] = "";
    LI_MENU line_;
    bool in_zone_ = false;
    INT depth_ = 0;
};

} // namespace grx
