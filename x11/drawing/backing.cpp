// Backing pictures of windows and buttons: the application draws into them in memory and has them copied to the screen.
#include "drawing/backing.h"

#include <X11/Intrinsic.h>

#include "pure/size.h"
#include "display/context.h"
#include "display/pixmaps.h"
#include "toolkit/widgets.h"
#include "registry/window_table.h"
#include "drawing/attributes.h"
#include "drawing/control_pictures.h"
#include "drawing/layers.h"
#include "drawing/limit.h"
#include "drawing/receiver.h"
#include "xt_bou_f.h"
#include "xt_fen_f.h"
#include "xt_gfx_f.h"
#include "xt_ini_t.h"
#include "xt_mot_t.h"
#include "xt_uti_f.h"

namespace {

void set_backing_store(INT nofen, int mode) {
    grx::set_backing_store(grx::window_of(grx_recup_objet_fen(nofen)), mode);
}

// The background colour may have changed since, so it is sent again before the fill.
void clear_picture(Window window, Pixmap picture, grx::Size size) {
    if (grx::receiver != nullptr) return; // nothing is drawn into it
    grx::forget_background();
    grx::apply_background();
    grx::hold_to_limit(window);
    grx::fill_drawable(picture, g_c, size);
}

// Shows what was drawn in memory. The picture is cleared afterwards when the caller wants that.
void show_memory_drawing(Window window, Pixmap picture, grx::Size size, INT efface_pas) {
    if (grx::receiver != nullptr) return; // what was drawn is not in it
    grx::forget_background();
    grx::apply_background();
    grx::hold_to_limit(window);
    grx::copy_drawable(picture, window, g_c, size);
    grx::picture_shown(window, picture, grx::limit_of(window));
    XSync(x11_disp, False);
    if (efface_pas != 0) return;
    grx::apply_background(); // showing layers may have changed the context
    grx::hold_to_limit(window);
    grx::fill_drawable(picture, g_c, size);
}

// Copies the backing picture to the screen, held to the limit when the application asks for it.
INT show_backing(INT nofen, bool held) {
    const grx::Backing backing = grx::backing_of(nofen);
    if (!backing || backing.record->backingstorable == 0) return 1;
    grx::apply_background();
    if (held) grx::hold_to_limit(backing.window);
    grx::copy_drawable(*backing.holder, backing.window, g_c, grx::window_size(nofen));
    grx::picture_shown(backing.window, *backing.holder, held ? grx::limit_of(backing.window) : grx::kEverywhere);
    XSync(x11_disp, False);
    return 0;
}

} // namespace

namespace grx {

bool has_backing_picture(INT nofen) {
    const STRUCTURE_FENETRE* const record = window_record(nofen);
    return record != nullptr && record->type == GRX_FEN_GRAPHIQUE && record->image != nullptr
           && !holds_dead_pixmap(nofen);
}

INT show_whole_backing(INT nofen) {
    return show_backing(nofen, false);
}

Backing backing_of(INT nofen) {
    const Window window = window_of(grx_recup_objet_fen(nofen));
    if (window == None) return {};
    STRUCTURE_FENETRE* const record = window_record(nofen);
    return {window, record->image, record};
}

Size window_size(INT nofen) {
    Size size;
    grx_recup_taille_fenetre(nofen, &size.width, &size.height);
    return size;
}

ButtonBacking button_backing(INT nobou) {
    Widget w = grx_recup_objet_bout(nobou);
    ButtonBacking result;
    if (w == nullptr) return result;
    result.window = window_of(w);
    grx_recup_structure_bouton(nobou, &result.record);
    result.size = size_of(w);
    return result;
}

} // namespace grx

