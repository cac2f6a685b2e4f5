// Reading the file of the editor, and saving it: all of it to a temporary file first, then over the target.
#include "dialogs/editor_files.h"

#include <Xm/Text.h>

#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <string_view>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>

#include "pure/text.h"
#include "system/block.h"
#include "system/shell_command.h"
#include "toolkit/locale_text.h"
#include "dialogs/editor_state.h"
#include "host_f.h"
#include "xt_f.h"

namespace grx::editor {

namespace {

constexpr long kSizeUnknown = 1000000;

FILE* open_stream(char* name) {
    char nowhere[] = "";
    FILE* file = nullptr;
    if (ftext_open(&file, nowhere, name, HOST_MODE_LECT_ECRI) != -1) return file;
    return ftext_open(&file, nowhere, name, HOST_MODE_LECTURE) != -1 ? file : nullptr;
}

std::size_t size_of_file(FILE* file) {
    struct stat status {};
    const bool known = fstat(fileno(file), &status) == 0 && status.st_size >= 0;
    return static_cast<std::size_t>(known ? status.st_size : kSizeUnknown);
}

// The bytes of a file with a zero behind them; nothing when memory is short or the file is no text.
Block<char> read_text(FILE* file) {
    auto bytes = Block<char>::raw(size_of_file(file) + 1);
    if (!bytes) return bytes;
    const std::size_t length = std::fread(bytes.data(), 1, bytes.size() - 1, file);
    bytes[length] = '\0';
    if (std::memchr(bytes.data(), '\0', length) != nullptr) return {}; // the text would end there, and be saved so
    return bytes;
}

// A link that leads nowhere is there too.
bool is_there(const char* name) {
    struct stat status {};
    return lstat(name, &status) == 0;
}

// Undoes a failed copy: an old file gets its content back, a new one is removed.
class FormerContent {
  public:
    explicit FormerContent(const char* name) : name_(name), is_new_(!is_there(name)) {
        FILE* const file = std::fopen(name, "rb");
        if (file == nullptr) return;
        bytes_ = Block<char>::raw(size_of_file(file));
        length_ = bytes_ ? std::fread(bytes_.data(), 1, bytes_.size(), file) : 0;
        std::fclose(file);
    }

    void put_back() const {
        if (is_new_) unlink(name_);
        if (!bytes_) return;
        FILE* const file = std::fopen(name_, "wb");
        if (file == nullptr) return;
        std::fwrite(bytes_.data(), 1, length_, file);
        std::fclose(file);
    }

  private:
    const char* name_;
    bool is_new_;
    Block<char> bytes_;
    std::size_t length_ = 0;
};

// True when the disk has room for the text. The copy empties the target first: its old blocks count as free.
bool fits_on_disk(const char* name, std::size_t size) {
    constexpr uint64_t block = 512;
    char directory[HOST_CHEMIN_MAX] = ".";
    const std::string_view path(name);
    const auto slash = path.rfind('/');
    if (slash != std::string_view::npos) copy_text(directory, path.substr(0, slash + 1));
    struct statvfs room {};
    const bool known = statvfs(name, &room) == 0 || statvfs(directory, &room) == 0; // a link may lead to another disk
    if (!known) return true;                                                        // the copy will tell
    struct stat target {};
    const uint64_t own = stat(name, &target) == 0 ? static_cast<uint64_t>(target.st_blocks) * block : 0;
    return uint64_t{room.f_bavail} * room.f_frsize + own >= size;
}

// KEEP: nothing is written without a line feed at its end; an empty text is one byte.
bool write_all(FILE* file, std::string_view text) {
    bool done = std::fwrite(text.data(), 1, text.size(), file) == text.size();
    if (!text.ends_with('\n')) done = std::fputc('\n', file) != EOF && done;
    return std::fclose(file) == 0 && done;
}

class TemporaryFile {
  public:
    TemporaryFile() : descriptor_(mkstemp(name_)) {}
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;
    ~TemporaryFile() {
        if (made()) unlink(name_);
    }

    bool made() const { return descriptor_ >= 0; }
    const char* name() const { return name_; }

    // Call it once. The file gets the one right that the copy needs, whatever rights the target has.
    bool write(std::string_view text) {
        fchmod(descriptor_, S_IRUSR);
        FILE* const file = fdopen(descriptor_, "wb");
        if (file != nullptr) return write_all(file, text);
        close(descriptor_);
        return false;
    }

