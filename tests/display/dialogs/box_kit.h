// Messages and prompts on show, and a user who answers them.
#pragma once

#include "tests/display/dialogs/dialog_kit.h"

#include "grx_plus.h"

#include <functional>
#include <string>
#include <vector>

namespace grxtest {

inline GRX_BOITE_MESSAGE message(INT kind, const char* text, INT buttons = 0) {
    GRX_BOITE_MESSAGE box{};
    EXPECT_EQ(grx_init_boite_message(&box), 1);
    box.genre = kind;
    box.texte = text;
    box.nb_boutons = buttons;
    return box;
}

inline GRX_BOITE_SAISIE prompt(INT kind, const char* label = "Combien ?") {
    GRX_BOITE_SAISIE box{};
    EXPECT_EQ(grx_init_boite_saisie(&box), 1);
    box.genre = kind;
    box.etiquette = label;
    return box;
}

template <class Base>
class Boxes : public Dialogs<Base> {
  protected:
    // The box made last that is on show, wherever it hangs.
    Widget box() const {
        const auto all = all_boxes();
        return all.empty() ? nullptr : all.back();
    }
    std::vector<Widget> all_boxes() const {
        std::vector<Widget> found;
        std::vector<Widget> all;
        for (INT window = 1; window < GRX_NB_FENETRES; ++window)
            if (Widget shell = shell_of(window); shell && XtParent(shell) == nullptr) gather_tree(shell, all);
        for (Widget w : all)
            if (std::string(XtName(w)) == "boite" && !w->core.being_destroyed && is_viewable(w)) found.push_back(w);
        return found;
    }
    // The one whose parent is a window that is not in the main window's tree.
    static Widget box_over(INT window) {
        std::vector<Widget> all;
        gather_tree(shell_of(window), all);
        const auto found = std::ranges::find_if(all, [](Widget w) { return std::string(XtName(w)) == "boite"; });
        return found == all.end() ? nullptr : *found;
    }
    std::vector<Widget> box_buttons() const {
        std::vector<Widget> found;
        if (box() == nullptr) return found;
        for (Widget w : children_of(box()))
            if (XmIsPushButton(w) && XtIsManaged(w)) found.push_back(w);
        return found;
    }
    std::vector<std::string> labels() const {
        std::vector<std::string> found;
        for (Widget w : box_buttons()) found.push_back(text_resource(w, XmNlabelString));
        return found;
    }
    Widget part_called(const char* name) const {
        std::vector<Widget> all;
        if (box() != nullptr) gather_tree(box(), all);
        const auto found = std::ranges::find_if(all, [&](Widget w) { return std::string(XtName(w)) == name; });
        return found == all.end() ? nullptr : *found;
    }
    Widget field() const { return part_called("champ"); }
    std::string hint() const { return text_resource(part_called("bornes"), XmNlabelString); }

    Script& when_shown(const std::string& what, Script::Action action) {
        return this->script_.when(
            what, [this] { return box() != nullptr; }, std::move(action));
    }
    Script& when_gone(const std::string& what, Script::Action action) {
        return this->script_.when(
            what, [this] { return box() == nullptr; }, std::move(action));
    }
    // The pointer is in the box: without a window manager that is where keys go.
    void key(KeySym symbol, unsigned modifiers = 0) {
        this->pointer().move_in(box(), 4, 4);
        this->keyboard().key(symbol, modifiers);
    }
    void choose(std::size_t button) { this->click(box_buttons().at(button - 1)); }
    void close_box() { ask_to_close(this->test_display(), XtWindow(XtParent(box()))); }

    INT ask(const GRX_BOITE_MESSAGE& asked) {
        return this->script_.run([&] { return grx_attend_boite_message(&asked); });
    }

    static void close_boxes() {
        for (INT number = 1; number < 2000; ++number) grx_detruit_boite(number);
        for (Widget w : whole_tree())
            if (std::string(XtName(w)) == "boite" && !w->core.being_destroyed) XtDestroyWidget(XtParent(w));
    }

    Script script_{close_boxes};
};

} // namespace grxtest
