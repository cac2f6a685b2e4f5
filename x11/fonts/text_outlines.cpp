// All lines of a text, and what the application asks of texts without drawing them: their room, advances, outlines.
#include "fonts/text_outlines.h"

#include <algorithm>
#include <cmath>

#include "pure/out.h"
#include "pure/sized_record.h"
#include "system/never_destroyed.h"
#include "system/shut_down.h"
#include "system/trace.h"
#include "grx_plus_erreurs.h"
#include "grx_plus_textes.h"

namespace {

constexpr double kUsualTolerance = 0.25;
constexpr double kLeastTolerance = 0.001;
constexpr double kMeasuringTolerance = 0.02;

grx::NeverDestroyed<grx::PathBuffer> asked; // what the application was handed

void forget_asked() {
    asked.value.reset();
}

struct Box {
    double x_min = INFINITY, y_min = INFINITY, x_max = -INFINITY, y_max = -INFINITY;
    bool empty() const { return !(x_min <= x_max); }
    void take(grx::Vertex v) {
        x_min = std::min(x_min, v.x);
        y_min = std::min(y_min, v.y);
        x_max = std::max(x_max, v.x);
        y_max = std::max(y_max, v.y);
    }
};

// The boxes of what is drawn: upright, and along the text, across which the letters lean.
class Measuring final : public grx::PathSink {
  public:
    explicit Measuring(const grx::TextFrame& frame) : origin_(frame.origin) {
        const grx::Vertex u = frame.along(1), v = frame.across(1);
        const double det = u.x * v.y - u.y * v.x;
        to_own_ = {v.y / det, -v.x / det, -u.y / det, u.x / det, 0, 0};
    }
    void move(grx::Vertex to) override { line(to); }
    void line(grx::Vertex to) override {
        upright.take(to);
        own.take(to_own_({to.x - origin_.x, to.y - origin_.y}));
    }

    Box upright, own;

  private:
    grx::Vertex origin_;
    grx::Affine to_own_;
};

GRX_POINT_REEL point(grx::Vertex v) {
    return {v.x, v.y};
}

void give_corners(const grx::TextFrame& frame, const Box& own, GRX_BOITE_TEXTE& room) {
    const auto corner = [&frame](double along, double across) {
        const grx::Vertex u = frame.along(along), v = frame.across(across);
        return GRX_POINT_REEL{frame.origin.x + u.x + v.x, frame.origin.y + u.y + v.y};
    };
    room.coins[0] = corner(own.x_min, own.y_min);
    room.coins[1] = corner(own.x_min, own.y_max);
    room.coins[2] = corner(own.x_max, own.y_max);
    room.coins[3] = corner(own.x_max, own.y_min);
}

void give_ink(const grx::TextLayout& layout, GRX_BOITE_TEXTE& room) {
    Measuring ink(layout.frame);
    grx::walk_text(layout, kMeasuringTolerance, ink);
    for (GRX_POINT_REEL& corner : room.coins) corner = point(layout.frame.origin);
    if (ink.upright.empty()) return;
    room.x_min = ink.upright.x_min;
    room.y_min = ink.upright.y_min;
    room.x_max = ink.upright.x_max;
    room.y_max = ink.upright.y_max;
    give_corners(layout.frame, ink.own, room);
}

GRX_BOITE_TEXTE room_of(const grx::TextLayout& layout) {
    GRX_BOITE_TEXTE room{};
    room.nb_caracteres = static_cast<INT>(layout.count);
    room.avance = point(layout.frame.along(layout.length));
    room.longueur = layout.length;
    room.haut = layout.font->above * layout.frame.height;
    room.bas = layout.font->below * layout.frame.height;
    give_ink(layout, room);
    return room;
}

GRX_CONTOURS_TEXTE handed(const grx::TextLayout& layout) {
    const grx::PathBuffer& paths = asked.value;
    GRX_CONTOURS_TEXTE contours{};
    contours.nb_contours = static_cast<INT>(paths.paths());
    contours.debuts = paths.starts().data();
    contours.nb_points = static_cast<INT>(paths.points().size());
    contours.points = paths.points().data();
    contours.ferme = layout.font->strokes() ? 0 : 1;
    return contours;
}

double usable(double tolerance) {
    if (std::isnan(tolerance) || tolerance <= 0) return kUsualTolerance;
    return std::max(tolerance, kLeastTolerance);
}

template <class Record>
INT init_sized(Record* record, const char* argument) {
    if (record == nullptr) return grx::refused(GRX_ECHEC_PARAMETRE, argument);
    *record = {};
    record->taille = static_cast<INT>(sizeof *record);
    return 1;
}

} // namespace

