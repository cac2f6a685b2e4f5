// Dialogs that run a loop of their own, and a user who works in them meanwhile.
#pragma once

#include "tests/support/window_kit.h"
#include "host_f.h"

#include <X11/IntrinsicP.h>
#include <Xm/XmAll.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <deque>
#include <filesystem>
#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace grxtest {

// --- the toolkit's tree ------------------------------------------------------------------------------------------------

inline void gather_tree(Widget root, std::vector<Widget>& into) {
    if (root == nullptr) return;
    into.push_back(root);
    if (XtIsComposite(root)) {
        WidgetList list = nullptr;
        Cardinal count = 0;
        XtVaGetValues(root, XmNchildren, &list, XmNnumChildren, &count, nullptr);
        for (Cardinal i = 0; i < count; ++i) gather_tree(list[i], into);
    }
    if (!XtIsWidget(root)) return;
    for (Cardinal i = 0; i < root->core.num_popups; ++i) gather_tree(root->core.popup_list[i], into);
}

// Everything below the shell of the main window, popup shells included.
inline std::vector<Widget> whole_tree() {
    std::vector<Widget> all;
    Widget main = grx_recup_objet_fen(grx_recup_nofen_principale());
    if (main) gather_tree(grx_recherche_shell(main), all);
    return all;
}

inline bool is_viewable(Widget widget) {
    XWindowAttributes attributes{};
    if (widget && !XtIsWidget(widget)) return XtIsManaged(widget) && is_viewable(XtParent(widget)); // a gadget
    return widget && XtIsRealized(widget) && XGetWindowAttributes(XtDisplay(widget), XtWindow(widget), &attributes)
           && attributes.map_state == IsViewable;
}

inline Widget widget_where(const std::function<bool(Widget)>& wanted) {
    const auto all = whole_tree();
    const auto found = std::ranges::find_if(all, wanted);
    return found == all.end() ? nullptr : *found;
}

inline Widget widget_called(const std::string& name) {
    return widget_where([&](Widget w) { return !w->core.being_destroyed && name == XtName(w); });
}

inline Widget on_screen_of(WidgetClass kind) {
    return widget_where([=](Widget w) { return XtClass(w) == kind && is_viewable(w); });
}

inline std::string plain_text(XmString value) {
    char* text =
        static_cast<char*>(XmStringUnparse(value, nullptr, XmCHARSET_TEXT, XmCHARSET_TEXT, nullptr, 0, XmOUTPUT_ALL));
    std::string result = text ? text : "";
    XtFree(text);
    return result;
}

inline std::vector<std::string> plain_texts(const XmString* values, int count) {
    std::vector<std::string> result;
    for (int i = 0; i < count; ++i) result.push_back(plain_text(values[i]));
    return result;
}

inline std::vector<std::string> list_items(Widget list) {
    XmStringTable items = nullptr;
    int count = 0;
    XtVaGetValues(list, XmNitems, &items, XmNitemCount, &count, nullptr);
    return plain_texts(items, count);
}

inline std::vector<std::string> selected_items(Widget list) {
    XmStringTable items = nullptr;
    int count = 0;
    XtVaGetValues(list, XmNselectedItems, &items, XmNselectedItemCount, &count, nullptr);
    return plain_texts(items, count);
}

inline std::string field_text(Widget text) {
    char* value = XmIsText(text) ? XmTextGetString(text) : XmTextFieldGetString(text);
    std::string result = value ? value : "";
    XtFree(value);
    return result;
}

// The font that a widget writes in.
inline XFontStruct* font_of(Widget widget) {
    XmFontList list = nullptr;
    XtVaGetValues(widget, XmNfontList, &list, nullptr);
    XmFontContext context = nullptr;
    if (!list || !XmFontListInitFontContext(&context, list)) return nullptr;
    XmFontListEntry entry = XmFontListNextEntry(context);
    XmFontType type = XmFONT_IS_FONT;
    XtPointer font = entry ? XmFontListEntryGetFont(entry, &type) : nullptr;
    XmFontListFreeFontContext(context);
    return type == XmFONT_IS_FONT ? static_cast<XFontStruct*>(font) : nullptr;
}

// --- records of the host -----------------------------------------------------------------------------------------------

inline STRING host_text(std::string text) {
    STRING result{};
    string_realloc(&result, text.data());
    return result;
}
inline void release(STRING& text) {
    freeC(text.str, static_cast<UNSIGNED_INT>(text.taille));
    text = {};
}

class HostFiles {
  public:
    HostFiles() = default;
    explicit HostFiles(const std::string& directory, const std::vector<std::string>& names = {}) {
        if (!directory.empty()) record_.adrs = host_text(directory);
        for (std::string name : names) ajout_sfichier(&record_, name.data());
    }
    ~HostFiles() {
        release(record_.adrs);
        for (INT i = 0; i < record_.nb_fics; ++i) release(record_.fics[i]);
        freeC(reinterpret_cast<char*>(record_.fics),
            static_cast<UNSIGNED_INT>(sizeof(STRING)) * static_cast<UNSIGNED_INT>(std::max<INT>(record_.nb_fics, 0)));
    }
    HostFiles(const HostFiles&) = delete;
    HostFiles& operator=(const HostFiles&) = delete;

