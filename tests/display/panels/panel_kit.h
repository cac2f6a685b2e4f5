// Panels as the tests of their items, their lists and the selection panel need them.
#pragma once

#include "tests/support/control_kit.h"

#include <array>
#include <deque>
#include <string>
#include <utility>
#include <vector>

namespace grxtest {

inline constexpr INT panel_count = 12;
inline constexpr INT items_of_a_panel = 45;
inline constexpr INT panel_without_items = 3;

// The application's panels: all of them with items, but one.
class Panels {
  public:
    Panels() : panels_(panel_count), items_(panel_count) {
        for (std::size_t i = 0; i < panels_.size(); ++i) {
            items_[i].resize(i == panel_without_items ? 0 : items_of_a_panel);
            panels_[i].nofen = -1;
            panels_[i].nb_items = static_cast<uchar>(items_[i].size());
            panels_[i].tab_items = items_[i].data();
        }
    }
    PANEL* table() { return panels_.data(); }
    PANEL& operator[](INT i) { return panels_[static_cast<std::size_t>(i)]; }

  private:
    std::vector<PANEL> panels_;
    std::vector<std::vector<ITEM_PANEL>> items_;
};

// A button of an item: its number and whether it is a choice or value.
using Recorded = std::pair<INT, int>;

inline const BOUTONS_PANEL& item_record(INT panel, INT item) {
    return Liste_btn[panel][item];
}

inline std::vector<Recorded> recorded(INT panel, INT item) {
    const BOUTONS_PANEL& record = item_record(panel, item);
    std::vector<Recorded> result;
    for (int i = 0; i < record.nb_bout; ++i) result.emplace_back(record.tab_bout[i], record.valide[i]);
    return result;
}

inline std::vector<int> flags(INT panel, INT item) {
    std::vector<int> result;
    for (const Recorded& button : recorded(panel, item)) result.push_back(button.second);
    return result;
}

inline INT button_of(INT panel, INT item, std::size_t place) {
    const auto all = recorded(panel, item);
    return place < all.size() ? all[place].first : -1;
}

// How many numbers of the button base are taken.
inline int taken_numbers() {
    int count = 0;
    for (INT n = 0; n < 1000; ++n) count += grx_recup_objet_bout(n) != nullptr;
    return count;
}

inline bool has_name(Widget widget, std::string_view name) {
    return widget != nullptr && name == XtName(widget);
}

// The nearest widget above that has this name; null when there is none.
inline Widget above_named(Widget widget, std::string_view name) {
    while (widget && !has_name(widget, name)) widget = XtParent(widget);
    return widget;
}

struct Rect {
    int x, y, width, height;
    bool operator==(const Rect&) const = default;
};
inline void PrintTo(const Rect& r, std::ostream* out) {
    *out << r.width << " x " << r.height << " at " << r.x << "," << r.y;
}
inline Rect rect_of(Widget widget) {
    return {resource<Position>(widget, XmNx), resource<Position>(widget, XmNy), resource<Dimension>(widget, XmNwidth),
        resource<Dimension>(widget, XmNheight)};
}
inline Rect rect_of(INT nobou) {
    return rect_of(control(nobou));
}

// The host's tables of one panel list; they are taken away again with the object.
class HostList {
  public:
    HostList(INT key, const std::vector<std::string>& entries, std::vector<INT> selected = {})
        : key_(key), texts_(std::max<std::size_t>(entries.size(), 1)), selected_(std::move(selected)) {
        for (std::size_t i = 0; i < entries.size(); ++i) std::strncpy(texts_[i].data(), entries[i].c_str(), 79);
        lsstate[key] = reinterpret_cast<CH80*>(texts_.data());
        lnstate[key] = static_cast<INT>(entries.size());
        listate[key] = static_cast<INT>(selected_.size());
        lcstate[key] = selected_.empty() ? nullptr : selected_.data();
    }
    ~HostList() {
        lsstate[key_] = nullptr;
        lcstate[key_] = nullptr;
        lnstate[key_] = listate[key_] = 0;
    }
    HostList(const HostList&) = delete;
    HostList& operator=(const HostList&) = delete;

