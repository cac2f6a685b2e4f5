// The other programs at the clipboard: one that owns a selection and answers well, badly or never, and one that asks for
// what the library offers.
#pragma once

#include "tests/support/child.h"
#include "tests/support/display_test.h"

#include "grx_plus.h"

#include <X11/Xatom.h>

#include <csignal>
#include <map>
#include <optional>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace grxtest {

// How an owner answers.
enum class Manner {
    well,        // at once, in one piece
    in_parts,    // INCR
    never,       // not at all
    silent_part, // INCR, the first part only
    dies         // INCR, the first part, then the connection ends
};

struct Given {
    std::string type; // "" for the target's own
    std::string bytes;
    int format = 8;
};

// What comes of a request: the type's name, the format and the bytes, longs for 32 bits.
struct Got {
    std::string type;
    int format = 0;
    std::string bytes;
    bool in_parts = false;
};

inline std::string name_of(Display* display, Atom atom) {
    if (atom == None) return "";
    char* name = XGetAtomName(display, atom);
    std::string result = name ? name : "";
    XFree(name);
    return result;
}

inline Got take_property(Display* display, Window window, Atom property) {
    Atom type = None;
    int format = 0;
    unsigned long count = 0, rest = 0;
    unsigned char* data = nullptr;
    XGetWindowProperty(
        display, window, property, 0, 50'000'000, True, AnyPropertyType, &type, &format, &count, &rest, &data);
    const std::size_t size = format == 32 ? sizeof(long) : static_cast<std::size_t>(format / 8);
    Got got{name_of(display, type), format, {}, false};
    if (data) got.bytes.assign(reinterpret_cast<char*>(data), count * size);
    if (data) XFree(data);
    return got;
}

// A process that owns a selection until it ends.
class OtherOwner {
  public:
    OtherOwner(const std::string& server, std::map<std::string, Given> offers, Manner manner = Manner::well,
        const char* selection = "CLIPBOARD")
        : server_(server), offers_(std::move(offers)), manner_(manner), selection_(selection) {
        int ready[2];
        if (pipe(ready) != 0) throw std::runtime_error("pipe");
        pid_ = fork();
        if (pid_ == 0) serve(ready[1]);
        close(ready[1]);
        char byte = 0;
        EXPECT_EQ(read(ready[0], &byte, 1), 1);
        close(ready[0]);
    }
    ~OtherOwner() {
        kill(pid_, SIGKILL);
        waitpid(pid_, nullptr, 0);
    }
    OtherOwner(const OtherOwner&) = delete;
    OtherOwner& operator=(const OtherOwner&) = delete;

  private:
    static constexpr std::size_t part = 60'000;

    [[noreturn]] void serve(int ready) {
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        display_ = XOpenDisplay(server_.c_str());
        if (!display_) _exit(1);
        XSetErrorHandler([](Display*, XErrorEvent*) { return 0; }); // who asks may be gone
        const Window window = XCreateSimpleWindow(display_, DefaultRootWindow(display_), 0, 0, 1, 1, 0, 0, 0);
        XSetSelectionOwner(display_, XInternAtom(display_, selection_, False), window, CurrentTime);
        XSync(display_, False);
        if (write(ready, "r", 1) != 1) _exit(1);
        for (;;) {
            XEvent event;
            XNextEvent(display_, &event);
            if (event.type == SelectionRequest && manner_ != Manner::never) answer(event.xselectionrequest);
            if (event.type == PropertyNotify && event.xproperty.state == PropertyDelete) send_part(event.xproperty);
            XFlush(display_);
        }
    }
    void answer(const XSelectionRequestEvent& asked) {
        XEvent event{};
        event.xselection.type = SelectionNotify;
        event.xselection.requestor = asked.requestor;
        event.xselection.selection = asked.selection;
        event.xselection.target = asked.target;
        event.xselection.time = asked.time;
        const std::string target = name_of(display_, asked.target);
        const auto offer = offers_.find(target);
        if (target == "TARGETS") {
            give_targets(asked);
        } else if (offer != offers_.end()) {
            give(asked, offer->second);
        }
        const bool given = target == "TARGETS" || offer != offers_.end();
        event.xselection.property = given ? asked.property : None;
        XSendEvent(display_, asked.requestor, False, NoEventMask, &event);
    }
    void give_targets(const XSelectionRequestEvent& asked) {
        std::vector<Atom> list;
        for (const auto& [target, given] : offers_) list.push_back(XInternAtom(display_, target.c_str(), False));
        XChangeProperty(display_, asked.requestor, asked.property, XA_ATOM, 32, PropModeReplace,
            reinterpret_cast<const unsigned char*>(list.data()), static_cast<int>(list.size()));
    }
    void give(const XSelectionRequestEvent& asked, const Given& given) {
        const Atom type = given.type.empty() ? asked.target : XInternAtom(display_, given.type.c_str(), False);
        if (manner_ == Manner::well) return put(asked.requestor, asked.property, type, given.format, given.bytes);
        XSelectInput(display_, asked.requestor, PropertyChangeMask);
        const long size = static_cast<long>(given.bytes.size());
        XChangeProperty(display_, asked.requestor, asked.property, XInternAtom(display_, "INCR", False), 32,
            PropModeReplace, reinterpret_cast<const unsigned char*>(&size), 1);
        left_ = given.bytes;
        type_ = type;
        parts_ = 0;
    }
    void send_part(const XPropertyEvent& event) {
        if (type_ == None) return;
        if (parts_ > 0 && manner_ == Manner::silent_part) return;
        if (parts_ > 0 && manner_ == Manner::dies) _exit(0);
        const std::string bytes = left_.substr(0, part);
        left_.erase(0, bytes.size());
        put(event.window, event.atom, type_, 8, bytes);
        ++parts_;
        if (bytes.empty()) type_ = None;
    }
    void put(Window window, Atom property, Atom type, int format, const std::string& bytes) {
        XChangeProperty(display_, window, property, type, format, PropModeReplace,
            reinterpret_cast<const unsigned char*>(bytes.data()),
            static_cast<int>(bytes.size() / (format == 32 ? sizeof(long) : static_cast<std::size_t>(format / 8))));
    }

