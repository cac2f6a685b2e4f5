// The lines of INI_SYST.DAT: how one is read, and which values each key accepts. The settings themselves are elsewhere.
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string_view>

namespace grx {

/// Which values a key accepts.
enum class IniRule {
    positive,           // greater than 0
    drawing_count,      // one of kIniDrawingCounts
    rendering_count,    // at least kIniRenderingMinimum
    application_colour, // 0 or more; the first one that is not 0 stays
};

struct IniKey {
    const char* name;
    IniRule rule;
};

inline constexpr char kIniFileName[] = "INI_SYST.DAT";
inline constexpr char kIniFontKey[] = "FONT_CARACTERE";

// A line is tried with the keys in this order. A key must stand before every shorter key that it contains.
inline constexpr std::array<IniKey, 12> kIniNumberKeys{{
    {"LARG_CARACTERE", IniRule::positive},
    {"HAUT_CARACTERE", IniRule::positive},
    {"ESPA_CARACTERE", IniRule::positive},
    {"LARG_SCROLLBAR", IniRule::positive},
    {"BORD_NORMAL", IniRule::positive},
    {"BORD_SANS_RESIZE", IniRule::positive},
    {"BORD_SANS_TITRE", IniRule::positive},
    {"BORD_SANS_DECOR", IniRule::positive},
    {"TITRE", IniRule::positive},
    {"MAX_COULEUR_TRACE", IniRule::drawing_count},
    {"MAX_COULEUR_RENDU", IniRule::rendering_count},
    {"COULEUR_APPLICATION", IniRule::application_colour},
}};

inline constexpr std::array<int, 5> kIniDrawingCounts{8, 16, 32, 64, 128};
inline constexpr int kIniRenderingMinimum = 17;

/// The part of a line before its first '#', where a comment begins.
std::string_view ini_without_comment(std::string_view line);

/// What follows the first `key` of a line, up to the comment, blanks included. Nothing when the line has no such key.
std::optional<std::string_view> ini_value(std::string_view line, std::string_view key);

bool ini_accepts(IniRule rule, int value);

/// An icon size as the file has it: a size class, then width x height in pixels.
struct IconSize {
    int size_class = 0; // 1, 2, 3 for S, M, L; 0 when none is written
    bool has_size = false;
    int width = 0;
    int height = 0;
};

IconSize ini_icon_size(std::string_view value);

} // namespace grx
