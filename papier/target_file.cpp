// The file that a paper is written to: under another name until it is whole.
#include "papier/target_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string_view>

#include "grx_plus_erreurs.h"
#include "papier/held_signal.h"

namespace papier {

namespace {

constexpr std::size_t kAtOnce = 65536;
constexpr mode_t kNewFile = 0666, kRights = 0777;
constexpr char kPattern[] = ".grx-papier-XXXXXX";

bool set_text(Growing<char>& into, std::string_view a, std::string_view b = {}) {
    into.clear();
    return into.append(std::span(a.data(), a.size())) && into.append(std::span(b.data(), b.size()))
           && into.append('\0');
}

// The rights that a new file gets by itself.
mode_t rights_of_new_files() {
    const mode_t mask = umask(0);
    umask(mask);
    return kNewFile & ~mask;
}

std::string_view folder_of(std::string_view path) {
    const std::size_t slash = path.rfind('/');
    return slash == std::string_view::npos ? std::string_view{} : path.substr(0, slash + 1);
}

} // namespace

bool TargetFile::note_error() {
    if (!failed_) error_ = errno;
    failed_ = true;
    return false;
}

// A link is followed, so that it goes on leading to the file.
INT TargetFile::resolve(const char* target) {
    struct stat found {};
    char whole[PATH_MAX];
    if (stat(target, &found) != 0) {
        const bool free_name = errno == ENOENT && lstat(target, &found) != 0;
        if (!free_name) return note_error(), GRX_ECHEC_FICHIER; // also a link that leads nowhere
        rights_ = rights_of_new_files();
        return set_text(target_, target) ? 1 : GRX_ECHEC_MEMOIRE;
    }
    if (!S_ISREG(found.st_mode)) {
        errno = S_ISDIR(found.st_mode) ? EISDIR : EINVAL;
        return note_error(), GRX_ECHEC_FICHIER;
    }
    rights_ = found.st_mode & kRights;
    if (access(target, W_OK) != 0 || realpath(target, whole) == nullptr) return note_error(), GRX_ECHEC_FICHIER;
    return set_text(target_, whole) ? 1 : GRX_ECHEC_MEMOIRE;
}

bool TargetFile::make_temporary(const char* near) {
    if (!set_text(temporary_, folder_of(near), kPattern)) return false;
    descriptor_ = mkostemp(temporary_.data(), O_CLOEXEC);
    if (descriptor_ >= 0) return true;
    temporary_.reset();
    return note_error();
}

INT TargetFile::open(const char* target) {
    if (target == nullptr) {
        const char* const folder = std::getenv("TMPDIR");
        const bool named = folder != nullptr && folder[0] == '/';
        if (!set_text(target_, named ? folder : "/tmp", "/")) return GRX_ECHEC_MEMOIRE;
    } else if (const INT code = resolve(target); code != 1) {
        return code;
    }
    if (make_temporary(target_.data())) return 1;
    return failed_ ? GRX_ECHEC_FICHIER : GRX_ECHEC_MEMOIRE;
}

bool TargetFile::put(std::span<const unsigned char> bytes) {
    const HeldSignal signal;
    while (!bytes.empty()) {
        const ssize_t written = ::write(descriptor_, bytes.data(), bytes.size());
        if (written < 0 && errno == EINTR) continue;
        if (written <= 0) return note_error();
        bytes = bytes.subspan(static_cast<std::size_t>(written));
    }
    return true;
}

bool TargetFile::flush() {
    const bool done = !failed_ && put(waiting_.span());
    waiting_.clear();
    return done;
}

bool TargetFile::write(std::span<const unsigned char> bytes) {
    if (failed_ || descriptor_ < 0) return false;
    if (waiting_.append(bytes)) return waiting_.size() < kAtOnce || flush();
    return flush() && put(bytes); // no room to wait in
}

bool TargetFile::write(const char* text) {
    return write({reinterpret_cast<const unsigned char*>(text), std::strlen(text)});
}

bool TargetFile::complete() {
    if (descriptor_ < 0 || !flush()) return false;
    if (fsync(descriptor_) != 0 && errno != EINVAL) return note_error();
    const int closed = descriptor_;
    descriptor_ = -1;
    return close(closed) == 0 || note_error();
}

bool TargetFile::take_name() {
    if (descriptor_ >= 0 && fchmod(descriptor_, rights_) != 0 && errno != EPERM) return note_error();
    if (!complete()) return false;
    if (std::rename(temporary_.data(), target_.data()) != 0) return note_error();
    temporary_.reset();
    return true;
}

void TargetFile::discard() {
    if (descriptor_ >= 0) close(descriptor_);
    descriptor_ = -1;
    if (!temporary_.empty()) unlink(temporary_.data());
    temporary_.reset();
}

} // namespace papier
