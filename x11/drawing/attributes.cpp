// Colour, width and style of what is drawn, dash patterns included, for all primitives. They are sent to the drawing
// context only when they change.
#include "drawing/attributes.h"

#include <X11/Xlib.h>

#include <array>
#include <cstddef>
#include <numeric>

#include "pure/clip.h"
#include "display/context.h"
#include "xt_gfx_f.h"
#include "xt_ini_f.h"

namespace {

struct DashList {
    const char* lengths;
    int count;
};

constexpr char format_mixte[] = {16, 6, 6, 6};
constexpr char format_pointille[] = {8, 8};
constexpr char format_pointille_court[] = {4, 4};
constexpr char format_pointille_long[] = {16, 16};
constexpr char format_mixte_1_point[] = {16, 4, 1, 4};
constexpr char format_mixte_2_points[] = {16, 4, 1, 4, 1, 4};
constexpr char format_mixte_2_tirets[] = {16, 8, 4, 8, 4, 8};

template <int N>
constexpr DashList dashes(const char (&lengths)[N]) {
    return {lengths, N};
}

constexpr std::array<DashList, 8> kDashLists{DashList{nullptr, 0}, dashes(format_mixte), dashes(format_pointille),
    dashes(format_pointille_court), dashes(format_pointille_long), dashes(format_mixte_1_point),
    dashes(format_mixte_2_points), dashes(format_mixte_2_tirets)};

GRX_ATTRIBUTS_TRACER background_attributes() {
    return grx::plain_attributes(grx_recup_couleur_fond(), grx_recup_couleur_fond());
}

// Changes of the context, collected so that one request sends them all.
struct Changes {
    XGCValues values{};
    unsigned long mask = 0;
};

void change_background(Changes& c, const GRX_ATTRIBUTS_TRACER& att) {
    if (att.coul_fond == grx::memo_attrib.coul_fond && !grx::context_stale) return;
    c.values.background = grx::drawing_pixel(att.coul_fond);
    c.mask |= GCBackground;
    grx::memo_attrib.coul_fond = att.coul_fond;
}

bool is_dashed(const GRX_ATTRIBUTS_TRACER& att) {
    return att.type_trait >= GRX_TRAIT_MIXTE && att.type_trait <= GRX_TRAIT_MIXTE_2_TIRETS;
}

void change_style(Changes& c, const GRX_ATTRIBUTS_TRACER& att) {
    if (att.type_trait == grx::memo_attrib.type_trait && !grx::context_stale) return;
    const bool dashed = is_dashed(att);
    if (dashed) {
        const DashList& list = kDashLists[static_cast<std::size_t>(att.type_trait)];
        XSetDashes(x11_disp, g_c, 0, list.lengths, list.count);
    }
    c.values.line_style = dashed ? LineDoubleDash : LineSolid; // KEEP: gaps are drawn in the background colour
    c.mask |= GCLineStyle;
    grx::memo_attrib.type_trait = att.type_trait;
}

void change_width(Changes& c, const GRX_ATTRIBUTS_TRACER& att) {
    if (att.epaisseur == grx::memo_attrib.epaisseur && !grx::context_stale) return;
    c.values.line_width = grx_recup_epaisseur(att.epaisseur);
    c.mask |= GCLineWidth;
    grx::memo_attrib.epaisseur = att.epaisseur;
}

unsigned long foreground_for(const GRX_ATTRIBUTS_TRACER& att) {
    if (att.mode == GRX_MODE_EFFACE) return grx::drawing_pixel(grx_recup_couleur_fond());
    if (att.mode == GRX_MODE_XOR)
        return grx::drawing_pixel(att.coul_trace) ^ grx::drawing_pixel(grx::memo_attrib.coul_fond);
    return grx::drawing_pixel(att.coul_trace);
}

// KEEP: when only the background changes, the exclusive-or foreground is not sent again. Erasing does not change the
// drawing colour that is remembered.
void change_foreground(Changes& c, const GRX_ATTRIBUTS_TRACER& att) {
    if (att.coul_trace == grx::memo_attrib.coul_trace && att.mode == grx::memo_attrib.mode && !grx::context_stale)
        return;
    c.values.foreground = foreground_for(att);
    c.values.function = att.mode == GRX_MODE_XOR ? GXxor : GXcopy;
    c.mask |= GCForeground | GCFunction;
    if (att.mode != GRX_MODE_EFFACE) grx::memo_attrib.coul_trace = att.coul_trace;
    grx::memo_attrib.mode = att.mode;
}

constexpr std::array<INT, GRX_NB_EPAISSEURS> Tab_epaisseur{0, 2, 3, 4, 5, 6, 7, 8};

} // namespace

namespace grx {

unsigned long drawing_pixel(INT colour) {
    return static_cast<unsigned long>(static_cast<UNSIGNED_INT>(grx_recup_couleur(colour)));
}

GRX_ATTRIBUTS_TRACER plain_attributes(INT background, INT foreground) {
    return {background, foreground, GRX_MODE_NORMAL, 0, GRX_TRAIT_CONTINU, 0};
}

void forget_background() {
    memo_attrib.coul_fond = kForgotten;
}

void set_copy_function() {
    lift_limit();
    XSetFunction(x11_disp, g_c, GXcopy);
    context_changed();
}

void send_changes(const GRX_ATTRIBUTS_TRACER& att) {
    Changes c;
    change_background(c, att);
    change_style(c, att);
    change_width(c, att);
    change_foreground(c, att);
    context_stale = false;
    if (c.mask == 0) return;
    c.values.graphics_exposures = False;
    XChangeGC(x11_disp, g_c, c.mask | GCGraphicsExposures, &c.values);
}

void apply_background() {
    lift_limit();
    apply_attributes(background_attributes());
}

Dashes dashes_of(const GRX_ATTRIBUTS_TRACER& att) {
    if (!is_dashed(att)) return {};
    const DashList& list = kDashLists[static_cast<std::size_t>(att.type_trait)];
    return {std::accumulate(list.lengths, list.lengths + list.count, 0), grx_recup_epaisseur(att.epaisseur) > 0};
}

} // namespace grx

extern "C" {

void grx_affecte_gc(GRX_ATTRIBUTS_TRACER att) {
    if (g_c == nullptr) return;
    grx::lift_limit();
    grx::apply_attributes(att);
}

void grx_reinit_gc(void) {
    if (g_c != nullptr) grx::apply_background();
}

INT grx_recup_epaisseur(INT i) {
    const INT remainder = i % GRX_NB_EPAISSEURS;
    return Tab_epaisseur[static_cast<std::size_t>(remainder < 0 ? remainder + GRX_NB_EPAISSEURS : remainder)];
}
}
