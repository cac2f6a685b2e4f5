// Text files of the default host: opened by directory and name, read line by line.
#include "host_prive.h"

#include <array>

#include <sys/stat.h>

namespace grx_host {

namespace {

const char* access_of(INT mode) {
    switch (mode) {
    case HOST_MODE_ECRITURE: return "wb";
    case HOST_MODE_LECTURE: return "rb";
    case HOST_MODE_LECT_ECRI: return "r+b";
    default: return nullptr;
    }
}

// Directories open for reading like files, and a pipe would block: only a file is taken, or a new name or a device to
// write to.
bool can_be_opened(const char* path, INT mode) {
    struct stat status {};
    if (stat(path, &status) != 0) return mode == HOST_MODE_ECRITURE;
    return S_ISREG(status.st_mode) || (mode == HOST_MODE_ECRITURE && S_ISCHR(status.st_mode));
}

} // namespace

std::FILE* open_text(const char* directory, const char* name, INT mode) {
    std::array<char, path_size> path{};
    const auto* access = access_of(mode);
    if (!access || view(name).empty() || !join(view(directory), view(name), path.data())) return nullptr;
    return can_be_opened(path.data(), mode) ? std::fopen(path.data(), access) : nullptr;
}

bool read_line(std::FILE* file, char* line) {
    int c = std::getc(file);
    if (c == EOF) return false;
    std::size_t length = 0;
    int last = 0;
    for (; c != EOF && c != '\n'; c = std::getc(file)) {
        last = c;
        if (length < line_size - 1) line[length++] = static_cast<char>(c);
    }
    const bool cut_return = c == '\n' && last == '\r' && line[length - 1] == '\r';
    line[cut_return ? length - 1 : length] = '\0';
    return true;
}

namespace {

std::FILE* current_text = nullptr; // the one file of text_open

// The services do not call each other: an application may have its own of only some of them.
INT close_text(std::FILE* file) {
    if (!file) return done;
    return std::fclose(file) == 0 ? done : failed;
}

INT next_line(std::FILE* file, char* line) {
    if (!line) return 0;
    line[0] = '\0';
    return file && read_line(file, line) ? 1 : 0;
}

INT close_current_text() {
    std::FILE* const file = current_text;
    current_text = nullptr;
    return close_text(file);
}

} // namespace
} // namespace grx_host

using namespace grx_host;

HOST_DEFAULT INT ftext_open(FILE** fd, char* adr, char* nom_fic, INT mode) {
    if (!fd) return failed;
    *fd = open_text(adr, nom_fic, mode);
    return *fd ? done : failed;
}

HOST_DEFAULT INT ftext_lec(FILE* fd, char* ligne) {
    return next_line(fd, ligne);
}

// A writer learns here that the disk is full.
HOST_DEFAULT INT ftext_close(FILE* fd) {
    return close_text(fd);
}

HOST_DEFAULT INT text_open(char* adr, char* nom, INT mode) {
    close_current_text();
    current_text = open_text(adr, nom, mode);
    return current_text ? done : failed;
}

HOST_DEFAULT INT text_lec(char* ligne) {
    return next_line(current_text, ligne);
}

HOST_DEFAULT INT text_close(void) {
    return close_current_text();
}
