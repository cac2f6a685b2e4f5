// The button base, and the creation of controls.
#include "xt_prive.h"

#include <X11/StringDefs.h>
#include <Xm/ArrowB.h>
#include <Xm/DrawingA.h>
#include <Xm/DrawnB.h>
#include <Xm/Label.h>
#include <Xm/List.h>
#include <Xm/PushB.h>
#include <Xm/Scale.h>
#include <Xm/Separator.h>
#include <Xm/Text.h>
#include <Xm/TextF.h>
#include <Xm/ToggleB.h>
#include <Xm/Xm.h>

#include <algorithm>
#include <array>

#include "toolkit/args.h"
#include "toolkit/control_parts.h"
#include "display/pixmaps.h"
#include "toolkit/field_text.h"
#include "toolkit/locale_text.h"
#include "events/record.h"
#include "toolkit/look.h"
#include "system/table.h"
#include "toolkit/compound_string.h"
#include "pure/axis.h"
#include "xt_bou_f.h"
#include "xt_err_f.h"
#include "xt_fen_f.h"
#include "xt_gfx_f.h"
#include "xt_ini_f.h"
#include "xt_loc_f.h"

// ---------------------------------------------------------------------------------------------- the button base

namespace {

INT MAXOBJETBOUTON = 0;
Widget* Tableau_objet_bouton = nullptr;
STRUCTURE_BOUTON* structure_bouton = nullptr;
INT No_bou_actif = GRX_AUCUN;

constexpr INT kFreeWindow = 1; // KEEP: a free entry names window 1

// The widget of a number died with its window: the number stays taken until somebody frees it.
std::array<bool, GRX_NB_BOUTONS> widget_dead{};

// Numbers that only the library knows go with their widgets.
std::array<bool, GRX_NB_BOUTONS> goes_with_widget{};

bool in_base(INT nobou) {
    return nobou >= 0 && nobou < MAXOBJETBOUTON && Tableau_objet_bouton != nullptr && structure_bouton != nullptr;
}

std::size_t place(INT nobou) {
    return static_cast<std::size_t>(nobou);
}

void make_free(STRUCTURE_BOUTON& record) {
    record.nobou = GRX_AUCUN; // image and type keep what they held
    record.nofen = kFreeWindow;
    record.no_fo = GRX_AUCUN;
    record.valeur = 0;
}

template <class T>
bool allocate(T*& table) {
    return grx::allocate_table<T, GRX_NB_BOUTONS>(table);
}

template <class T>
void release(T*& table) {
    grx::free_table<T, GRX_NB_BOUTONS>(table);
}

} // namespace

namespace grx {

INT Premier_bouton = 1;

void free_with_widget(INT nobou) {
    if (in_base(nobou)) goes_with_widget[place(nobou)] = true;
}

STRUCTURE_BOUTON* button_record_at(XtPointer data) {
    const auto* const record = static_cast<STRUCTURE_BOUTON*>(data);
    for (INT nobou = 0; in_base(nobou); ++nobou) {
        if (record == &structure_bouton[nobou]) return &structure_bouton[nobou];
    }
    return nullptr;
}

} // namespace grx

