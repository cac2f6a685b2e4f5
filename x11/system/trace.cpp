// The trace: a file of the developer's with a line for each call that names nothing, each refused value and each error of
// the display, for all rooms.
#include "system/trace.h"

#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>

#include "grx_plus_diagnostic.h"
#include "grx_plus_erreurs.h"
#include "pure/failure_texts.h"
#include "system/public_call.h"
#include "system/quiet_write.h"

namespace grx {

bool trace_wanted = true;

namespace {

constexpr std::size_t kLine = 600;
constexpr int kHostText = 400; // of a line of the application

bool environment_read = false;
bool exact_calls = false;
bool writing = false; // a line is made; what is called meanwhile is not told
std::array<char, kLine> last_line{};

// The application may close descriptors that it has not opened and get the number for a file of its own, so that the
// file is compared before each line.
struct TraceFile {
    int descriptor = -1;
    dev_t device = 0;
    ino_t inode = 0;

    bool is_open() const { return descriptor >= 0; }
    bool still_ours() const {
        struct stat now {};
        return is_open() && fstat(descriptor, &now) == 0 && now.st_dev == device && now.st_ino == inode;
    }
};
TraceFile trace;

TraceFile opened(const char* name) {
    TraceFile made;
    made.descriptor = open_to_append(name);
    struct stat now {};
    if (!made.is_open() || fstat(made.descriptor, &now) != 0) return made;
    made.device = now.st_dev;
    made.inode = now.st_ino;
    return made;
}

std::size_t put_time(char* text, std::size_t room) {
    timespec now{};
    clock_gettime(CLOCK_REALTIME, &now);
    tm local{};
    localtime_r(&now.tv_sec, &local);
    constexpr long kMillisecond = 1000000;
    return static_cast<std::size_t>(std::snprintf(
        text, room, "%02d:%02d:%02d.%03ld ", local.tm_hour, local.tm_min, local.tm_sec, now.tv_nsec / kMillisecond));
}

void write_line(const std::array<char, kLine>& line) {
    std::array<char, kLine + 32> text{};
    std::size_t length = put_time(text.data(), text.size());
    length += static_cast<std::size_t>(std::snprintf(text.data() + length, text.size() - length, "%s\n", line.data()));
    if (trace.still_ours())
        write_quietly(trace.descriptor, text.data(), length);
    else
        close_trace();
}

void start(const TraceFile& made, bool exact) {
    trace = made;
    exact_calls = exact;
    trace_wanted = true;
    last_line[0] = '\0';
    trace_line("trace of process %ld", static_cast<long>(getpid()));
}

void read_environment() {
    if (environment_read) return;
    environment_read = true;
    trace_wanted = trace.is_open();
    const char* const name = std::getenv("GRX_TRACE");
    if (name == nullptr || name[0] == '\0' || trace.is_open()) return;
    const TraceFile made = opened(name);
    const char* const exact = std::getenv("GRX_TRACE_SYNC");
    if (made.is_open()) start(made, exact != nullptr && std::strcmp(exact, "1") == 0);
}

// While a line is made the application's errno stays, and nothing else is told.
class Making {
  public:
    Making() : errno_(errno) { writing = true; }
    ~Making() {
        writing = false;
        errno = errno_;
    }
    Making(const Making&) = delete;
    Making& operator=(const Making&) = delete;

  private:
    int errno_;
};

// The functions by which an application asks whether a number is in use.
bool asks_only(const PublicCall& call) {
    return std::strcmp(call.name.data(), "grx_recup_objet_fen") == 0
           || std::strcmp(call.name.data(), "grx_recup_objet_bout") == 0;
}

const char* name_or(const PublicCall& call, const char* function) {
    return call.name[0] != '\0' ? call.name.data() : function;
}

} // namespace

bool tracing() {
    if (!trace_wanted || writing) return false;
    const int before = errno;
    read_environment();
    errno = before;
    return trace.is_open();
}

bool exact_calls_wanted() {
    return tracing() && exact_calls;
}

bool open_trace(const char* name, bool exact) {
    read_environment();
    const TraceFile made = opened(name);
    if (!made.is_open()) return false;
    close_trace();
    start(made, exact);
    return true;
}

bool close_trace() {
    read_environment();
    const bool open = trace.is_open();
    if (trace.still_ours()) close(trace.descriptor);
    trace = TraceFile{};
    trace_wanted = false;
    return open;
}

void trace_line(const char* format, ...) {
    if (!tracing()) return;
    const Making making;
    std::array<char, kLine> line{};
    va_list arguments;
    va_start(arguments, format);
    // NOLINTNEXTLINE(clang-analyzer-valist.Uninitialized): the analyzer does not see va_start
    std::vsnprintf(line.data(), line.size(), format, arguments);
    va_end(arguments);
    if (line == last_line) return;
    last_line = line;
    write_line(line);
}

void trace_unknown(const char* kind, INT number) {
    if (!tracing()) return;
    const PublicCall call = public_call();
    // The toolkit's events may come for what is gone already; that is no fault of the application's.
    if ((call.name[0] != '\0' && !call.direct) || asks_only(call)) return;
    trace_line("unknown number: %s, %s %d", name_or(call, "a call"), kind, number);
}

INT refused(INT code, const char* argument, INT value, const char* function) {
    if (trace_wanted && tracing())
        trace_line("refused value: %s, %s = %d: %s (%d)", name_or(public_call(), function), argument, value,
            failure_text(code), code);
    return code;
}

INT refused(INT code, const char* argument, const char* function) {
    if (trace_wanted && tracing())
        trace_line(
            "refused value: %s, %s: %s (%d)", name_or(public_call(), function), argument, failure_text(code), code);
    return code;
}

} // namespace grx

extern "C" {

INT grx_ecrit_journal(const char* texte) {
    if (texte == nullptr) return grx::refused(GRX_ECHEC_PARAMETRE, "texte");
    if (!grx::tracing()) return GRX_ECHEC_ABSENT;
    std::array<char, grx::kHostText + 1> text{};
    std::snprintf(text.data(), text.size(), "%s", texte);
    for (char& c : text)
        if (static_cast<unsigned char>(c) < ' ' && c != '\0') c = ' ';
    grx::trace_line("application: %s", text.data());
    return 1;
}
}