  private:
    INT key_;
    std::vector<std::array<char, 80>> texts_;
    std::vector<INT> selected_;
};

inline std::vector<std::string> numbered_entries(int count, const std::string& stem = "entry ") {
    std::vector<std::string> result;
    for (int i = 0; i < count; ++i) result.push_back(stem + std::to_string(i));
    return result;
}

// Positions from 0 that a list widget shows as selected.
inline std::vector<int> selected_in(Widget list) {
    int* positions = nullptr;
    int count = 0;
    std::vector<int> result;
    if (XmListGetSelectedPos(list, &positions, &count)) {
        for (int i = 0; i < count; ++i) result.push_back(positions[i] - 1);
        XtFree(reinterpret_cast<char*>(positions));
    }
    return result;
}

inline std::vector<std::string> entries_in(Widget list) {
    XmStringTable items = nullptr;
    int count = 0;
    XtVaGetValues(list, XmNitems, &items, XmNitemCount, &count, nullptr);
    std::vector<std::string> result;
    for (int i = 0; i < count; ++i) {
        char* text = nullptr;
        if (XmStringGetLtoR(items[i], writable("tag1"), &text)) {
            result.emplace_back(text);
            XtFree(text);
        } else {
            result.emplace_back("(other)");
        }
    }
    return result;
}

// Slot of a list in the library's table, -1 when it has none.
inline INT slot_of(INT panel, INT key) {
    return test_liste_deja_affichee(panel, key + GRX_BASE_CLEF_LISTE);
}

inline std::vector<INT> chosen_in_slot(INT slot) {
    const LISTE_PANEL& record = Tab_liste[slot];
    return record.nb_choix > 0 ? std::vector<INT>(record.tab_choix, record.tab_choix + record.nb_choix)
                               : std::vector<INT>();
}

// Panels allocated, a plain window shown.
class PanelsTest : public ControlsTest {
  protected:
    void SetUp() override {
        ControlsTest::SetUp();
        if (HasFatalFailure()) return;
        ASSERT_EQ(grx_alloue_base_items_panels(panel_count, panels.table()), 0);
        window = shown(GRX_FEN_ALPHA, 700, 500);
        W = grx_recup_lar_carac_alpha();
        H = grx_recup_hau_carac_alpha();
        take_pointer_away();
        settle();
    }

    // A record of an item of panel 1 at 200,60, key 30.
    GRX_MSG item_of(INT type, const char* title = "Title", INT item = 0, INT panel = 1) {
        GRX_MSG message{};
        grx_init_message(&message);
        message.type = type;
        message.clef = 30;
        message.x = 200;
        message.y = 60;
        message.ival = 0;
        message.fen_mere = window;
        message.nobou = panel;
        message.prebou = item;
        std::strncpy(message.titre, title, sizeof message.titre - 1);
        return message;
    }

    GRX_MSG created(GRX_MSG message) {
        EXPECT_EQ(grx_cree_item(&message), 0);
        settle();
        return message;
    }

    static GRX_EVENEMENT old_record() {
        GRX_EVENEMENT record = patterned_event();
        grx_init_evenement(&record);
        return record;
    }

    void forget() {
        settle();
        evt_global = patterned_event();
    }

    Panels panels;
    INT window = -1;
    INT W = 0, H = 0;
};

// The first `bytes` of two records are the same; says which number differs.
inline testing::AssertionResult same_record(
    const GRX_EVENEMENT& expected, const GRX_EVENEMENT& actual, std::size_t bytes = sizeof(GRX_EVENEMENT)) {
    for (std::size_t at = 0; at + sizeof(INT) <= bytes; at += sizeof(INT)) {
        INT wanted = 0, got = 0;
        std::memcpy(&wanted, reinterpret_cast<const char*>(&expected) + at, sizeof wanted);
        std::memcpy(&got, reinterpret_cast<const char*>(&actual) + at, sizeof got);
        if (wanted != got)
            return testing::AssertionFailure()
                   << "number " << at / sizeof(INT) << " of the record is " << got << ", expected " << wanted;
    }
    return testing::AssertionSuccess();
}

} // namespace grxtest
