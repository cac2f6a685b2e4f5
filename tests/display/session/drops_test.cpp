// Files and texts dragged onto windows by another program: one that keeps to the protocol, one that dies, one that lies.
#include "tests/display/session/clipboard_kit.h"
#include "tests/support/window_kit.h"

namespace {

using namespace grxtest;

struct Message {
    std::string name;
    long data[5]{};
};

// The other program: drags, and offers contents for what it drags.
class DropTest : public ClipboardOn<DisplayTest> {
  protected:
    void SetUp() override {
        ClipboardOn::SetUp();
        window_ = make(GRX_FEN_GRAPHIQUE);
        ASSERT_TRUE(wait_visible(widget_of(window_)));
        source_ = XCreateSimpleWindow(other(), DefaultRootWindow(other()), 0, 0, 1, 1, 0, 0, 0);
        XSetSelectionOwner(other(), other_atom("XdndSelection"), source_, CurrentTime);
        settle();
    }
    Window shell(INT nofen = 0) const { return XtWindow(shell_of(nofen != 0 ? nofen : window_)); }

    void send(const char* name, std::array<long, 4> data, Window from = None, Window to = None) {
        XEvent event{};
        event.xclient.type = ClientMessage;
        event.xclient.window = to != None ? to : shell();
        event.xclient.message_type = other_atom(name);
        event.xclient.format = 32;
        event.xclient.data.l[0] = static_cast<long>(from != None ? from : source_);
        std::ranges::copy(data, event.xclient.data.l + 1);
        XSendEvent(other(), event.xclient.window, False, NoEventMask, &event);
        XSync(other(), False);
    }
    void enter(std::vector<const char*> types, long version = 5) {
        std::array<long, 4> data{version << 24, None, None, None};
        if (types.size() > 3) {
            std::vector<Atom> list;
            for (const char* type : types) list.push_back(other_atom(type));
            put_list(list);
            data[0] |= 1;
        }
        for (std::size_t i = 0; i < std::min<std::size_t>(types.size(), 3); ++i)
            data[i + 1] = static_cast<long>(other_atom(types[i]));
        send("XdndEnter", data);
    }
    void put_list(const std::vector<Atom>& list, Atom type = XA_ATOM) {
        XChangeProperty(other(), source_, other_atom("XdndTypeList"), type, 32, PropModeReplace,
            reinterpret_cast<const unsigned char*>(list.data()), static_cast<int>(list.size()));
    }
    // The position, from the top left of a window's work widget.
    void move_to(INT nofen, int x, int y) {
        const Area area = server_area(other(), x_window(nofen));
        send("XdndPosition", {0, static_cast<long>(area.x + x) << 16 | (area.y + y), CurrentTime,
                                 static_cast<long>(other_atom("XdndActionCopy"))});
    }
    void drop() { send("XdndDrop", {0, CurrentTime, 0, 0}); }

