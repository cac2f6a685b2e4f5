// A file that is written whole or not at all, for what the application saves: under a temporary name in the folder of its
// target, whose name it takes at the end.
#include "system/whole_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "grx_plus_erreurs.h"
#include "system/quiet_write.h"

namespace grx {

namespace {

constexpr mode_t kRights = 0666, kAllRights = 07777;

Block<char> copy_of(const char* text) {
    Block<char> copy(std::strlen(text) + 1);
    if (copy) std::memcpy(copy.data(), text, copy.size());
    return copy;
}

} // namespace

// What a link leads to; a name that leads nowhere yet is taken as it is.
INT WholeFile::find_target(const char* name) {
    if (name[0] == '\0') return GRX_ECHEC_FICHIER;
    struct stat status {};
    const bool there = stat(name, &status) == 0;
    if (there && (!S_ISREG(status.st_mode) || access(name, W_OK) != 0)) return GRX_ECHEC_FICHIER;
    char path[PATH_MAX];
    if (there && realpath(name, path) == nullptr) return GRX_ECHEC_FICHIER;
    if (!there && lstat(name, &status) == 0) return GRX_ECHEC_FICHIER; // a link that leads nowhere
    target_ = copy_of(there ? path : name);
    return target_ ? 1 : GRX_ECHEC_MEMOIRE;
}

bool WholeFile::make_temporary() {
    constexpr int tries = 1000;
    const char* const slash = std::strrchr(target_.data(), '/');
    const int folder = slash != nullptr ? static_cast<int>(slash + 1 - target_.data()) : 0;
    for (int n = 0; n < tries && descriptor_ < 0; ++n) {
        std::snprintf(temporary_.data(), temporary_.size(), "%.*s.grx-%ld-%d", folder, target_.data(),
            static_cast<long>(getpid()), n);
        descriptor_ = open(temporary_.data(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC | O_NOCTTY, kRights);
        if (descriptor_ < 0 && errno != EEXIST) return false;
    }
    return descriptor_ >= 0;
}

INT WholeFile::begin(const char* name) {
    constexpr std::size_t longest = 64; // ".grx-", two numbers
    give_up();
    if (const INT fault = find_target(name); fault != 1) return fault;
    temporary_ = Block<char>(target_.size() + longest);
    if (!temporary_) return GRX_ECHEC_MEMOIRE;
    if (!make_temporary()) return GRX_ECHEC_FICHIER;
    struct stat status {};
    if (stat(target_.data(), &status) == 0) fchmod(descriptor_, status.st_mode & kAllRights);
    return 1;
}

bool WholeFile::write(const uchar* bytes, std::size_t count) {
    return write_quietly(descriptor_, reinterpret_cast<const char*>(bytes), count);
}

bool WholeFile::write_at(uint64_t place, const uchar* bytes, std::size_t count) {
    return lseek(descriptor_, static_cast<off_t>(place), SEEK_SET) >= 0 && write(bytes, count);
}

bool WholeFile::finish() {
    if (descriptor_ < 0) return false;
    const bool synced = fsync(descriptor_) == 0;
    const bool closed = close(descriptor_) == 0;
    descriptor_ = -1;
    const bool done = synced && closed && std::rename(temporary_.data(), target_.data()) == 0;
    if (!done) unlink(temporary_.data());
    return done;
}

void WholeFile::give_up() {
    if (descriptor_ < 0) return;
    close(descriptor_);
    unlink(temporary_.data());
    descriptor_ = -1;
}

} // namespace grx