extern "C" {

INT grx_alloue_base_boutons(void) {
    if (structure_bouton != nullptr) grx_desalloue_base_boutons();
    release(Tableau_objet_bouton);
    MAXOBJETBOUTON = GRX_NB_BOUTONS;
    if (!allocate(Tableau_objet_bouton) || !allocate(structure_bouton)) return GRX_ERR_BASE_BOUTONS;
    std::for_each_n(structure_bouton, GRX_NB_BOUTONS, make_free);
    widget_dead.fill(false);
    grx_alloue_tab_image_boutons(MAXOBJETBOUTON);
    return 0;
}

INT grx_desalloue_base_boutons(void) {
    release(Tableau_objet_bouton);
    release(structure_bouton);
    grx_desalloue_tab_image_boutons(MAXOBJETBOUTON);
    return 0;
}

INT grx_recup_indice_objet_bout_libre(void) {
    for (INT nobou = 0; in_base(nobou); ++nobou) {
        if (Tableau_objet_bouton[nobou] == nullptr) return nobou;
    }
    char message[] = "Depassement de taille de la base des boutons\n";
    grx_affiche_chaine(message);
    return GRX_AUCUN;
}

INT grx_affecte_objet_bout(INT iden, Widget w) {
    if (!in_base(iden)) return 0;
    Tableau_objet_bouton[iden] = w;
    widget_dead[place(iden)] = goes_with_widget[place(iden)] = false;
    return 1;
}

Widget grx_recup_objet_bout(INT iden) {
    if (!in_base(iden) || widget_dead[place(iden)]) return nullptr;
    Widget w = Tableau_objet_bouton[iden];
    return grx_is_objet_valide(w) != 0 ? w : nullptr;
}

INT grx_recup_indice_bout(Widget w) {
    for (INT nobou = 0; w != nullptr && in_base(nobou); ++nobou) {
        if (Tableau_objet_bouton[nobou] == w && !widget_dead[place(nobou)]) return nobou;
    }
    return GRX_AUCUN;
}

INT grx_libere_indice_objet_bout(INT indice) {
    if (!in_base(indice)) return 0;
    grx_desinstalle_bitmap(structure_bouton[indice].nobou);
    grx::forget_drawing_target(&structure_bouton[indice].image);
    Tableau_objet_bouton[indice] = nullptr;
    widget_dead[place(indice)] = false;
    make_free(structure_bouton[indice]);
    return 1;
}

void grx_affecte_structure_bouton(INT indice, INT no_fo, INT valeur, INT fen_mere) {
    if (!in_base(indice)) return;
    STRUCTURE_BOUTON& record = structure_bouton[indice];
    record.nobou = indice;
    record.nofen = fen_mere;
    record.no_fo = no_fo;
    record.valeur = valeur;
}

void grx_recup_structure_bouton(INT indice, STRUCTURE_BOUTON** ptr) {
    if (ptr != nullptr && in_base(indice)) *ptr = &structure_bouton[indice];
}

void grx_affecte_nobou_actif(INT nobou) {
    No_bou_actif = nobou;
}

INT grx_recup_nobou_actif(void) {
    return No_bou_actif;
}
}

// ------------------------------------------------------------------------------------------ creation of controls