namespace grx {

void walk_text(const TextLayout& layout, double tolerance, PathSink& sink) {
    for (std::size_t i = 0; i < layout.count; ++i)
        walk_letter(*layout.font, layout.letters[i], layout.place(i), tolerance, sink);
}

bool trace_text(const TextLayout& layout, double tolerance, PathBuffer& into) {
    into.begin();
    walk_text(layout, tolerance, into);
    const bool closed = !layout.font->strokes();
    return into.end(closed) && !freetype_was_refused();
}

} // namespace grx

extern "C" {

INT grx_init_boite_texte(GRX_BOITE_TEXTE* boite) {
    return init_sized(boite, "boite");
}

INT grx_init_contours_texte(GRX_CONTOURS_TEXTE* contours) {
    return init_sized(contours, "contours");
}

INT grx_init_texte_dessin(GRX_TEXTE* texte) {
    constexpr double usual_height = 10;
    if (texte == nullptr) return grx::refused(GRX_ECHEC_PARAMETRE, "texte");
    *texte = {};
    texte->hauteurlabel = usual_height; // and the width follows it
    texte->cosinuslabel = 1;
    texte->filllabel = 1;
    return 1;
}

INT grx_recup_boite_texte(const GRX_TEXTE* texte, GRX_BOITE_TEXTE* boite) {
    if (texte == nullptr || !grx::has_known_size(boite)) return grx::refused(GRX_ECHEC_PARAMETRE, "texte, boite");
    grx::TextLayout layout;
    const INT result = grx::lay_out(*texte, layout);
    if (result < 0) return grx::refused(result, "texte");
    const GRX_BOITE_TEXTE room = room_of(layout);
    if (grx::freetype_was_refused()) return GRX_ECHEC_MEMOIRE;
    grx::write_sized(boite, room);
    return result;
}

INT grx_recup_avances_texte(const GRX_TEXTE* texte, INT nb_max, DOUBLE* avances) {
    if (texte == nullptr) return grx::refused(GRX_ECHEC_PARAMETRE, "texte");
    grx::TextLayout layout;
    const INT result = grx::lay_out(*texte, layout, grx::Advances::OfFont);
    if (result < 0) return grx::refused(result, "texte");
    const std::size_t room = avances != nullptr && nb_max > 0 ? static_cast<std::size_t>(nb_max) : 0;
    for (std::size_t i = 0; i < std::min(room, layout.count); ++i)
        avances[i] = layout.letters[i].advance * layout.frame.width;
    return static_cast<INT>(layout.count);
}

INT grx_recup_contours_texte(const GRX_TEXTE* texte, DOUBLE tolerance, GRX_CONTOURS_TEXTE* contours) {
    if (texte == nullptr || !grx::has_known_size(contours)) return grx::refused(GRX_ECHEC_PARAMETRE, "texte, contours");
    grx::TextLayout layout;
    const INT result = grx::lay_out(*texte, layout);
    if (result < 0) return grx::refused(result, "texte");
    grx::at_shut_down(forget_asked);
    if (!grx::trace_text(layout, usable(tolerance), asked.value)) return GRX_ECHEC_MEMOIRE;
    grx::write_sized(contours, handed(layout));
    return result;
}
}