    SFICHIER& record() { return record_; }
    std::string directory() const { return record_.adrs.str ? record_.adrs.str : ""; }
    std::vector<std::string> names() const {
        std::vector<std::string> result;
        for (INT i = 0; i < record_.nb_fics; ++i) result.emplace_back(record_.fics[i].str);
        return result;
    }

  private:
    SFICHIER record_{};
};

struct Filter {
    std::string message, extension;
};

class HostFilters {
  public:
    explicit HostFilters(const std::vector<Filter>& filters) {
        for (const auto& filter : filters) {
            messages_.push_back(host_text(filter.message));
            extensions_.push_back(host_text(filter.extension));
        }
    }
    ~HostFilters() {
        for (auto& text : messages_) release(text);
        for (auto& text : extensions_) release(text);
    }
    HostFilters(const HostFilters&) = delete;
    HostFilters& operator=(const HostFilters&) = delete;

    SFILTRE record() { return {messages_.data(), extensions_.data(), static_cast<INT2>(messages_.size())}; }

  private:
    std::vector<STRING> messages_, extensions_;
};

// --- the user ----------------------------------------------------------------------------------------------------------

// Steps taken one after another from a timer of the toolkit, so in whatever loop runs. Each waits until the connection is
// silent and its condition holds. When that never happens the test fails and all dialogs are closed.
class Script {
  public:
    using Condition = std::function<bool()>;
    using Action = std::function<void()>;

    explicit Script(std::function<void()> rescue) : rescue_(std::move(rescue)) {}
    ~Script() { stop(); }
    Script(const Script&) = delete;
    Script& operator=(const Script&) = delete;

    Script& when(
        const std::string& what, Condition condition, Action action = [] {}) {
        steps_.push_back({what, std::move(condition), std::move(action)});
        return *this;
    }
    Script& then(const std::string& what, Action action) {
        return when(
            what, [] { return true; }, std::move(action));
    }

    template <class Call>
    auto run(Call call) {
        start();
        auto result = call();
        stop();
        EXPECT_TRUE(steps_.empty()) << "the loop ended before: " << (steps_.empty() ? "" : steps_.front().what);
        steps_.clear();
        return result;
    }

    void start() {
        last_ = Clock::now();
        rescued_ = false;
        arm();
    }
    void stop() {
        if (timer_) XtRemoveTimeOut(timer_);
        timer_ = 0;
    }
    bool empty() const { return steps_.empty(); }
    void clear() { steps_.clear(); }
    void set_patience(Milliseconds patience) { patience_ = patience; }

  private:
    struct Step {
        std::string what;
        Condition condition;
        Action action;
    };

    void arm() { timer_ = XtAppAddTimeOut(contexte, 3, tick, this); }

    static void tick(XtPointer self, XtIntervalId*) { static_cast<Script*>(self)->take_step(); }

    static bool silent() {
        XSync(x11_disp, False);
        return XEventsQueued(x11_disp, QueuedAlready) == 0;
    }

    void take_step() {
        arm();
        silences_ = silent() ? silences_ + 1 : 0;
        if (!steps_.empty() && silences_ >= 2 && steps_.front().condition()) {
            const Step step = std::move(steps_.front());
            steps_.pop_front();
            silences_ = 0;
            last_ = Clock::now();
            step.action();
        } else if (Clock::now() - last_ > patience_) {
            give_up();
        }
    }

    void give_up() {
        const std::string what = steps_.empty() ? "the loop ends" : steps_.front().what;
        ADD_FAILURE() << "never: " << what;
        if (rescued_) {
            std::fprintf(stderr, "the loop cannot be ended; waited for: %s\n", what.c_str());
            std::_Exit(1);
        }
        rescued_ = true;
        last_ = Clock::now();
        steps_.clear();
        rescue_();
    }

    std::deque<Step> steps_;
    std::function<void()> rescue_;
    XtIntervalId timer_ = 0;
    Clock::time_point last_{};
    Milliseconds patience_{12000};
    int silences_ = 0;
    bool rescued_ = false;
};

inline void close_all_dialogs() {
    for (Widget w : whole_tree())
        if (XmIsBulletinBoard(w) && XmIsDialogShell(XtParent(w)) && is_viewable(w)) XtUnmanageChild(w);
    grx_fin_editeur();
}

// --- the fixture -------------------------------------------------------------------------------------------------------