namespace {

constexpr INT kNoParent = -1;
constexpr INT kNotMade = -2;
constexpr INT kBaseFull = -3;
constexpr int kMargin = 2;

INT Couleur_init_fond_bouton = 0;
INT Couleur_init_trace_bouton = 0;

struct Control {
    const GRX_BOUTON& bou;
    Widget parent;
    INT nofen; // window recorded with the control, -1 for a parent given as a widget
};

bool in_window(const GRX_BOUTON& bou) {
    return bou.ref_fen_mere == nullptr;
}

Control control_for(const GRX_BOUTON& bou) {
    if (!in_window(bou)) return {bou, bou.ref_fen_mere, GRX_AUCUN};
    return {bou, grx_recup_objet_fen(bou.fen_mere), bou.fen_mere};
}

// The toolkit's colours for a control, learned once from a throw-away one.
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

void set_position(grx::Args& args, const GRX_BOUTON& bou) {
    if (bou.x != GRX_AUCUN) args.set(XmNx, grx::as_position(bou.x));
    if (bou.y != GRX_AUCUN) args.set(XmNy, grx::as_position(bou.y));
}

void set_label(grx::Args& args, XmString label) {
    args.set(XmNlabelString, label).set(XmNfillOnArm, 1).set(XmNfontList, fontlist).set(XmNrecomputeSize, False);
}

void set_colours(grx::Args& args, const GRX_BOUTON& bou) {
    grx::set_foreground(args, bou.coul_trace);
    if (bou.coul_fond == GRX_AUCUN || bou.type == GRX_BOU_COULEUR) {
        if (const auto pixel = grx::application_pixel()) args.set(XmNbackground, *pixel);
        return;
    }
    const auto pixel = static_cast<Pixel>(grx_recup_couleur(bou.coul_fond));
    args.set(XmNarmColor, pixel).set(XmNbackground, pixel);
}

void set_size(grx::Args& args, const GRX_BOUTON& bou) {
    if (bou.type == GRX_BOU_ECHELLE && (bou.attrib & GRX_BOU_ATT_ECHELLE_VALEUR) != 0) return; // its scale has them
    if (bou.hauteur != GRX_AUCUN) args.set(XmNheight, grx::as_size(bou.hauteur));
    if (bou.largeur != GRX_AUCUN) args.set(XmNwidth, grx::as_size(bou.largeur));
}

void set_attachments(grx::Args& args, const GRX_BOUTON& bou) {
    struct Side {
        INT bit;
        const char* attachment;
        const char* offset;
        std::size_t tabi;
    };
    static const std::array<Side, 4> sides{{
        {GRX_ATTACHE_BAS, XmNbottomAttachment, XmNbottomOffset, GRX_BOU_TABI_BAS},
        {GRX_ATTACHE_HAUT, XmNtopAttachment, XmNtopOffset, GRX_BOU_TABI_HAUT},
        {GRX_ATTACHE_DROITE, XmNrightAttachment, XmNrightOffset, GRX_BOU_TABI_DROITE},
        {GRX_ATTACHE_GAUCHE, XmNleftAttachment, XmNleftOffset, GRX_BOU_TABI_GAUCHE},
    }};
    for (const auto& side : sides) {
        if ((bou.attache & side.bit) == 0) continue;
        args.set(side.attachment, XmATTACH_FORM).set(side.offset, bou.tabi[side.tabi]);
    }
}

void set_margins(grx::Args& args, int margin) {
    args.set(XmNmarginWidth, margin).set(XmNmarginHeight, margin).set(XmNhighlightThickness, 0);
}

// -- one maker per type of control

bool has(const Control& c, INT bit) {
    return (c.bou.attrib & bit) != 0;
}

void set_push_shadow(grx::Args& args) {
    args.set(XmNpushButtonEnabled, True).set(XmNshadowType, XmSHADOW_OUT);
}

Widget make_drawn(const Control& c, grx::Args& args, char* name) {
    set_margins(args, kMargin);
    if (!has(c, GRX_BOU_ATT_PLAT)) set_push_shadow(args);
    return XmCreateDrawnButton(c.parent, name, args.list(), args.count());
}

Widget make_colour(const Control& c, grx::Args& args, char* name) {
    set_margins(args, kMargin);
    set_push_shadow(args);
    return XmCreateDrawnButton(c.parent, name, args.list(), args.count());
}

Widget make_toggle(const Control& c, grx::Args& args, char* name) {
    set_margins(args, kMargin);
    args.set(XmNselectColor, static_cast<Pixel>(grx_noir_systeme())).set(XmNindicatorOn, 1);
    return XmCreateToggleButton(c.parent, name, args.list(), args.count());
}

Widget make_push(const Control& c, grx::Args& args, char* name) {
    set_margins(args, kMargin);
    set_push_shadow(args);
    if (!has(c, GRX_BOU_ATT_VRAI_POUSSOIR)) return XmCreateDrawnButton(c.parent, name, args.list(), args.count());
    args.set(XmNfillOnArm, 0);
    return XmCreatePushButton(c.parent, name, args.list(), args.count());
}

Widget make_plain_push(const Control& c, grx::Args& args, char* name) {
    set_margins(args, kMargin);
    return XmCreatePushButton(c.parent, name, args.list(), args.count());
}

Widget make_arrow(const Control& c, grx::Args& args, char* name) {
    struct Direction {
        INT bit;
        unsigned char direction;
    };
    static constexpr std::array<Direction, 4> directions{
        {{GRX_BOU_ATT_FLECHE_GAUCHE, XmARROW_LEFT}, {GRX_BOU_ATT_FLECHE_DROITE, XmARROW_RIGHT},
            {GRX_BOU_ATT_FLECHE_BAS, XmARROW_DOWN}, {GRX_BOU_ATT_FLECHE_HAUT, XmARROW_UP}}};
    set_margins(args, kMargin);
    const auto* const row =
        std::find_if(directions.begin(), directions.end(), [&c](const Direction& d) { return has(c, d.bit); });
    if (row != directions.end()) args.set(XmNarrowDirection, row->direction);
    return XmCreateArrowButton(c.parent, name, args.list(), args.count());
}

Widget make_label(const Control& c, grx::Args& args, char* name) {
    set_margins(args, 0);
    args.set(XmNalignment, XmALIGNMENT_BEGINNING);
    return XmCreateLabel(c.parent, name, args.list(), args.count());
}

// Zero columns is the toolkit's default, which it takes with a warning when it is asked for.
void set_columns(grx::Args& args, const GRX_BOUTON& bou) {
    const INT given = bou.tabi[GRX_BOU_TABI_COLONNES];
    const INT columns = given >= 0 ? given : bou.largeur / std::max<INT>(grx_recup_lar_carac_alpha(), 1);
    if (columns > 0) args.set(XmNcolumns, std::min<INT>(columns, INT16_MAX));
}

Widget make_text(const Control& c, grx::Args& args, char* name) {
    const grx::FieldText title(c.bou.titre);
    grx::LocaleText value(title.c_str());
    set_margins(args, kMargin);
    set_columns(args, c.bou);
    args.set(XmNvalue, value.data());
    if (has(c, GRX_BOU_ATT_TEXTE_LECTURE)) args.set(XmNeditable, False);
    if (!has(c, GRX_BOU_ATT_TEXTE_MULTI)) return XmCreateTextField(c.parent, name, args.list(), args.count());
    args.set(XmNscrollBarDisplayPolicy, XmAS_NEEDED).set(XmNscrollHorizontal, False);
    args.set(XmNeditMode, XmMULTI_LINE_EDIT);
    return XmCreateScrolledText(c.parent, name, args.list(), args.count());
}

void set_scale_range(grx::Args& args, const GRX_BOUTON& bou) {
    const INT low = bou.tabi[GRX_BOU_TABI_MINI];
    const INT high = bou.tabi[GRX_BOU_TABI_MAXI];
    const INT value = bou.tabi[GRX_BOU_TABI_INITIAL];
    if (low < high) args.set(XmNminimum, low).set(XmNmaximum, high);
    if (low < value && value < high) args.set(XmNvalue, value); // KEEP: the bounds themselves are not taken
}

Widget make_scale(const Control& c, grx::Args& args, char* name) {
    const GRX_BOUTON& bou = c.bou;
    const grx::FieldText title(bou.titre);
    const grx::CompoundString label(title.c_str());
    set_margins(args, kMargin);
    set_scale_range(args, bou);
    if (bou.hauteur >= 0) args.set(XmNscaleHeight, grx::as_size(bou.hauteur));
    if (bou.largeur >= 0) args.set(XmNscaleWidth, grx::as_size(bou.largeur));
    if (has(c, GRX_BOU_ATT_ECHELLE_VALEUR)) args.set(XmNshowValue, True).set(XmNtitleString, label.get());
    if (has(c, GRX_BOU_ATT_ECHELLE_HORIZ)) {
        args.set(XmNorientation, XmHORIZONTAL);
    } else {
        args.set(XmNprocessingDirection, XmMAX_ON_BOTTOM).set(XmNorientation, XmVERTICAL);
    }
    return XmCreateScale(c.parent, name, args.list(), args.count());
}

Widget make_list(const Control& c, grx::Args& args, char* name) {
    set_margins(args, kMargin);
    args.set(XmNlistMarginWidth, kMargin).set(XmNlistMarginHeight, kMargin);
    args.set(XmNlistSizePolicy, XmCONSTANT);
    if (has(c, GRX_BOU_ATT_LISTE_SCROLL)) {
        args.set(XmNscrollingPolicy, XmAPPLICATION_DEFINED).set(XmNscrollBarDisplayPolicy, XmSTATIC);
        args.set(XmNvisualPolicy, XmCONSTANT);
    }
    return XmCreateScrolledList(c.parent, name, args.list(), args.count());
}

// A button of a dialog's bottom row stands in the dialog's form, three levels above the parent given.
Widget make_dialog_push(const Control& c, grx::Args& args, char* name) {
    struct Place {
        INT number;
        int left, right;
    };
    static constexpr std::array<Place, 3> places{
        {{GRX_BOU_PLACE_GAUCHE, 5, 31}, {GRX_BOU_PLACE_CENTRE, 36, 62}, {GRX_BOU_PLACE_DROITE, 68, 94}}};
    constexpr int top = 92, bottom = 99, levels = 3;
    Widget form = c.parent;
    for (int i = 0; i < levels && form != nullptr; ++i) form = XtParent(form);
    if (form == nullptr || !XtIsComposite(form) || XtIsShell(form)) return nullptr;
    const INT wanted = c.bou.tabi[GRX_BOU_TABI_PLACE];
    const auto* const row =
        std::find_if(places.begin(), places.end(), [wanted](const Place& p) { return p.number == wanted; });
    if (row != places.end()) {
        for (const char* const side : {XmNtopAttachment, XmNbottomAttachment, XmNleftAttachment, XmNrightAttachment})
            args.set(side, XmATTACH_POSITION);
        args.set(XmNtopPosition, top).set(XmNbottomPosition, bottom);
        args.set(XmNleftPosition, row->left).set(XmNrightPosition, row->right);
    }
    return XmCreatePushButton(form, name, args.list(), args.count());
}

Widget make_separator(const Control& c, grx::Args& args, char* name) {
    args.set(XmNorientation, has(c, GRX_BOU_ATT_SEPARATEUR_HORIZ) ? XmHORIZONTAL : XmVERTICAL);
    return XmCreateSeparator(c.parent, name, args.list(), args.count());
}

Widget make_drawing_area(const Control& c, grx::Args& args, char* name) {
    set_margins(args, kMargin);
    return XmCreateDrawingArea(c.parent, name, args.list(), args.count());
}

constexpr EventMask kPointerEvents = ButtonPressMask | ButtonReleaseMask | EnterWindowMask | LeaveWindowMask
                                     | PointerMotionMask | Button1MotionMask | Button2MotionMask | Button3MotionMask
                                     | ButtonMotionMask;
constexpr EventMask kControlEvents = KeyPressMask | kPointerEvents | OwnerGrabButtonMask;
constexpr EventMask kTextEvents = KeyPressMask | KeyReleaseMask | kPointerEvents;
constexpr EventMask kDrawingEvents = ButtonPressMask | ButtonReleaseMask | ExposureMask;

enum class Press { Silent, Activate, ValueChanged }; // the callback that tells the application

struct ControlClass {
    INT type;
    Widget (*make)(const Control&, grx::Args&, char* name);
    Press press;
    EventMask events;
    bool labelled;
};

constexpr std::array<ControlClass, 13> kControlClasses{{
    {GRX_BOU_DESSINE, make_drawn, Press::Activate, kControlEvents, true},
    {GRX_BOU_BASCULE, make_toggle, Press::ValueChanged, kControlEvents, true},
    {GRX_BOU_POUSSOIR, make_push, Press::Activate, kControlEvents, true},
    {GRX_BOU_FLECHE, make_arrow, Press::Activate, kControlEvents, true},
    {GRX_BOU_LABEL, make_label, Press::Silent, kControlEvents, true},
    {GRX_BOU_TEXTE, make_text, Press::Activate, kTextEvents, true},
    {GRX_BOU_ECHELLE, make_scale, Press::ValueChanged, kControlEvents, true},
    {GRX_BOU_LISTE, make_list, Press::Silent, kControlEvents, true},
    {GRX_BOU_DIALOGUE, make_dialog_push, Press::Activate, kControlEvents, false},
    {GRX_BOU_SIMPLE, make_plain_push, Press::Activate, kControlEvents, true},
    {GRX_BOU_SEPARATEUR, make_separator, Press::Silent, kControlEvents, false},
    {GRX_BOU_ZONE_DESSIN, make_drawing_area, Press::Silent, kDrawingEvents, true},
    {GRX_BOU_COULEUR, make_colour, Press::Activate, kControlEvents, true},
}};

const ControlClass* class_of(INT type) {
    const auto* const row = std::find_if(
        kControlClasses.begin(), kControlClasses.end(), [type](const ControlClass& c) { return c.type == type; });
    return row != kControlClasses.end() ? row : nullptr;
}

Widget make_widget(const Control& c, const ControlClass& control_class) {
    grx::FieldText title(c.bou.titre);
    const grx::CompoundString label(title.c_str());
    grx::Args args;
    set_position(args, c.bou);
    if (control_class.labelled) set_label(args, label.get());
    grx::set_screen(args);
    set_colours(args, c.bou);
    set_size(args, c.bou);
    set_attachments(args, c.bou);
    return control_class.make(c, args, title.data());
}

void note_death(Widget w, XtPointer client, XtPointer) {
    const INT nobou = grx::number_in(client);
    if (!in_base(nobou) || Tableau_objet_bouton[nobou] != w) return;
    widget_dead[place(nobou)] = true;
    if (goes_with_widget[place(nobou)]) grx_libere_indice_objet_bout(nobou);
}

INT register_control(const Control& c, Widget w) {
    const INT nobou = grx_recup_indice_objet_bout_libre();
    if (nobou < 0) return GRX_AUCUN;
    grx_affecte_objet_bout(nobou, w);
    grx_affecte_structure_bouton(nobou, c.bou.no_fo, c.bou.tabi[GRX_BOU_TABI_VALEUR], c.nofen);
    structure_bouton[nobou].type = c.bou.type;
    structure_bouton[nobou].image = None;
    grx::forget_look(nobou);
    grx::note_encoding(nobou, grx::FieldText(c.bou.titre).c_str());
    XtAddCallback(w, XmNdestroyCallback, note_death, grx::as_client_data(nobou));
    return nobou;
}

void add_press_callback(Widget w, Press press, STRUCTURE_BOUTON* record) {
    if (press == Press::Activate) XtAddCallback(w, XmNactivateCallback, grx_bouton_est_enfonce, record);
    if (press == Press::ValueChanged) XtAddCallback(w, XmNvalueChangedCallback, grx_bouton_est_enfonce, record);
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

void install_callbacks(Widget w, const Control& c, const ControlClass& control_class, STRUCTURE_BOUTON* record) {
    add_other_callbacks(w, c.bou.type, record);
    if (c.bou.type == GRX_BOU_COULEUR) grx_change_couleur_bouton(record->nobou, std::max<INT>(c.bou.coul_fond, 0));
    add_press_callback(w, control_class.press, record);
    XtAddEventHandler(w, control_class.events, False, grx_gere_evenements_bouton, record);
    if (c.bou.type != GRX_BOU_ECHELLE) return;
    for (Widget part : grx::children_of(w)) { // its slider has the focus
        if (XtIsWidget(part)) XtAddEventHandler(part, KeyPressMask, False, grx_gere_evenements_bouton, record);
    }
}

void show_icon(Widget w, const Control& c, STRUCTURE_BOUTON* record) {
    grx::FieldText icon(c.bou.icone);
    if (icon.c_str()[0] != '\0' && grx_installe_bitmap(icon.data(), record->nobou) != 0)
        grx::show_pixmap(w, record->image);
}

// The size that is given, or else the one that the layout gives.
grx::Size drawing_size(Widget w, const GRX_BOUTON& bou) {
    if (bou.largeur > 0 && bou.hauteur > 0) return {bou.largeur, bou.hauteur};
    const grx::Size size = grx::size_of(w);
    return {bou.largeur > 0 ? bou.largeur : size.width, bou.hauteur > 0 ? bou.hauteur : size.height};
}

void give_off_screen_copy(Widget w, const Control& c, INT nobou) {
    constexpr INT black = 1; // a reserved colour
    const grx::Size size = drawing_size(w, c.bou);
    const Window window = grx::window_of(w);
    if (window != None) {
        XSetWindowAttributes attributes{};
        attributes.backing_store = WhenMapped;
        XChangeWindowAttributes(x11_disp, window, CWBackingStore, &attributes);
    }
    grx_desinstalle_bitmap(nobou); // an icon, which the copy replaces
    structure_bouton[nobou].image = None;
    grx_cree_bitmap_backingstore_bouton(nobou, size.width, size.height, black, black);
}

void put_on_screen(Widget w, const Control& c, STRUCTURE_BOUTON* record) {
    if (XmIsScale(w)) grx::give_wanted_size(w);
    if (!has(c, GRX_BOU_ATT_VISIBLE)) XtSetMappedWhenManaged(grx::with_scroll_bars(w), False);
    XtManageChild(w);
    show_icon(w, c, record);
    if (!has(c, GRX_BOU_ATT_SENSIBLE)) XtSetSensitive(w, False);
    if (c.bou.type == GRX_BOU_ZONE_DESSIN) give_off_screen_copy(w, c, record->nobou);
}

// -- labels and separators without a number

void set_bare(grx::Args& args, const GRX_BOUTON& bou) {
    args.set(XmNfontList, fontlist);
    set_position(args, bou);
    set_size(args, bou);
    grx::set_foreground(args, bou.coul_trace);
    if (bou.coul_fond == GRX_AUCUN) {
        if (const auto pixel = grx::application_pixel()) args.set(XmNbackground, *pixel);
        return;
    }
    args.set(XmNarmColor, bou.coul_fond); // KEEP: the index itself
    args.set(XmNbackground, static_cast<Pixel>(grx_recup_couleur(bou.coul_fond)));
}

Widget make_bare_separator(Widget parent, const GRX_BOUTON& bou) {
    grx::Args args;
    set_bare(args, bou);
    const bool horizontal = (bou.attrib & GRX_BOU_ATT_SEPARATEUR_HORIZ) != 0;
    args.set(XmNorientation, horizontal ? XmHORIZONTAL : XmVERTICAL);
    return XmCreateSeparator(parent, const_cast<char*>("Gadget_Separateur"), args.list(), args.count());
}

// The picture of a label without a number goes with the label.
void release_icon(Widget, XtPointer client, XtPointer) {
    grx::free_pixmap(reinterpret_cast<Pixmap>(client));
}

Widget make_bare_label(Widget parent, const GRX_BOUTON& bou) {
    grx::FieldText title(bou.titre);
    grx::FieldText icon(bou.icone);
    const grx::CompoundString label(title.c_str());
    grx::Args args;
    set_bare(args, bou);
    args.set(XmNlabelString, label.get()).set(XmNalignment, XmALIGNMENT_BEGINNING);
    const bool shown = icon.c_str()[0] != '\0' && grx_installe_bitmap(icon.data(), GRX_AUCUN) == 1;
    if (shown) args.set(XmNlabelType, XmPIXMAP).set(XmNlabelPixmap, grx::Mypixmap);
    Widget w = XmCreateLabel(parent, title.data(), args.list(), args.count());
    if (shown && w != nullptr)
        XtAddCallback(w, XmNdestroyCallback, release_icon, reinterpret_cast<XtPointer>(grx::Mypixmap));
    return w;
}

// -- the character cell

GRX_BOUTON cell_probe(Widget parent, INT type, const char* title, INT columns) {
    constexpr INT step = 10;
    GRX_BOUTON bou;
    grx_init_bouton(&bou);
    bou.ref_fen_mere = parent;
    bou.type = type;
    bou.attrib = GRX_BOU_ATT_VISIBLE;
    bou.x = bou.y = columns > 1 ? step : 0;
    bou.tabi[GRX_BOU_TABI_COLONNES] = columns;
    bou.no_fo = columns - 1;
    grx::copy_text(bou.titre, title);
    return bou;
}

grx::Size measured(GRX_BOUTON bou) {
    grx::Size size;
    if (grx_cree_bouton(&bou) != 0) return size;
    grx_recup_taille_bouton(bou.nobou, &size.width, &size.height);
    grx_detruit_bouton(bou.nobou);
    return size;
}

} // namespace

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
    if (bouton == nullptr) return kNoParent;
    const Control control = control_for(*bouton);
    if (control.parent == nullptr || !XtIsComposite(control.parent)) return kNoParent;
    const ControlClass* const control_class = class_of(bouton->type);
    if (control_class == nullptr) return kNotMade;
    if (grx::Premier_bouton != 0) learn_default_colours(control.parent);
    Widget w = make_widget(control, *control_class);
    if (w == nullptr) return kNotMade;
    const INT nobou = register_control(control, w);
    if (nobou < 0) return kBaseFull;
    bouton->nobou = nobou;
    install_callbacks(w, control, *control_class, &structure_bouton[nobou]);
    put_on_screen(w, control, &structure_bouton[nobou]);
    return 0;
}

