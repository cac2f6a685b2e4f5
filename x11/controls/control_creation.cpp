// Makes controls for the application, with their widget, number, record and callbacks.
#include "controls/control_creation.h"

#include <X11/Intrinsic.h>
#include <Xm/DrawnB.h>
#include <Xm/Scale.h>
#include <Xm/Xm.h>

#include <algorithm>

#include "pure/double_click.h"
#include "pure/size.h"
#include "display/pixmaps.h"
#include "toolkit/args.h"
#include "toolkit/control_parts.h"
#include "toolkit/field_text.h"
#include "toolkit/look.h"
#include "toolkit/widgets.h"
#include "registry/control_table.h"
#include "controls/contents.h"
#include "controls/control_creation_state.h"
#include "controls/control_kinds.h"
#include "controls/looks.h"
#include "controls/forget_controls.h"
#include "xt_bou_f.h"
#include "xt_gfx_f.h"
#include "xt_ini_f.h"
#include "xt_mot_t.h"

namespace grx {

INT Premier_bouton = 1;

} // namespace grx

namespace {

constexpr INT kNotMade = -2;
constexpr INT kBaseFull = -3;

INT Couleur_init_fond_bouton = 0;
INT Couleur_init_trace_bouton = 0;

// Learns the toolkit's colours for controls from one that is destroyed at once. This is done for the first control
// only.
void learn_default_colours(Widget parent) {
    Widget probe = XmCreateDrawnButton(parent, const_cast<char*>("Premier_bouton"), nullptr, 0);
    if (probe == nullptr) return;
    const INT application = grx_recup_couleur_application();
    if (application != 0) grx_affecte_couleur_application(application);
    const auto pixel = grx::application_pixel();
    Couleur_init_fond_bouton = static_cast<INT>(pixel ? *pixel : grx::resource<Pixel>(probe, XmNbackground));
    Couleur_init_trace_bouton = static_cast<INT>(grx::resource<Pixel>(probe, XmNforeground));
    grx_init_palette_icone(Couleur_init_fond_bouton);
    XtDestroyWidget(probe);
    grx::Premier_bouton = 0;
}

void note_death(Widget w, XtPointer client, XtPointer) {
    const INT nobou = grx::number_in(client);
    if (grx::control_widget_died(nobou, w)) grx_libere_indice_objet_bout(nobou);
}

INT register_control(const grx::Control& c, Widget w) {
    const INT nobou = grx::register_control_widget(w, c.bou.type, c.bou.no_fo, c.nofen);
    if (nobou < 0) return GRX_AUCUN;
    grx::control_record(nobou)->valeur = c.bou.tabi[GRX_BOU_TABI_VALEUR];
    grx::note_encoding(nobou, grx::FieldText(c.bou.titre).c_str());
    return nobou;
}

void add_press_callback(Widget w, grx::Press press, STRUCTURE_BOUTON* record) {
    if (press == grx::Press::Activate) XtAddCallback(w, XmNactivateCallback, grx_bouton_est_enfonce, record);
    if (press == grx::Press::ValueChanged) XtAddCallback(w, XmNvalueChangedCallback, grx_bouton_est_enfonce, record);
}

void add_other_callbacks(Widget w, INT type, STRUCTURE_BOUTON* record) {
    switch (type) {
    case GRX_BOU_LISTE:
        XtAddCallback(w, XmNdefaultActionCallback, grx_element_liste_clique, record);
        XtAddCallback(w, XmNbrowseSelectionCallback, grx_element_liste_clique, record);
        break;
    case GRX_BOU_ECHELLE: XtAddCallback(w, XmNdragCallback, grx_echelle_bouge, record); break;
    case GRX_BOU_TEXTE: XtAddCallback(w, XmNlosingFocusCallback, grx_focus_quitte_bouton, record); break;
    default: break;
    }
}

void install_callbacks(
    Widget w, const grx::Control& c, const grx::ControlClass& control_class, STRUCTURE_BOUTON* record) {
    add_other_callbacks(w, c.bou.type, record);
    if (c.bou.type == GRX_BOU_COULEUR) grx_change_couleur_bouton(record->nobou, std::max<INT>(c.bou.coul_fond, 0));
    add_press_callback(w, control_class.press, record);
    XtAddEventHandler(w, control_class.events, False, grx_gere_evenements_bouton, record);
    if (c.bou.type != GRX_BOU_ECHELLE) return;
    for (Widget part : grx::children_of(w)) { // its slider has the focus
        if (XtIsWidget(part)) XtAddEventHandler(part, KeyPressMask, False, grx_gere_evenements_bouton, record);
    }
}

void show_icon(Widget w, const grx::Control& c, STRUCTURE_BOUTON* record) {
    grx::FieldText icon(c.bou.icone);
    if (icon.c_str()[0] != '\0' && grx_installe_bitmap(icon.data(), record->nobou) != 0)
        grx::show_pixmap(w, record->image);
}

void give_off_screen_copy(Widget w, const grx::Control& c, INT nobou) {
    constexpr INT black = 1; // one of the reserved colours
    const grx::Size size = grx::drawing_area_size(w, c.bou);
    const Window window = grx::window_of(w);
    grx::set_backing_store(window, WhenMapped);
    grx_desinstalle_bitmap(nobou); // the copy replaces an icon
    grx::control_record(nobou)->image = None;
    grx_cree_bitmap_backingstore_bouton(nobou, size.width, size.height, black, black);
}

void put_on_screen(Widget w, const grx::Control& c, STRUCTURE_BOUTON* record) {
    if (XmIsScale(w)) grx::give_wanted_size(w);
    if (!c.has(GRX_BOU_ATT_VISIBLE)) XtSetMappedWhenManaged(grx::with_scroll_bars(w), False);
    XtManageChild(w);
    show_icon(w, c, record);
    if (!c.has(GRX_BOU_ATT_SENSIBLE)) XtSetSensitive(w, False);
    if (c.bou.type == GRX_BOU_ZONE_DESSIN) give_off_screen_copy(w, c, record->nobou);
}

} // namespace

