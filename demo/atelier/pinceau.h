// From points of the sheet to requests of the library: rounded to pixels, in pieces that a request can carry, each thin
// line once. In a header, because it is called for every stroke of a large drawing.
#ifndef ATELIER_PINCEAU_H
#define ATELIER_PINCEAU_H

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <vector>

#include "rendu.h"
#include "traits.h"
#include "xt_gfx_f.h"

namespace atelier {

struct Pixel {
    int x = 0, y = 0;
    bool operator==(const Pixel&) const = default;
};

inline Pixel pixel(Point p) {
    const auto arrondi = [](double d) { return static_cast<int>(d + std::copysign(0.5, d)); };
    return {arrondi(p.x), arrondi(p.y)};
}

inline void met_en_pixels(std::vector<Pixel>& r, const std::vector<Point>& points) {
    r.clear();
    for (const Point p : points)
        if (const Pixel q = pixel(p); r.empty() || r.back() != q) r.push_back(q);
}

// Thin solid lines and points of one colour after the other, each drawn once: a second time shows nothing new as long
// as nothing else came between.
class DejaVus {
  public:
    DejaVus() : places_(kPlaces) {}
    void oublie() { ++suite_; }
    // Notes it. Of very many, some are forgotten.
    bool vu(Pixel p, Pixel q) {
        const Place neuve{cle(p) << 32 | cle(q), suite_};
        Place& place = places_[(neuve.cle * 0x9E3779B97F4A7C15U) >> kDecale];
        if (place == neuve) return true;
        place = neuve;
        return false;
    }

  private:
    static constexpr int kBits = 11, kDecale = 64 - kBits;
    static constexpr std::size_t kPlaces = 1U << kBits;
    struct Place {
        std::uint64_t cle = 0;
        unsigned suite = 0;
        bool operator==(const Place&) const = default;
    };
    // Sheets are less than 65536 pixels wide.
    static std::uint64_t cle(Pixel p) {
        return std::uint64_t{static_cast<std::uint16_t>(p.x)} << 16U | static_cast<std::uint16_t>(p.y);
    }

    std::vector<Place> places_;
    unsigned suite_ = 1;
};

// From pixels of the sheet to primitives on the screen.
class Pinceau {
  public:
    Pinceau(const Plume& plume, Ecart decalage) : plume_(plume), decalage_(decalage) {}
    ~Pinceau() { finit(); }
    Pinceau(const Pinceau&) = delete;
    Pinceau& operator=(const Pinceau&) = delete;

    void prend(int couleur, int trait, int epaisseur) {
        GRX_ATTRIBUTS_TRACER& a = plume_.attrib;
        if (a.coul_trace == couleur && a.type_trait == trait && a.epaisseur == epaisseur) return;
        finit();
        deja_.oublie();
        a.coul_trace = couleur;
        a.type_trait = trait;
        a.epaisseur = epaisseur;
    }
    int motif() const { return periode(plume_.attrib.type_trait); }

    void point(Pixel p) {
        if (plume_.attrib.type_trait != 0) return trace_point(p);
        if (!deja_.vu(p, p)) points_.push_back(p);
    }

    // Points of one colour go together, after the lines, which makes few requests of many.
    void finit() {
        for (const Pixel p : points_) trace_point(p);
        points_.clear();
    }

    // Of a solid line.
    void segment(Pixel p, Pixel q) {
        if (deja_.vu(p, q)) return;
        GRX_SEGMENT segment{};
        segment.nofen = plume_.nofen;
        segment.x1 = p.x + decalage_.x;
        segment.y1 = p.y + decalage_.y;
        segment.x2 = q.x + decalage_.x;
        segment.y2 = q.y + decalage_.y;
        segment.attrib = plume_.attrib;
        grx_trace_segment(segment);
    }

    void ligne(const std::vector<Point>& points) {
        met_en_pixels(pixels_, points);
        if (pixels_.size() == 1) return point(pixels_[0]);
        if (!fine()) return contour();
        for (std::size_t i = 0; i + 1 < pixels_.size(); ++i) segment(pixels_[i], pixels_[i + 1]);
    }

    void surface(const std::vector<Point>& points) {
        met_en_pixels(pixels_, points);
        if (pixels_.empty()) return;
        met_en_requete();
        if (requete_.size() > 2) grx_remplit_polygone(poly(requete_.data(), requete_.size()));
        // Thin surfaces keep an outline when they have less than a pixel of inside.
        pixels_.push_back(Pixel(pixels_.front()));
        contour();
    }

    // Thin and solid: all the same in one piece or in several, drawn once or more.
    bool fine() const { return plume_.attrib.epaisseur == 0 && plume_.attrib.type_trait == 0; }

  private:
    static constexpr std::size_t kPointsMax = 2000; // of one request

    void trace_point(Pixel p) const {
        GRX_POINT point{};
        point.nofen = plume_.nofen;
        point.x = p.x + decalage_.x;
        point.y = p.y + decalage_.y;
        point.attrib = plume_.attrib;
        grx_trace_point(point);
    }

    // Requests have a largest size: long lines go in several, each beginning where the last one ended.
    void contour() {
        met_en_requete();
        for (std::size_t i = 0; i + 1 < requete_.size(); i += kPointsMax - 1)
            grx_trace_polyline(poly(requete_.data() + i, std::min(kPointsMax, requete_.size() - i)));
    }

    void met_en_requete() {
        requete_.clear();
        for (const Pixel p : pixels_)
            requete_.push_back({static_cast<short>(p.x + decalage_.x), static_cast<short>(p.y + decalage_.y)});
    }

    GRX_POLY poly(GRX_POINT_POLY* points, std::size_t nombre) const {
        GRX_POLY p{};
        p.nofen = plume_.nofen;
        p.points = points;
        p.npoints = static_cast<INT>(nombre);
        p.attrib = plume_.attrib;
        return p;
    }

    Plume plume_;
    Ecart decalage_;
    DejaVus deja_;
    std::vector<Pixel> points_; // still to be drawn
    std::vector<Pixel> pixels_; // of the line at hand
    std::vector<GRX_POINT_POLY> requete_;
};

} // namespace atelier

#endif
