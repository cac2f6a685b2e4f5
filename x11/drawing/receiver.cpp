// Gives primitives to functions of the application instead of the screen, for all functions that draw.
#include "drawing/receiver.h"

#include <cstddef>

#include "grx_plus_erreurs.h"
#include "pure/sized_record.h"
#include "system/shut_down.h"
#include "system/trace.h"
#include "drawing/attributes.h"
#include "xt_ini_f.h"

namespace grx {

const GRX_RECEPTEUR* receiver = nullptr;

} // namespace grx

namespace {

GRX_RECEPTEUR kept{};
bool set = false;
INT window_drawn_to = GRX_AUCUN;

void take_away() {
    grx::receiver = nullptr;
    kept = {};
    set = false;
    window_drawn_to = GRX_AUCUN;
}

void end_receiver() {
    const GRX_RECEPTEUR ended = kept;
    const bool was_set = set;
    take_away();
    if (was_set && ended.fin != nullptr) ended.fin(ended.donnee);
}

// While a function of the receiver runs, drawing goes to the screen.
template <class Call>
void outside_receiver(Call call) {
    grx::receiver = nullptr;
    call(kept.donnee);
    grx::receiver = set ? &kept : nullptr;
}

void note_window(INT target, INT number) {
    if (target == GRX_CIBLE_FENETRE) window_drawn_to = number;
}

bool usable_points(const GRX_POLY& poly) {
    return poly.points != nullptr && poly.npoints > 0;
}

bool usable_size(const GRX_IMAGE_RECUE& picture) {
    return picture.largeur > 0 && picture.hauteur > 0 && picture.largeur_finale > 0 && picture.hauteur_finale > 0;
}

bool usable_picture(const GRX_IMAGE_RECUE& picture) {
    const bool pixels = picture.pixels_24 != nullptr || picture.pixels_8 != nullptr || picture.pixels_argb != nullptr;
    return pixels && usable_size(picture);
}

} // namespace

namespace grx {

template <class Record>
void hand_over(Taking<Record> member, INT target, const Record& record) {
    note_window(target, record.nofen);
    const auto take = receiver->*member;
    if (take != nullptr) outside_receiver([&](void* data) { take(data, target, &record); });
}

template void hand_over(Taking<GRX_POINT>, INT, const GRX_POINT&);
template void hand_over(Taking<GRX_SEGMENT>, INT, const GRX_SEGMENT&);
template void hand_over(Taking<GRX_RECTANGLE>, INT, const GRX_RECTANGLE&);
template void hand_over(Taking<GRX_ARC>, INT, const GRX_ARC&);
template void hand_over(Taking<GRX_POLY>, INT, const GRX_POLY&);
template void hand_over(Taking<GRX_TEXTE>, INT, const GRX_TEXTE&);

bool received_points(Taking<GRX_POLY> member, INT target, const GRX_POLY& poly) {
    if (receiver == nullptr) return false;
    if (usable_points(poly)) hand_over(member, target, poly);
    return true;
}

bool received_outline(Taking<GRX_POLY> member, GRX_POINT_POLY* points, INT count, uchar colour) {
    if (receiver == nullptr) return false;
    const GRX_ATTRIBUTS_TRACER plain = plain_attributes(grx_recup_couleur_fond(), colour);
    hand_over(member, GRX_CIBLE_FENETRE,
        GRX_POLY{window_drawn_to, points, count, plain.coul_trace, plain.coul_fond, plain.type_trait, plain});
    return true;
}

bool received_picture(INT target, GRX_IMAGE_RECUE picture) {
    if (receiver == nullptr) return false;
    picture.taille = static_cast<INT>(sizeof picture);
    if (target != GRX_CIBLE_FENETRE) target = GRX_CIBLE_BOUTON;
    note_window(target, picture.numero);
    const auto take = receiver->image;
    if (take != nullptr && usable_picture(picture)) outside_receiver([&](void* data) { take(data, target, &picture); });
    return true;
}

bool received_clearing(INT target, INT number) {
    if (receiver == nullptr) return false;
    note_window(target, number);
    const auto take = receiver->efface;
    if (take != nullptr) outside_receiver([&](void* data) { take(data, target, number); });
    return true;
}

} // namespace grx

extern "C" {

INT grx_init_recepteur(GRX_RECEPTEUR* recepteur) {
    if (recepteur == nullptr) return grx::refused(GRX_ECHEC_PARAMETRE, "recepteur");
    *recepteur = {};
    recepteur->taille = static_cast<INT>(sizeof *recepteur);
    return 1;
}

INT grx_affecte_recepteur(const GRX_RECEPTEUR* recepteur) {
    GRX_RECEPTEUR read{};
    if (!grx::read_sized(recepteur, read)) return grx::refused(GRX_ECHEC_PARAMETRE, "recepteur");
    if (set) return grx::refused(GRX_ECHEC_OCCUPE, "recepteur");
    kept = read;
    set = true;
    window_drawn_to = GRX_AUCUN;
    grx::receiver = &kept;
    grx::at_shut_down(end_receiver);
    return 1;
}

INT grx_retire_recepteur(const void* donnee) {
    if (!set || kept.donnee != donnee) return GRX_ECHEC_ABSENT;
    take_away();
    return 1;
}
}