namespace grx {

INT register_control_widget(Widget w, INT type, INT no_fo, INT nofen) {
    const INT nobou = grx_recup_indice_objet_bout_libre();
    if (nobou < 0) return GRX_AUCUN;
    grx_affecte_objet_bout(nobou, w);
    grx_affecte_structure_bouton(nobou, no_fo, 0, nofen);
    STRUCTURE_BOUTON& record = *control_record(nobou);
    record.type = type;
    record.image = None;
    forget_look(nobou);
    XtAddCallback(w, XmNdestroyCallback, note_death, as_client_data(nobou));
    return nobou;
}

void forget_default_colours() {
    Premier_bouton = 1;
    Couleur_init_fond_bouton = Couleur_init_trace_bouton = 0;
}

} // namespace grx

extern "C" {

void grx_init_bouton(GRX_BOUTON* bouton) {
    if (bouton == nullptr) return;
    *bouton = GRX_BOUTON{};
    bouton->nobou = bouton->x = bouton->y = bouton->largeur = bouton->hauteur = GRX_AUCUN;
    bouton->coul_fond = bouton->coul_trace = bouton->fen_mere = bouton->no_fo = GRX_AUCUN;
    bouton->type = GRX_BOU_DESSINE;
    bouton->attrib = GRX_BOU_ATT_DEFAUT;
}

INT grx_cree_bouton(GRX_BOUTON* bouton) {
    if (bouton == nullptr) return grx::kNoParent;
    const grx::Control control = grx::control_for(*bouton);
    if (control.parent == nullptr || !XtIsComposite(control.parent)) return grx::kNoParent;
    const grx::ControlClass* const control_class = grx::class_of_control(bouton->type);
    if (control_class == nullptr) return kNotMade;
    if (grx::Premier_bouton != 0) learn_default_colours(control.parent);
    Widget w = grx::make_control_widget(control, *control_class);
    if (w == nullptr) return kNotMade;
    const INT nobou = register_control(control, w);
    if (nobou < 0) return kBaseFull;
    bouton->nobou = nobou;
    STRUCTURE_BOUTON* const record = grx::control_record(nobou);
    install_callbacks(w, control, *control_class, record);
    put_on_screen(w, control, record);
    return 0;
}

INT grx_recup_couleur_init_fond_bouton(void) {
    return Couleur_init_fond_bouton;
}

INT grx_recup_couleur_init_trace_bouton(void) {
    return Couleur_init_trace_bouton;
}
}
