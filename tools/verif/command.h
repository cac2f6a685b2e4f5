// The command behind grx-verif, apart from main so that it can be tested.
#pragma once

#include <array>
#include <filesystem>
#include <fstream>
#include <ostream>
#include <span>
#include <string>
#include <string_view>

#include "pure/ini_line.h"
#include "tools/verif/finding.h"
#include "tools/verif/ini_check.h"
#include "tools/verif/menu_check.h"

namespace verif {

// Exit codes.
inline constexpr int all_taken = 0;
inline constexpr int some_refused = 1;
inline constexpr int not_checked = 2;

struct FileKind {
    std::string_view name; // * = any characters
    Findings (*check)(std::istream&);
};

inline constexpr std::array<FileKind, 2> file_kinds{
    {{grx::kIniFileName, IniCheck::check}, {"MNU_*.DAT", MenuCheck::check}}};

inline std::string known_names() {
    std::string list;
    for (const auto& kind : file_kinds) list += (list.empty() ? "" : ", ") + std::string(kind.name);
    return list;
}

inline bool is_named(std::string_view file, std::string_view name) {
    const auto star = name.find('*');
    if (star == name.npos) return file == name;
    return file.size() + 1 >= name.size() && file.starts_with(name.substr(0, star))
           && file.ends_with(name.substr(star + 1));
}

inline const FileKind* kind_of(const std::filesystem::path& path) {
    const auto name = path.filename().string();
    for (const auto& kind : file_kinds)
        if (is_named(name, kind.name)) return &kind;
    return nullptr;
}

inline int check_file(const std::string& path, std::ostream& out, std::ostream& errors) {
    const auto* const kind = kind_of(path);
    if (!kind) {
        errors << path << ": no file that grx-verif knows; it checks " << known_names() << '\n';
        return not_checked;
    }
    std::error_code ignored;
    std::ifstream file(path, std::ios::binary);
    if (!file || !std::filesystem::is_regular_file(path, ignored)) {
        errors << path << ": cannot be read\n";
        return not_checked;
    }
    const auto findings = kind->check(file);
    for (const auto& finding : findings)
        out << path << ':' << finding.line << ": " << name_of(finding.verdict) << ": " << finding.text << '\n';
    return has_refusals(findings) ? some_refused : all_taken;
}

inline void explain(std::ostream& to) {
    to << "usage: grx-verif FILE...\n"
          "       grx-verif --help | --version\n"
          "Says line by line what the library makes of its configuration files, and why:\n"
          "  taken    it is used\n"
          "  note     it is used; an accelerator, a function number or, within one menu, a mnemonic comes again.\n"
          "           Of entries with one accelerator the first answers it; entries may share a function number.\n"
          "  skipped  it says nothing: comments, blank lines, what is not for the library\n"
          "  refused  it cannot be used, or not as it is written, as a font name longer than is kept\n"
          "Files by their names: "
       << known_names()
       << ".\n"
          "Exit code: 0 nothing refused, 1 something refused, 2 a file could not be checked.\n";
}

// The worst code of all files.
inline int run(
    std::span<const std::string> paths, std::ostream& out, std::ostream& errors, std::string_view version = "") {
    if (paths.empty()) {
        explain(errors);
        return not_checked;
    }
    if (paths.front() == "--help") {
        explain(out);
        return all_taken;
    }
    if (paths.front() == "--version") {
        out << "grx-verif " << version << '\n';
        return all_taken;
    }
    int worst = all_taken;
    for (const auto& path : paths) worst = std::max(worst, check_file(path, out, errors));
    return worst;
}

} // namespace verif