    std::string server_;
    std::map<std::string, Given> offers_;
    Manner manner_;
    const char* selection_;
    pid_t pid_ = -1;
    Display* display_ = nullptr;
    std::string left_;
    Atom type_ = None;
    int parts_ = 0;
};

template <class Base>
class ClipboardOn : public Base {
  protected:
    void SetUp() override {
        Base::SetUp();
        other_ = open_connection(this->server().name());
        ignore_x_errors_of(other_);
        window_ = XCreateSimpleWindow(other_, DefaultRootWindow(other_), 0, 0, 1, 1, 0, 0, 0);
        XSelectInput(other_, window_, PropertyChangeMask);
    }
    void TearDown() override {
        if (other_) XCloseDisplay(other_);
        Base::TearDown();
    }

    Display* other() { return other_; }
    Atom other_atom(const char* name) { return XInternAtom(other_, name, False); }

    // What another program gets for a target; nothing when it is refused.
    std::optional<Got> asked(const char* target, const char* selection = "CLIPBOARD") {
        const Atom place = other_atom("PLACE");
        XConvertSelection(other_, other_atom(selection), other_atom(target), place, window_, CurrentTime);
        XEvent event{};
        if (!this->wait_for([&] { return XCheckTypedEvent(other_, SelectionNotify, &event) != 0; })) return {};
        if (event.xselection.property == None) return {};
        while (XCheckTypedEvent(other_, PropertyNotify, &event)) {
        }
        Got got = take_property(other_, window_, place);
        if (got.type != "INCR") return got;
        Got whole{"", 0, {}, true};
        for (;;) {
            const auto written = [&] {
                return XCheckTypedEvent(other_, PropertyNotify, &event) && event.xproperty.state == PropertyNewValue;
            };
            if (!this->wait_for(written)) return {};
            const Got part = take_property(other_, window_, place);
            whole.type = part.type;
            whole.format = part.format;
            if (part.bytes.empty()) return whole;
            whole.bytes += part.bytes;
        }
    }

    // The selection changes hands.
    void take_over(const char* selection = "CLIPBOARD") {
        XSetSelectionOwner(other_, other_atom(selection), window_, CurrentTime);
        XSync(other_, False);
    }

  private:
    Display* other_ = nullptr;
    Window window_ = None;
};

class ClipboardTest : public ClipboardOn<DisplayTest> {};

inline INT put_text(const std::string& text, INT encoding = GRX_CODAGE_UTF8, INT selection = GRX_SEL_PRESSE_PAPIERS) {
    return grx_affecte_texte_presse_papiers(selection, encoding, text.data(), static_cast<INT>(text.size()));
}

struct TextGot {
    INT result = 0;
    std::string text;
};
inline TextGot get_text(INT encoding = GRX_CODAGE_UTF8, INT selection = GRX_SEL_PRESSE_PAPIERS) {
    const char* text = nullptr;
    INT size = -7;
    const INT result = grx_recup_texte_presse_papiers(selection, encoding, &text, &size);
    return {result, result == 1 ? std::string(text, static_cast<std::size_t>(size)) : ""};
}

} // namespace grxtest
