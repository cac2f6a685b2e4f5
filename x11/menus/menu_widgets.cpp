// The widgets of the menu bar: noted as they are built, looked through when a key comes.
#include "menus/menu_widgets.h"

#include <algorithm>
#include <array>
#include <utility>

#include "system/block.h"
#include "system/never_destroyed.h"
#include "display/lost_connection.h"
#include "toolkit/widgets.h"

namespace grx {

namespace {

constexpr std::size_t kFirstEntries = 100;
constexpr int kMostMenus = 100;

Widget Glob_menu_bar = nullptr;
NeverDestroyed<Block<Widget>> lasting_entries;
Block<Widget>& Tab_objet = lasting_entries.value;
std::size_t Nb_objet = 0;
std::array<Widget, kMostMenus> Tab_cascade{};
int Nb_cascade = 0;
std::array<Widget, kMostMenus> Tab_pull{};
int Nb_pull = 0;

// Destroys the youngest first, because the shell of a submenu goes with the menu that holds it.
template <std::size_t N>
void destroy_all(std::array<Widget, N>& widgets, int count) {
    for (int i = count - 1; i >= 0; --i) XtDestroyWidget(widgets[static_cast<std::size_t>(i)]);
}

// The entries stay in memory: what happens while the connection is lost may still hold them.
void hide_bar() {
    Glob_menu_bar = nullptr;
    Nb_objet = 0;
    Nb_cascade = Nb_pull = 0;
}

} // namespace

Widget menu_bar() {
    return Glob_menu_bar;
}

void set_menu_bar(Widget bar) {
    Glob_menu_bar = bar;
    at_lost_connection(hide_bar);
}

Widget top_manager() {
    return Glob_menu_bar != nullptr ? XtParent(Glob_menu_bar) : nullptr;
}

// -- entries

std::span<Widget> menu_entries() {
    return Tab_objet.span().first(Nb_objet);
}

void start_entries() {
    Tab_objet = Block<Widget>(kFirstEntries);
    Nb_objet = 0;
}

bool room_for_entry() {
    if (Nb_objet < Tab_objet.size()) return true;
    return Tab_objet.resize(Tab_objet.size() == 0 ? kFirstEntries : 2 * Tab_objet.size());
}

void note_entry(Widget entry) {
    Tab_objet[Nb_objet++] = entry;
}

void forget_entry(Widget entry) {
    for (std::size_t i = 0; i < Nb_objet; ++i) {
        if (Tab_objet[i] == entry) Tab_objet[i] = nullptr;
    }
}

// Unmanages all of them first: a menu would lay out the others for each managed one that is destroyed.
void destroy_entries() {
    Block<Widget> entries = std::move(Tab_objet);
    Widget* const end = std::remove(entries.begin(), entries.begin() + std::exchange(Nb_objet, 0), nullptr);
    const std::span<Widget> left{entries.begin(), end};
    by_parent(left, XtUnmanageChildren);
    for (Widget entry : left) XtDestroyWidget(entry);
}

// -- menus

std::span<Widget> menu_cascades() {
    return std::span(Tab_cascade).first(static_cast<std::size_t>(Nb_cascade));
}

bool note_cascade(Widget cascade) {
    if (Nb_cascade >= kMostMenus) return false;
    Tab_cascade[static_cast<std::size_t>(Nb_cascade++)] = cascade;
    return true;
}

bool room_for_pulldown() {
    return Nb_pull < kMostMenus;
}

void note_pulldown(Widget pulldown) {
    Tab_pull[static_cast<std::size_t>(Nb_pull++)] = pulldown;
}

void destroy_menus() {
    destroy_all(Tab_cascade, Nb_cascade);
    destroy_all(Tab_pull, Nb_pull);
}

void forget_menus() {
    Nb_cascade = Nb_pull = 0;
}

void forget_menu_widgets() {
    Tab_objet.reset();
    Nb_objet = 0;
    forget_menus();
    Tab_cascade = Tab_pull = {};
}

} // namespace grx