extern "C" {

INT grx_autorise_sauvegarde_auto(INT nofen) {
    set_backing_store(nofen, WhenMapped);
    return 0;
}

INT grx_supprime_sauvegarde_auto(INT nofen) {
    set_backing_store(nofen, NotUseful);
    return 0;
}

INT grx_cree_bitmap_backingstore(INT nofen) {
    const grx::Backing backing = grx::backing_of(nofen);
    if (!backing) return 0;
    XSync(x11_disp, False);
    const grx::Size size = grx::window_size(nofen);
    grx_supprime_bitmap_backingstore(nofen);
    *backing.holder = grx::make_pixmap(backing.window, size);
    grx::mark_dead_pixmap(nofen, false);
    grx::apply_background();
    grx::fill_drawable(*backing.holder, g_c, size);
    grx::take_layers_off(nofen);
    return 1;
}

void grx_supprime_bitmap_backingstore(INT nofen) {
    const grx::Backing backing = grx::backing_of(nofen);
    if (!backing || grx::holds_dead_pixmap(nofen)) return;
    grx::free_pixmap(*backing.holder); // KEEP: the stored id stays as it is
    grx::mark_dead_pixmap(nofen, true);
}

void grx_recree_bitmap_backingstore(INT nofen) {
    grx_cree_bitmap_backingstore(nofen); // it frees the picture before
}

INT grx_affiche_bitmap_backingstore(INT nofen) {
    return show_backing(nofen, true);
}

void grx_memorise_bitmap_backingstore(INT nofen) {
    const grx::Backing backing = grx::backing_of(nofen);
    if (!backing) return;
    grx::take_layers_off(nofen);
    grx::apply_background();
    grx::copy_drawable(backing.window, *backing.holder, g_c, grx::window_size(nofen));
}

INT grx_interdit_backingstore(INT nofen, INT interdire) {
    const grx::Backing backing = grx::backing_of(nofen);
    if (backing.record == nullptr) return 0;
    backing.record->backingstorable = interdire == 0 ? 1 : 0;
    if (interdire != 0) {
        grx_supprime_sauvegarde_auto(nofen);
    } else {
        grx_autorise_sauvegarde_auto(nofen);
    }
    return 0;
}

INT grx_enable_backingstore(INT, INT activer) {
    grx::grx_trace_memoire = activer != 0 ? 1 : 0;
    return 0;
}

INT grx_backingstore_deja_cours(void) {
    return grx::grx_trace_memoire > 0 ? 1 : 0;
}

INT grx_redess_necessaire(void) {
    return 0;
}

INT grx_alloue_image(INT) {
    const INT active = grx_recup_nofen_active(); // KEEP: the argument is ignored, the active window is meant
    const grx::Backing backing = grx::backing_of(active);
    if (!backing) return 0;
    grx::image_redess = backing.holder;
    grx::grx_trace_memoire = 1;
    clear_picture(backing.window, *backing.holder, grx::window_size(active));
    return 0;
}

INT grx_desalloue_image(void) {
    grx::grx_trace_memoire = 0;
    return 0;
}

INT grx_alloue_image_bouton(INT, INT efface_pas) {
    const grx::ButtonBacking backing = grx::button_backing(grx_recup_nobou_actif()); // KEEP: the active button is meant
    if (!backing) return 0;
    grx::image_redess_bouton = &backing.record->image;
    grx::grx_trace_memoire_bouton = 1;
    if (efface_pas == 0) clear_picture(backing.window, backing.record->image, backing.size);
    return 0;
}

INT grx_desalloue_image_bouton(void) {
    grx::grx_trace_memoire_bouton = 0;
    return 0;
}

void grx_cree_bitmap_backingstore_bouton(INT nobou, INT lar, INT hau, INT coul_trace, INT coul_fond) {
    const Window window = grx::window_of(grx_recup_objet_bout(nobou));
    if (window == None || g_c == nullptr || lar <= 0 || hau <= 0) return;
    STRUCTURE_BOUTON* record = nullptr;
    grx_recup_structure_bouton(nobou, &record);
    const grx::Size size{lar, hau};
    grx::give_pixmap(nobou, grx::make_pixmap(window, size));
    grx_affecte_gc(grx::plain_attributes(coul_fond, coul_trace));
    grx::fill_drawable(record->image, g_c, size);
}

void grx_detruit_bitmap_backingstore_bouton(INT nobou) {
    if (grx::button_backing(nobou)) grx::give_pixmap(nobou, None);
}

INT grx_affiche_bitmap_backingstore_bouton(INT nobou) {
    const grx::ButtonBacking backing = grx::button_backing(nobou);
    if (!backing) return 0;
    grx::apply_background();
    grx::copy_drawable(backing.record->image, backing.window, g_c, backing.size);
    XSync(x11_disp, False);
    return 1; // KEEP: 1 says shown here, while 0 says shown for windows
}

void grx_memorise_bitmap_backingstore_bouton(INT nobou) {
    const grx::ButtonBacking backing = grx::button_backing(nobou);
    if (backing) {
        grx::apply_background();
        grx::copy_drawable(backing.window, backing.record->image, g_c, backing.size);
    }
    if (x11_disp != nullptr) XSync(x11_disp, False);
}

INT grx_sauve_fenetre(INT nofen) {
    const Window window = grx::window_of(grx_recup_objet_fen(nofen));
    GRX_SAUVE_ZONE* const slot = grx::save_slot(nofen);
    if (window == None || slot == nullptr || g_c == nullptr) return 0;
    grx::take_layers_off(nofen);
    grx::set_copy_function();
    const grx::Size size = grx::window_size(nofen);
    grx_flush_server();
    grx::free_pixmap(slot->image);
    *slot = {grx::make_pixmap(window, size), size.width, size.height};
    if (slot->image == None) return 0;
    grx::copy_drawable(window, slot->image, g_c, size);
    return 1;
}

INT grx_restore_fenetre(INT nofen) {
    const Window window = grx::window_of(grx_recup_objet_fen(nofen));
    GRX_SAUVE_ZONE* const slot = grx::save_slot(nofen);
    if (window == None || slot == nullptr || g_c == nullptr) return 0;
    grx::take_layers_off(nofen);
    grx::set_copy_function();
    const grx::Size size = grx::window_size(nofen);
    if (size != grx::Size{slot->lar, slot->hau}) {
        grx::free_pixmap(slot->image); // a picture of another size is not stretched
        *slot = GRX_SAUVE_ZONE{};
        return 0;
    }
    if (slot->image == None) return 0;
    grx::copy_drawable(slot->image, window, g_c, size);
    return 1;
}

void grx_trace_image(INT efface_pas) {
    if (grx::grx_trace_memoire == 0) return;
    const INT active = grx_recup_nofen_active();
    const grx::Backing backing = grx::backing_of(active);
    if (backing) show_memory_drawing(backing.window, *backing.holder, grx::window_size(active), efface_pas);
}

void grx_trace_image_bouton(INT efface_pas) {
    if (grx::grx_trace_memoire_bouton == 0) return;
    const grx::ButtonBacking backing = grx::button_backing(grx_recup_nobou_actif());
    if (backing) show_memory_drawing(backing.window, backing.record->image, backing.size, efface_pas);
}
}
