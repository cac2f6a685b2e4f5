// A folder of the test's own that goes with its object.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace grxtest {

class TempDir {
  public:
    TempDir();
    ~TempDir();
    TempDir(const TempDir&) = delete;
    TempDir& operator=(const TempDir&) = delete;

    const std::filesystem::path& path() const { return path_; }
    std::string text() const { return path_.string(); }
    // Writes `content` byte by byte as it is, makes missing folders, gives the full name.
    std::filesystem::path write(const std::filesystem::path& name, std::string_view content) const;
    std::string read(const std::filesystem::path& name) const;

  private:
    std::filesystem::path path_;
};

} // namespace grxtest
