// What the files of the default host share. Nothing of it is seen from outside.
#pragma once

#include <cstddef>
#include <cstdio>
#include <string_view>

#include "host_f.h"
#include "host_g.h"

// Every service and global of the default host gives way to the application's own of the same name, one by one,
// in the shared library and in the archive alike.
#define HOST_DEFAULT __attribute__((weak, visibility("default")))

namespace grx_host {

inline constexpr std::size_t path_size = HOST_CHEMIN_MAX;
inline constexpr std::size_t line_size = HOST_LIGNE_MAX;
inline constexpr std::size_t message_size = HOST_MESSAGE_MAX;
inline constexpr std::size_t number_size = HOST_NOMBRE_MAX;

inline constexpr INT done = 0;
inline constexpr INT failed = -1;
inline constexpr INT no_memory = 105;

// A null string reads as the empty one.
inline std::string_view view(const char* text) {
    return text ? std::string_view(text) : std::string_view();
}

// Letters of ASCII only; other bytes stay.
constexpr char lower_ascii(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

constexpr char upper_ascii(char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

// Copies what fits in size bytes, terminator included. Source and destination may overlap. Returns the length.
INT store(char* destination, std::size_t size, std::string_view source);

// directory + "/" + name without doubled '/'; false, and result empty, when it needs more than path_size bytes.
bool join(std::string_view directory, std::string_view name, char* result);

// Opens a file of a directory as ftext_open does; null on failure.
std::FILE* open_text(const char* directory, const char* name, INT mode);

// The next line, without its end, in at most line_size bytes; false at the end.
bool read_line(std::FILE* file, char* line);

} // namespace grx_host