// A main window on the screen, a folder of files, and the user's hands. Base is DisplayTest, WmTest or one of theirs.
template <class Base>
class Dialogs : public Base {
  protected:
    // The font is not the one that the toolkit would take.
    void before_start() override {
        this->write_menu("");
        this->write_ini("FONT_CARACTERE 9x15\n");
        EXPECT_EQ(grx_initialise_globales(), 0);
    }

    void SetUp() override {
        Base::SetUp();
        if (this->HasFatalFailure()) return;
        main_ = make(GRX_FEN_ALPHA, GRX_FEN_ATT_VISIBLE | GRX_FEN_ATT_PRINCIPALE, 300, 200);
        ASSERT_GT(main_, 0);
        grx_affecte_nofen_principale(main_);
        ASSERT_TRUE(this->wait_visible(widget_of(main_)));
        this->drain();
        this->events.clear();
    }

    // --- what is on the screen
    Widget file_box() const { return on_screen_of(xmFileSelectionBoxWidgetClass); }
    Widget part(unsigned char which) const { return XmFileSelectionBoxGetChild(file_box(), which); }
    Widget question_box() const { return on_screen_of(xmMessageBoxWidgetClass); }
    std::string selection() const { return field_text(part(XmDIALOG_TEXT)); }

    // What another program sees on the screen that was not there before; the library's output is left as it is.
    std::vector<Window> windows_on_screen() {
        std::vector<Window> seen;
        for (const Window window : children_of(this->test_display(), DefaultRootWindow(this->test_display()))) {
            XWindowAttributes attributes{};
            if (XGetWindowAttributes(this->test_display(), window, &attributes) && attributes.map_state == IsViewable)
                seen.push_back(window);
        }
        return seen;
    }
    bool leaves_the_screen_as(const std::vector<Window>& before) {
        const auto nothing_new = [&] {
            return std::ranges::all_of(
                windows_on_screen(), [&](Window w) { return std::ranges::count(before, w) > 0; });
        };
        return wait_until(
            nothing_new, [] { wait_readable(-1, Milliseconds(5)); }, Milliseconds(1500));
    }

    // --- what the user does
    void click(Widget widget, unsigned button = 1) {
        if (!is_viewable(widget)) {
            ADD_FAILURE() << "nothing there to click on";
            return;
        }
        if (XtIsWidget(widget)) return this->pointer().click_in(widget, button);
        Position x = 0, y = 0;
        Dimension width = 0, height = 0;
        XtVaGetValues(widget, XmNx, &x, XmNy, &y, XmNwidth, &width, XmNheight, &height, nullptr);
        this->pointer().click_in(XtParent(widget), x + width / 2, y + height / 2, button);
    }
    void press(unsigned char which) { click(part(which)); }
    void click_item(Widget list, const std::string& item) {
        const auto items = list_items(list);
        const auto found = std::ranges::find(items, item);
        if (found == items.end()) {
            ADD_FAILURE() << item << " is not among " << testing::PrintToString(items);
            return;
        }
        const int place = static_cast<int>(found - items.begin()) + 1;
        int top = 0, rows = 0;
        XtVaGetValues(list, XmNtopItemPosition, &top, XmNvisibleItemCount, &rows, nullptr);
        if (place < top || place >= top + rows) XmListSetPos(list, place);
        Position x = 0, y = 0;
        Dimension width = 0, height = 0;
        XmListPosToBounds(list, place, &x, &y, &width, &height);
        this->pointer().click_in(list, x + 3, y + height / 2);
    }
    // Gives a field the keyboard and replaces all that is in it.
    void retype(Widget field, const std::string& text) {
        this->pointer().click_in(field);
        this->keyboard().key(XK_slash, ControlMask);
        this->keyboard().key(XK_BackSpace);
        this->keyboard().type(text);
    }
    void retype_selection(const std::string& text) { retype(part(XmDIALOG_TEXT), text); }

    // Calls something from within a callback of the toolkit, as an application does.
    void inside_a_callback(const std::function<void()>& call) {
        struct Waiting {
            const std::function<void()>& call;
            bool done = false;
        } waiting{call};
        XtAddEventHandler(
            widget_of(main_), ButtonPressMask, False,
            [](Widget, XtPointer data, XEvent*, Boolean*) {
                auto& mine = *static_cast<Waiting*>(data);
                if (std::exchange(mine.done, true)) return;
                mine.call();
            },
            &waiting);
        this->pointer().click_in(widget_of(main_), 5, 5);
        EXPECT_TRUE(this->wait_for([&] { return waiting.done; }));
    }

    // --- files
    std::string path(const std::string& name) const { return (files_.path() / name).string(); }
    std::string put(const std::string& name, const std::string& content = "x") {
        return files_.write(name, content).string();
    }
    bool there(const std::string& name) const { return std::filesystem::exists(files_.path() / name); }

    INT main_ = 0;
    TempDir files_;
    Script script_{close_all_dialogs};
};

} // namespace grxtest