    // The next message to the source; answers requests for contents meanwhile.
    std::optional<Message> heard(Milliseconds deadline = default_deadline) {
        std::optional<Message> message;
        wait_until([&] { return (message = next_message()).has_value(); }, [&] { turn(); }, deadline);
        return message;
    }
    // One turn of the application, which reads the details of a drop at once.
    void turn() {
        GRX_EVENEMENT evt{};
        if (grx_digitaliseur(&evt, 0) == 0) {
            wait_readable(ConnectionNumber(x11_disp), Milliseconds(2));
        } else if (evt.type_evenement == GRX_EVT_DEPOT) {
            last_ = evt;
            texts_ = details();
            ++drops_;
        }
    }
    bool status(bool accepted) {
        const auto message = heard();
        if (!message || message->name != "XdndStatus") return false;
        EXPECT_EQ(message->data[0], static_cast<long>(shell()));
        EXPECT_EQ(message->data[4], accepted ? static_cast<long>(other_atom("XdndActionCopy")) : 0L);
        return ((message->data[1] & 1) != 0) == accepted;
    }
    bool finished(bool accepted, Milliseconds deadline = default_deadline) {
        const auto message = heard(deadline);
        if (!message || message->name != "XdndFinished") return false;
        EXPECT_EQ(message->data[2], accepted ? static_cast<long>(other_atom("XdndActionCopy")) : 0L);
        return ((message->data[1] & 1) != 0) == accepted;
    }
    // A whole drag to a place, of one type and its content.
    bool dragged(const char* type, const std::string& content, int x = 30, int y = 40) {
        contents_[type] = content;
        enter({type});
        move_to(window_, x, y);
        if (!status(true)) return false;
        drop();
        return finished(true);
    }
    // The record of the last drop, once.
    std::optional<GRX_EVENEMENT> record() {
        wait_until([&] { return last_.has_value(); }, [&] { turn(); });
        return std::exchange(last_, {});
    }
    const std::vector<std::string>& texts() const { return texts_; }
    std::vector<std::string> details() {
        grx_init_detail_evenement(&detail_);
        if (grx_recup_detail_evenement(&detail_) != 1) return {};
        std::vector<std::string> result;
        for (INT i = 0; i < detail_.nb_textes; ++i) result.emplace_back(grx_recup_texte_detail_evenement(i));
        return result;
    }
    void serve_once() {
        XEvent event;
        if (!silent_ && XCheckTypedEvent(other(), SelectionRequest, &event)) answer(event.xselectionrequest);
    }

    INT window_ = 0;
    Window source_ = None;
    std::map<std::string, std::string> contents_;
    int format_ = 8;
    bool silent_ = false;
    int drops_ = 0;
    GRX_DETAIL_EVENEMENT detail_{};

  private:
    std::optional<GRX_EVENEMENT> last_;
    std::vector<std::string> texts_;