INT grx_cree_gadget(GRX_BOUTON* gadget) {
    grx::Mypixmap = XmUNSPECIFIED_PIXMAP;
    Widget parent = gadget != nullptr ? grx_recup_objet_fen(gadget->fen_mere) : nullptr;
    if (parent == nullptr) return kNoParent;
    if (!XtIsComposite(parent)) return 0;
    Widget w = nullptr;
    if (gadget->type == GRX_BOU_SEPARATEUR) w = make_bare_separator(parent, *gadget);
    if (gadget->type == GRX_BOU_LABEL) w = make_bare_label(parent, *gadget);
    if (w != nullptr) XtManageChild(w);
    return 0;
}

void affecte_carac_font(Widget pere) {
    if (pere == nullptr || !XtIsComposite(pere)) return;
    const grx::Size one = measured(cell_probe(pere, GRX_BOU_TEXTE, "test", 1));
    const grx::Size two = measured(cell_probe(pere, GRX_BOU_TEXTE, "test", 2));
    if (one.height == 0 || two.height == 0) return;
    const INT character = two.width - one.width;
    grx_affecte_hau_carac_alpha(one.height);
    grx_affecte_lar_carac_alpha(character);
    grx_affecte_lar_sup_alpha(two.width - 2 * character);
    const grx::Size label = measured(cell_probe(pere, GRX_BOU_LABEL, "A", 0));
    if (label.height > 0) grx_affecte_hau_exact_carac_alpha(label.height);
}

INT grx_recup_couleur_init_fond_bouton(void) {
    return Couleur_init_fond_bouton;
}

INT grx_recup_couleur_init_trace_bouton(void) {
    return Couleur_init_trace_bouton;
}
}
