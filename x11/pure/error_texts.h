// The texts of the error numbers, for the function that reports errors to the user.
#pragma once

#include <array>

namespace grx {

struct ErrorText {
    int code;
    const char* text;
};

inline constexpr const char* kErrorHeading = "GFX ERROR";
inline constexpr const char* kErrorUnknownFormat = "Code value:%d\n";

// KEEP: the blank at the end of 2, "XXSYS" in 6 and "informations" in 103 are part of the texts.
inline constexpr std::array<ErrorText, 24> kErrorTexts{{
    {1, "Code 1: Opening problem on file 'PAN*.DAT'"},
    {2, "Code 2: Opening problem on file 'MNU*.DAT' "},
    {3, "Code 3: Reading problem on config file"},
    {4, "Code 4: Keyboard initialisation problem"},
    {5, "Code 5: Error on table color allocation"},
    {6, "Code 6: Environment variable(XXSYS) too long"},
    {7, "Code 7: Keyboard definition incomplete"},
    {8, "Code 8: Reading problem on config file\n->Default values setting"},
    {9, "Code 9: Font file unreachable"},
    {10, "Code 10: Incorrect keyboard configuration"},
    {11, "Code 11: Error opening DISPLAY"},
    {12, "Code 12: Error on window base allocation"},
    {13, "Code 13: Error on button base allocation"},
    {14, "Code 14: Error on calculator initialisation"},
    {15, "Code 15: Opening problem on file 'MSG*.DAT'"},
    {16, "Code 16: Graphic initialisation problem"},
    {17, "Code 17: Opening problem on file 'PAN_FCAN.DAT'"},
    {18, "Code 18: Opening problem on file 'PAN_TABL.DAT'"},
    {100, "Code 100: Too many buttons defined"},
    {101, "Code 101: Line decoding error"},
    {102, "Code 102: Starting zone not found"},
    {103, "Code 103: Not enough informations"},
    {104, "Code 104: Starting index not found"},
    {105, "Code 105: Error on panels allocation"},
}};

/// The text of a code, without a newline at its end. Null when the code has none.
constexpr const char* error_text(int code) {
    for (const auto& entry : kErrorTexts)
        if (entry.code == code) return entry.text;
    return nullptr;
}

} // namespace grx