  private:
    char name_[25] = "/tmp/xmeditXXXXXX";
    int descriptor_;
};

// The shell's cp must not take a name that begins with '-' for an option.
bool copy_over(const char* from, const char* to) {
    ShellCommand command("cp");
    command.add(from);
    char guarded[HOST_CHEMIN_MAX + 2] = "./";
    copy_text(guarded + 2, HOST_CHEMIN_MAX, to);
    return command.add(to[0] == '-' ? guarded : to).run() == 0;
}

constexpr Reason kNoMemory = "la m\351moire manque";
constexpr Reason kNoName = "il n'a pas de nom";
constexpr Reason kNoTemporary = "le fichier temporaire n'a pas pu \352tre \351crit";
constexpr Reason kDiskFull = "le disque est plein";
constexpr Reason kDirectory = "c'est un r\351pertoire";
constexpr Reason kNoFile = "ce n'est pas un fichier";
constexpr Reason kNoPath = "le chemin n'existe pas";
constexpr Reason kNotPermitted = "l'\351criture n'est pas permise";
constexpr Reason kNotCopied = "la copie a \351chou\351";

Reason reason_of(int error) {
    switch (error) {
    case ENOENT:
    case ENOTDIR:
    case ELOOP: return kNoPath;
    case EACCES:
    case EPERM:
    case EROFS:
    case ETXTBSY: return kNotPermitted;
    case ENOSPC:
    case EDQUOT: return kDiskFull;
    default: return kNotCopied;
    }
}

// Refuses a directory, into which cp would put the copy under its temporary name, and a pipe, where cp would wait for a
// reader.
Reason takes_no_text(const char* name) {
    struct stat status {};
    if (stat(name, &status) != 0) return nullptr;
    return S_ISDIR(status.st_mode) ? kDirectory : S_ISFIFO(status.st_mode) ? kNoFile : nullptr;
}

// Finds out whether the target can be written. A new one is made here, with the rights of new files: cp would give it
// those of the temporary file.
Reason open_target(const char* name) {
    constexpr mode_t everybody = 0666;
    const int making = is_there(name) ? 0 : O_CREAT | O_EXCL;
    const int descriptor = open(name, O_WRONLY | O_NOCTTY | O_CLOEXEC | making, everybody);
    if (descriptor < 0) return reason_of(errno);
    close(descriptor);
    return nullptr;
}

Reason write_over(const char* name, const char* from) {
    const FormerContent former(name);
    Reason reason = open_target(name);
    if (reason != nullptr) return reason;
    if (copy_over(from, name)) return nullptr;
    former.put_back();
    return kNotCopied;
}

Reason save_as(const char* name, std::string_view text) {
    if (Reason reason = takes_no_text(name)) return reason;
    TemporaryFile temporary;
    if (!temporary.made() || !temporary.write(text)) return kNoTemporary;
    return fits_on_disk(name, text.size() + 1) ? write_over(name, temporary.name()) : kDiskFull;
}

} // namespace

bool show_file() {
    TextFile& file = text_file();
    if (!file.name || widget_of(kText) == nullptr) return false;
    FILE* const stream = open_stream(file.name.data());
    if (stream == nullptr) return false;
    const auto bytes = read_text(stream);
    ftext_close(stream);
    if (!bytes) {
        file.name.reset(); // saving must not destroy what could not be shown
        return false;
    }
    file.encoding = encoding_of(bytes.data());
    LocaleText text(bytes.data());
    file.on_disk = true;
    show_text(text.data());
    allow_typing();
    return true;
}

Reason save_text() {
    const TextFile& file = text_file();
    if (!file.name) return kNoName;
    char* const text = XmTextGetString(widget_of(kText));
    if (text == nullptr) return kNoMemory;
    const ApplicationText bytes(text, file.encoding);
    const Reason reason = save_as(file.name.data(), bytes.lossless() ? bytes.c_str() : text);
    XtFree(text);
    return reason;
}

void close_file() {
    TextFile& file = text_file();
    char nothing[] = "";
    show_text(nothing);
    copy_text(memo_filename, file.name ? std::string_view(file.name.data()) : std::string_view());
    file.name.reset();
    set_sensitive(kText, false);
}

} // namespace grx::editor