    std::optional<Message> next_message() {
        serve_once();
        XEvent event;
        if (!XCheckTypedEvent(other(), ClientMessage, &event)) return {};
        Message message{name_of(other(), event.xclient.message_type)};
        std::copy_n(event.xclient.data.l, 5, message.data);
        return message;
    }
    void answer(const XSelectionRequestEvent& asked) {
        const auto found = contents_.find(name_of(other(), asked.target));
        XEvent event{};
        event.xselection.type = SelectionNotify;
        event.xselection.requestor = asked.requestor;
        event.xselection.selection = asked.selection;
        event.xselection.target = asked.target;
        event.xselection.property = found != contents_.end() ? asked.property : None;
        if (found != contents_.end())
            XChangeProperty(other(), asked.requestor, asked.property, asked.target, format_, PropModeReplace,
                reinterpret_cast<const unsigned char*>(found->second.data()),
                static_cast<int>(found->second.size()) * 8 / format_);
        XSendEvent(other(), asked.requestor, False, NoEventMask, &event);
        XSync(other(), False);
    }
};

long aware(Display* display, Window window) {
    const Got got = take_property(display, window, XInternAtom(display, "XdndAware", False));
    long version = 0;
    if (got.type == "ATOM" && got.bytes.size() == sizeof version)
        std::memcpy(&version, got.bytes.data(), sizeof version);
    return version;
}

TEST_F(DropTest, WindowsAreClosedAtFirst) {
    EXPECT_EQ(grx_recup_depots_fenetre(window_), GRX_DEPOT_AUCUN);
    EXPECT_EQ(aware(other(), shell()), 0);
    enter({"text/uri-list"});
    move_to(window_, 5, 5);
    drain();
    XEvent event;
    EXPECT_FALSE(XCheckTypedEvent(other(), ClientMessage, &event));
}

TEST_F(DropTest, AFileComesWithItsPlace) {
    ASSERT_EQ(grx_affecte_depots_fenetre(window_, GRX_DEPOT_FICHIERS), 1);
    EXPECT_EQ(grx_recup_depots_fenetre(window_), GRX_DEPOT_FICHIERS);
    ASSERT_TRUE(dragged("text/uri-list", "file:///tmp/plan%20n%C2%B01.dxf\r\n"));
    const auto evt = record();
    ASSERT_TRUE(evt);
    EXPECT_EQ(evt->exec_fonction.nofen, window_);
    EXPECT_EQ(evt->exec_fonction.valeur, GRX_DEPOT_FICHIERS);
    EXPECT_EQ(evt->exec_fonction.nobou, GRX_AUCUN);
    EXPECT_EQ(evt->exec_fonction.no_fo, GRX_AUCUN);
    EXPECT_STREQ(evt->exec_fonction.chaine, "/tmp/plan n\xC2\xB0"
                                            "1.dxf");
    EXPECT_EQ(texts(), std::vector<std::string>{"/tmp/plan n\xC2\xB0"
                                                "1.dxf"});
    pointer().click_in(widget_of(window_), 30, 40);
    const auto press = events.wait(GRX_EVT_BOUTON_APPUI);
    ASSERT_TRUE(press);
    EXPECT_EQ(detail_.x, press->bouton_appui.x);
    EXPECT_EQ(detail_.y, press->bouton_appui.y);
}

TEST_F(DropTest, AListOfAddressesBecomesPaths) {
    char host[256] = "";
    gethostname(host, sizeof host);
    const std::string list = "# a comment\r\nfile:///a\r\nfile://localhost/b%2Fc\nFILE:/d\r\n\r\nfile://"
                             + std::string(host)
                             + "/e\r\nfile://elsewhere/f\r\nhttp://example.org/%41\r\nfile:///zero%00\r\nfile:///"
                               "50%\r\nfile:///%4\r\nfile:///last";
    ASSERT_EQ(grx_affecte_depots_fenetre(window_, GRX_DEPOT_FICHIERS), 1);
    ASSERT_TRUE(dragged("text/uri-list", list));
    ASSERT_TRUE(record());
    EXPECT_EQ(texts(), (std::vector<std::string>{"/a", "/b/c", "/d", "/e", "file://elsewhere/f",
                           "http://example.org/%41", "file:///zero%00", "/50%", "/%4", "/last"}));
}

TEST_F(DropTest, LongPathsAreWholeInTheDetails) {
    const std::string path = "/" + std::string(3000, 'p');
    ASSERT_EQ(grx_affecte_depots_fenetre(window_, GRX_DEPOT_FICHIERS), 1);
    ASSERT_TRUE(dragged("text/uri-list", "file://" + path + "\r\n"));
    const auto evt = record();
    ASSERT_TRUE(evt);
    EXPECT_EQ(std::string(evt->exec_fonction.chaine), path.substr(0, GRX_EVT_CHAINE_MAX - 1));
    EXPECT_EQ(texts(), std::vector<std::string>{path});
}

TEST_F(DropTest, TextsComeInUtf8) {
    ASSERT_EQ(grx_affecte_depots_fenetre(window_, GRX_DEPOT_TEXTE), 1);
    ASSERT_TRUE(dragged("UTF8_STRING", "n\xC3\xA9\ntwo"));
    const auto evt = record();
    ASSERT_TRUE(evt);
    EXPECT_EQ(evt->exec_fonction.valeur, GRX_DEPOT_TEXTE);
    EXPECT_EQ(texts(), std::vector<std::string>{"n\xC3\xA9\ntwo"});
    ASSERT_TRUE(dragged("STRING", "n\xE9"));
    ASSERT_TRUE(record());
    EXPECT_EQ(texts(), std::vector<std::string>{"n\xC3\xA9"});
}

struct Choice {
    INT open_for;
    std::vector<const char*> types;
    bool accepted;
    INT kind;
};
const Choice choices[]{
    {GRX_DEPOT_FICHIERS, {"text/plain", "UTF8_STRING"}, false, 0},
    {GRX_DEPOT_TEXTE, {"text/uri-list"}, false, 0},
    {GRX_DEPOT_FICHIERS | GRX_DEPOT_TEXTE, {"text/plain", "text/uri-list"}, true, GRX_DEPOT_FICHIERS},
    {GRX_DEPOT_FICHIERS | GRX_DEPOT_TEXTE, {"text/plain"}, true, GRX_DEPOT_TEXTE},
    {GRX_DEPOT_TEXTE, {"a", "b", "c", "d", "text/uri-list", "UTF8_STRING"}, true, GRX_DEPOT_TEXTE},
    {GRX_DEPOT_FICHIERS, {"a", "b", "c", "text/uri-list"}, true, GRX_DEPOT_FICHIERS},
    {GRX_DEPOT_FICHIERS, {}, false, 0},
};

TEST_F(DropTest, OnlyWhatTheWindowTakesIsAccepted) {
    for (const char* type : {"text/uri-list", "UTF8_STRING", "text/plain"}) contents_[type] = "file:///x";
    for (const Choice& row : choices) {
        ASSERT_EQ(grx_affecte_depots_fenetre(window_, row.open_for), 1);
        enter(row.types);
        move_to(window_, 3, 3);
        ASSERT_TRUE(status(row.accepted)) << row.open_for;
        drop();
        ASSERT_TRUE(finished(row.accepted)) << row.open_for;
        if (!row.accepted) continue;
        const auto evt = record();
        ASSERT_TRUE(evt);
        EXPECT_EQ(evt->exec_fonction.valeur, row.kind);
    }
}

TEST_F(DropTest, VersionsThatAreNotKnownGetNoAnswer) {
    ASSERT_EQ(grx_affecte_depots_fenetre(window_, GRX_DEPOT_FICHIERS), 1);
    drain();
    EXPECT_EQ(aware(other(), shell()), 5);
    ASSERT_EQ(grx_affecte_depots_fenetre(window_, GRX_DEPOT_AUCUN), 1);
    ASSERT_EQ(grx_affecte_depots_fenetre(window_, GRX_DEPOT_FICHIERS), 1);
    for (const long version : {0, 1, 2, 6, 255}) {
        enter({"text/uri-list"}, version);
        move_to(window_, 3, 3);
        drop();
        drain();
        XEvent event;
        EXPECT_FALSE(XCheckTypedEvent(other(), ClientMessage, &event)) << version;
    }
    for (const long version : {3, 4, 5}) {
        enter({"text/uri-list"}, version);
        move_to(window_, 3, 3);
        EXPECT_TRUE(status(true)) << version;
    }
}

TEST_F(DropTest, WindowsWithinWindowsAreApart) {
    const INT inner = make(nested_in(window_, GRX_FEN_GRAPHIQUE, 10, 20, 60, 40));
    ASSERT_GT(inner, 0);
    ASSERT_TRUE(wait_visible(widget_of(inner)));
    ASSERT_EQ(grx_affecte_depots_fenetre(inner, GRX_DEPOT_FICHIERS), 1);
    contents_["text/uri-list"] = "file:///x";
    enter({"text/uri-list"});
    move_to(window_, 190, 5);
    EXPECT_TRUE(status(false));
    move_to(inner, 7, 9);
    EXPECT_TRUE(status(true));
    drop();
    ASSERT_TRUE(finished(true));
    const auto evt = record();
    ASSERT_TRUE(evt);
    EXPECT_EQ(evt->exec_fonction.nofen, inner);
    ASSERT_EQ(grx_affecte_depots_fenetre(inner, GRX_DEPOT_AUCUN), 1);
    ASSERT_EQ(grx_affecte_depots_fenetre(window_, GRX_DEPOT_FICHIERS), 1);
    enter({"text/uri-list"});
    move_to(inner, 7, 9);
    EXPECT_TRUE(status(false)); // the inner one is closed, whatever lies behind
    move_to(window_, 190, 5);
    EXPECT_TRUE(status(true));
    move_to(window_, -40, 5); // outside
    EXPECT_TRUE(status(false));
    drop();
    EXPECT_TRUE(finished(false));
}

TEST_F(DropTest, LeavingForgetsTheDrag) {
    ASSERT_EQ(grx_affecte_depots_fenetre(window_, GRX_DEPOT_FICHIERS), 1);
    enter({"text/uri-list"});
    move_to(window_, 3, 3);
    ASSERT_TRUE(status(true));
    send("XdndLeave", {0, 0, 0, 0});
    drop();
    drain();
    XEvent event;
    EXPECT_FALSE(XCheckTypedEvent(other(), ClientMessage, &event));
    EXPECT_EQ(events.count(GRX_EVT_DEPOT), 0);
}

// -- sources that do not keep to it

TEST_F(DropTest, ASourceThatNeverSendsIsForgottenAndTold) {
    ASSERT_EQ(grx_affecte_depots_fenetre(window_, GRX_DEPOT_FICHIERS), 1);
    silent_ = true;
    enter({"text/uri-list"});
    move_to(window_, 3, 3);
    ASSERT_TRUE(status(true));
    drop();
    drain();
    XEvent event;
    EXPECT_FALSE(XCheckTypedEvent(other(), ClientMessage, &event)); // nobody waits for it
    EXPECT_TRUE(finished(false));
    silent_ = false;
    while (XCheckTypedEvent(other(), SelectionRequest, &event)) {
    }
    EXPECT_TRUE(dragged("text/uri-list", "file:///next"));
    ASSERT_TRUE(record());
    EXPECT_EQ(drops_, 1);
}

TEST_F(DropTest, ASourceThatDiesDoesNoHarm) {
    ASSERT_EQ(grx_affecte_depots_fenetre(window_, GRX_DEPOT_FICHIERS), 1);
    for (int moment = 0; moment < 4; ++moment) {
        source_ = XCreateSimpleWindow(other(), DefaultRootWindow(other()), 0, 0, 1, 1, 0, 0, 0);
        XSetSelectionOwner(other(), other_atom("XdndSelection"), source_, CurrentTime);
        put_list({other_atom("text/uri-list"), other_atom("b"), other_atom("c"), other_atom("d")});
        const Window dead = source_;
        send("XdndEnter", {5L << 24 | 1, 0, 0, 0});
        if (moment == 0) XDestroyWindow(other(), dead);
        if (moment > 0) drain();
        if (moment == 1) XDestroyWindow(other(), dead);
        move_to(window_, 3, 3);
        if (moment > 1) drain();
        if (moment == 2) XDestroyWindow(other(), dead);
        drop();
        if (moment == 3) XDestroyWindow(other(), dead);
        XSync(other(), False);
        drain();
        wait_for([] { return false; }, Milliseconds(1100)); // until it is given up
    }
    XEvent event;
    while (XCheckTypedEvent(other(), ClientMessage, &event)) {
    }
    while (XCheckTypedEvent(other(), SelectionRequest, &event)) {
    }
    source_ = XCreateSimpleWindow(other(), DefaultRootWindow(other()), 0, 0, 1, 1, 0, 0, 0);
    XSetSelectionOwner(other(), other_atom("XdndSelection"), source_, CurrentTime);
    EXPECT_TRUE(dragged("text/uri-list", "file:///still"));
}

TEST_F(DropTest, LiesDoNoHarm) {
    ASSERT_EQ(grx_affecte_depots_fenetre(window_, GRX_DEPOT_FICHIERS | GRX_DEPOT_TEXTE), 1);
    const std::vector<Atom> many(100'000, other_atom("text/uri-list"));
    put_list(many);
    send("XdndEnter", {5L << 24 | 1, 0, 0, 0}); // a huge list
    move_to(window_, 3, 3);
    EXPECT_TRUE(status(true));
    put_list({other_atom("text/uri-list")}, XA_INTEGER);
    send("XdndEnter", {5L << 24 | 1, 0, 0, 0}); // a list of another type
    move_to(window_, 3, 3);
    EXPECT_TRUE(status(false));
    for (const Window forged : {Window{0x7FFFFFF}, DefaultRootWindow(other()), shell(), XtWindow(widget_of(window_))}) {
        send("XdndEnter", {5L << 24 | 1, 0, 0, 0}, forged);
        send("XdndPosition", {0, -1, -1, -1}, forged);
        send("XdndDrop", {0, -1, 0, 0}, forged);
    }
    send("XdndPosition", {0, 0x7FFF7FFF, 0, 0});
    send("XdndDrop", {0, 0, 0, 0}, 0x1234567);
    send("XdndEnter", {-1, -1, -1, -1}, Window{0xFFFFFFFF});
    drain();
    XEvent event;
    while (XCheckTypedEvent(other(), ClientMessage, &event)) {
    }
    EXPECT_TRUE(dragged("text/uri-list", "file:///honest"));
}

TEST_F(DropTest, ContentsThatAreNoneAreRefused) {
    using namespace std::string_literals;
    ASSERT_EQ(grx_affecte_depots_fenetre(window_, GRX_DEPOT_FICHIERS | GRX_DEPOT_TEXTE), 1);
    struct Row {
        const char* type;
        std::string content;
        int format;
    };
    for (const Row& row : {Row{"text/uri-list", "", 8}, {"text/uri-list", "# only\r\n", 8},
             {"text/uri-list", "file:///a", 16}, {"UTF8_STRING", "a\0b"s, 8}}) {
        contents_ = {{row.type, row.content}};
        format_ = row.format;
        enter({row.type});
        move_to(window_, 3, 3);
        ASSERT_TRUE(status(true));
        drop();
        EXPECT_TRUE(finished(false)) << row.content;
    }
    EXPECT_EQ(drops_, 0);
}

TEST_F(DropTest, NoMoreThanTheMostAddressesCome) {
    std::string list;
    for (int i = 0; i < 10'000; ++i) list += "file:///f" + std::to_string(i) + "\r\n";
    ASSERT_EQ(grx_affecte_depots_fenetre(window_, GRX_DEPOT_FICHIERS), 1);
    ASSERT_TRUE(dragged("text/uri-list", list));
    ASSERT_TRUE(record());
    const auto all = texts();
    ASSERT_EQ(all.size(), 4096U);
    EXPECT_EQ(all.back(), "/f4095");
}

// -- ends

TEST_F(DropTest, TheEndOfAWindowClosesIt) {
    ASSERT_EQ(grx_affecte_depots_fenetre(window_, GRX_DEPOT_FICHIERS), 1);
    contents_["text/uri-list"] = "file:///x";
    enter({"text/uri-list"});
    move_to(window_, 3, 3);
    ASSERT_TRUE(status(true));
    silent_ = true;
    drop();
    drain();
    grx_detruit_fenetre(window_);
    drain();
    EXPECT_EQ(grx_recup_depots_fenetre(window_), GRX_DEPOT_AUCUN);
    silent_ = false;
    EXPECT_TRUE(finished(false));
    drain();
    EXPECT_EQ(drops_ + events.count(GRX_EVT_DEPOT), 0);
    const INT again = make(GRX_FEN_GRAPHIQUE);
    EXPECT_EQ(again, window_);
    EXPECT_EQ(grx_recup_depots_fenetre(again), GRX_DEPOT_AUCUN);
}

TEST_F(DropTest, ClosingTakesTheMarkAway) {
    ASSERT_EQ(grx_affecte_depots_fenetre(window_, GRX_DEPOT_FICHIERS), 1);
    ASSERT_EQ(grx_affecte_depots_fenetre(window_, GRX_DEPOT_FICHIERS), 1);
    ASSERT_EQ(grx_affecte_depots_fenetre(window_, GRX_DEPOT_AUCUN), 1);
    XSync(x11_disp, False);
    EXPECT_EQ(aware(other(), shell()), 0);
}

TEST_F(DropTest, AWindowThatIsShownLaterIsOpenThen) {
    const INT hidden = make(GRX_FEN_GRAPHIQUE, 0);
    ASSERT_GT(hidden, 0);
    ASSERT_EQ(grx_affecte_depots_fenetre(hidden, GRX_DEPOT_FICHIERS), 1);
    grx_affiche_fenetre(hidden);
    ASSERT_TRUE(wait_visible(widget_of(hidden)));
    drain();
    EXPECT_EQ(aware(other(), shell(hidden)), 5);
}

TEST_F(DropTest, ATitleTakenAwayLeavesItOpen) {
    ASSERT_EQ(grx_affecte_depots_fenetre(window_, GRX_DEPOT_FICHIERS), 1);
    grx_supprime_titre_fenetre(window_);
    drain();
    EXPECT_TRUE(dragged("text/uri-list", "file:///x"));
}

TEST_F(DropTest, AfterAResizeThePlaceIsStillThatOfPresses) {
    ASSERT_EQ(grx_affecte_depots_fenetre(window_, GRX_DEPOT_FICHIERS), 1);
    grx_change_taille_fenetre(window_, 300, 280);
    drain();
    ASSERT_TRUE(dragged("text/uri-list", "file:///x", 250, 200));
    ASSERT_TRUE(record());
    pointer().click_in(widget_of(window_), 250, 200);
    const auto press = events.wait(GRX_EVT_BOUTON_APPUI);
    ASSERT_TRUE(press);
    EXPECT_EQ(detail_.x, press->bouton_appui.x);
    EXPECT_EQ(detail_.y, press->bouton_appui.y);
}

TEST_F(DropTest, BadArgumentsGetCodes) {
    const INT buttons = make(GRX_FEN_BOUTONS);
    EXPECT_EQ(grx_affecte_depots_fenetre(buttons, 1), GRX_ECHEC_GENRE);
    for (const INT none : {-1, 0, 98, 99, 100, 1000, INT_MAX, INT_MIN}) {
        EXPECT_EQ(grx_affecte_depots_fenetre(none, 1), GRX_ECHEC_NUMERO) << none;
        EXPECT_EQ(grx_recup_depots_fenetre(none), 0) << none;
    }
    for (const INT bad : {-1, 4, 7, INT_MAX, INT_MIN})
        EXPECT_EQ(grx_affecte_depots_fenetre(window_, bad), GRX_ECHEC_PARAMETRE);
}

TEST_F(DropTest, ShortMemoryRefusesTheDrop) {
    ASSERT_EQ(grx_affecte_depots_fenetre(window_, GRX_DEPOT_FICHIERS), 1);
    contents_["text/uri-list"] = "file:///x";
    for (int n = 1; n <= 4; ++n) {
        enter({"text/uri-list"});
        move_to(window_, 3, 3);
        ASSERT_TRUE(status(true));
        heap().fail_at(n);
        drop();
        EXPECT_TRUE(finished(false)) << n;
        heap().fail_never();
    }
    EXPECT_TRUE(dragged("text/uri-list", "file:///x"));
}

TEST_F(DropTest, FiveHundredDropsDoNotGrow) {
    ASSERT_EQ(grx_affecte_depots_fenetre(window_, GRX_DEPOT_FICHIERS), 1);
    const auto round = [&] {
        ASSERT_TRUE(dragged("text/uri-list", "file:///x"));
        ASSERT_TRUE(record());
    };
    round();
    const auto blocks = heap().blocks();
    const auto before = server_resources(other(), x_window(window_));
    for (int i = 0; i < 500; ++i) round();
    EXPECT_EQ(heap().blocks(), blocks);
    EXPECT_EQ(server_resources(other(), x_window(window_)), before);
}

class DropWmTest : public ClipboardOn<WmTest> {};

TEST_F(DropWmTest, TheMarkIsWhereSourcesLookForIt) {
    const INT window = make(GRX_FEN_GRAPHIQUE);
    ASSERT_TRUE(wait_visible(widget_of(window)));
    ASSERT_EQ(grx_affecte_depots_fenetre(window, GRX_DEPOT_FICHIERS), 1);
    drain();
    // The window with the manager's WM_STATE is where a source looks.
    EXPECT_NE(take_property(other(), XtWindow(shell_of(window)), other_atom("WM_STATE")).type, "");
    EXPECT_EQ(aware(other(), XtWindow(shell_of(window))), 5);
}

} // namespace
