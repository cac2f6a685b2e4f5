#include "dxf_lecture.h"

#include <dxflib/dl_creationadapter.h>
#include <dxflib/dl_dxf.h>

#include <algorithm>
#include <optional>
#include <istream>
#include <streambuf>
#include <utility>

#include "courbes.h"
#include "police.h"
#include "texte.h"
#include "traits.h"

namespace atelier {

namespace {

constexpr int kCalqueGele = 1;
constexpr int kPolyligneFermee = 1;
constexpr int kRepetitionsMax = 32767;

enum JustificationH { kGauche = 0, kMilieuH = 1, kDroite = 2, kAligne = 3, kCentre = 4, kAjuste = 5 };
enum JustificationV { kBasV = 1, kMilieuV = 2, kHautV = 3 };
constexpr int kTexteRetourne = 2, kTexteRenverse = 4;

// The plane of an entity seen from above: the axes that follow from its extrusion direction.
Matrice plan_de(const DL_Extrusion& extrusion) {
    const double* n = extrusion.getDirection();
    const double l = std::hypot(n[0], n[1], n[2]);
    if (!(l > 0) || !std::isfinite(l)) return {};
    const double x = n[0] / l, y = n[1] / l, z = n[2] / l;
    constexpr double kPresque = 1.0 / 64;
    const bool vertical = std::abs(x) < kPresque && std::abs(y) < kPresque;
    // World Y, or world Z, times the direction gives the first axis; the direction times that one the second.
    double ax = vertical ? z : -y, ay = vertical ? 0 : x, az = vertical ? -x : 0;
    const double la = std::hypot(ax, ay, az);
    ax /= la;
    ay /= la;
    az /= la;
    return {ax, ay, y * az - z * ay, z * ax - x * az, 0, 0};
}

// The colour number without the sign that switches a layer off.
int numero(int couleur) {
    return couleur >= -kDuCalque && couleur <= kDuCalque ? std::abs(couleur) : kDuCalque;
}

class Lecture : public DL_CreationAdapter {
  public:
    Brut fait() {
        finit_polyligne();
        return std::move(brut_);
    }

    // --- tables ---------------------------------------------------------------------------------------------------

    void addLayer(const DL_LayerData& d) override {
        const DL_Attributes a = getAttributes();
        Calque c;
        c.couleur = numero(a.getColor());
        c.rgb = a.getColor24();
        c.trait = majuscules(a.getLinetype());
        c.poids = std::max(0, a.getWidth());
        c.visible = !d.off && a.getColor() >= 0 && (d.flags & kCalqueGele) == 0;
        brut_.calques[majuscules(d.name)] = c;
    }
    void addLinetypeDash(double longueur) override {
        if (std::isfinite(longueur)) tirets_.push_back(longueur);
    }
    void addLinetype(const DL_LinetypeData& d) override {
        brut_.motifs[majuscules(d.name)] = tirets_;
        tirets_.clear();
    }

    // --- blocks ---------------------------------------------------------------------------------------------------

    void addBlock(const DL_BlockData& d) override {
        finit_polyligne();
        Bloc& bloc = brut_.blocs[majuscules(d.name)];
        bloc = {{d.bpx, d.bpy}, {}};
        destination_ = &bloc.entites;
    }
    void endBlock() override {
        finit_polyligne();
        destination_ = &brut_.entites;
    }
    void addInsert(const DL_InsertData& d) override {
        Insertion i;
        i.bloc = majuscules(d.name);
        i.place = plan() * Matrice::translation({d.ipx, d.ipy}) * Matrice::rotation(radians(d.angle))
                  * Matrice::echelle(d.sx, d.sy);
        i.colonnes = std::clamp(d.cols, 1, kRepetitionsMax);
        i.rangees = std::clamp(d.rows, 1, kRepetitionsMax);
        i.pas_x = d.colSp;
        i.pas_y = d.rowSp;
        pose(std::move(i));
    }

    // --- lines and curves -----------------------------------------------------------------------------------------

    void addLine(const DL_LineData& d) override {
        Chemin c;
        c.aller({d.x1, d.y1});
        c.ligne({d.x2, d.y2});
        trait(c);
    }
    void addPoint(const DL_PointData& d) override {
        Chemin c;
        c.aller({d.x, d.y});
        pose(Figure{Genre::Point, c, 0});
    }
    void addCircle(const DL_CircleData& d) override { trait(cercle({d.cx, d.cy}, d.radius), plan()); }
    void addArc(const DL_ArcData& d) override {
        trait(arc_de_cercle({d.cx, d.cy}, d.radius, radians(d.angle1), radians(d.angle2)), plan());
    }
    void addEllipse(const DL_EllipseData& d) override {
        // Ellipses lie in the world; only the sense of their parameter depends on the side they are seen from.
        const double ratio = getExtrusion()->getDirection()[2] < 0 ? -d.ratio : d.ratio;
        trait(ellipse({d.cx, d.cy}, {d.mx, d.my}, ratio, d.angle1, d.angle2));
    }

    void addPolyline(const DL_PolylineData& d) override {
        finit_polyligne();
        polyligne_ = Polyligne{aspect(), plan(), (d.flags & kPolyligneFermee) != 0, {}};
    }
    void addVertex(const DL_VertexData& d) override {
        if (polyligne_) polyligne_->sommets.push_back({{d.x, d.y}, d.bulge});
    }
    void endSequence() override { finit_polyligne(); }

    void addSpline(const DL_SplineData& d) override {
        finit_spline();
        spline_ = Spline{aspect(), {}, {}};
        spline_->courbe.degre = d.degree <= 100 ? static_cast<int>(d.degree) : 0;
    }
    void addControlPoint(const DL_ControlPointData& d) override {
        if (!spline_) return;
        spline_->courbe.poles.push_back({d.x, d.y});
        spline_->courbe.poids.push_back(d.w);
    }
    void addKnot(const DL_KnotData& d) override {
        if (spline_) spline_->courbe.noeuds.push_back(d.k);
    }
    void addFitPoint(const DL_FitPointData& d) override {
        if (spline_) spline_->points.push_back({d.x, d.y});
    }
    void endEntity() override { finit_spline(); }

    // --- surfaces -------------------------------------------------------------------------------------------------

    void addSolid(const DL_SolidData& d) override { surface(d, {0, 1, 3, 2}, Genre::Plein, plan()); }
    void addTrace(const DL_TraceData& d) override { surface(d, {0, 1, 3, 2}, Genre::Plein, plan()); }
    void add3dFace(const DL_3dFaceData& d) override { surface(d, {0, 1, 2, 3}, Genre::Trait, {}); }

    // --- texts ----------------------------------------------------------------------------------------------------

    void addText(const DL_TextData& d) override {
        const TexteSimple t = decode_texte(d.text);
        const Chemin strokes = traits(t);
        if (strokes.empty() || !(d.height > 0)) return;
        const double k = d.height / police::kHauteur, longueur = police::largeur(t.texte);
        double kx = k * (d.xScaleFactor > 0 ? d.xScaleFactor : 1), ky = k, angle = d.angle;
        Point place{d.ipx, d.ipy}, appui{0, 0};
        const bool second = !std::isnan(d.apx) && !std::isnan(d.apy);
        if (second && (d.hJustification == kAligne || d.hJustification == kAjuste) && longueur > 0) {
            const Point base = Point{d.apx, d.apy} - place;
            angle = std::atan2(base.y, base.x);
            kx = norme(base) / longueur;
            if (d.hJustification == kAligne) ky = kx;
        } else if (second && (d.hJustification != kGauche || d.vJustification != 0)) {
            place = {d.apx, d.apy};
            appui = {appui_h(d.hJustification) * longueur, appui_v(d.hJustification, d.vJustification)};
        }
        if ((d.textGenerationFlags & kTexteRetourne) != 0) kx = -kx;
        if ((d.textGenerationFlags & kTexteRenverse) != 0) ky = -ky;
        ecrit(strokes,
            Matrice::translation(place) * Matrice::rotation(angle) * Matrice::echelle(kx, ky)
                * Matrice::translation(-1 * appui),
            d.height);
    }
    void addAttribute(const DL_AttributeData& d) override { addText(d); }

    void addMTextChunk(const std::string& morceau) override { morceaux_ += morceau; }
    void addMText(const DL_MTextData& d) override {
        const std::string texte = std::exchange(morceaux_, {}) + d.text;
        if (!(d.height > 0)) return;
        const double k = d.height / police::kHauteur;
        std::vector<TexteSimple> lignes = decode_paragraphe(texte);
        if (d.width > 0) lignes = coupe(lignes, d.width / k);
        const double pas = police::kInterligne * (d.lineSpacingFactor > 0 ? d.lineSpacingFactor : 1);
        const Matrice place =
            Matrice::translation({d.ipx, d.ipy}) * Matrice::rotation(d.angle) * Matrice::echelle(k, k);
        const int rang = std::clamp(d.attachmentPoint, 1, 9) - 1;
        const double haut = (rang / 3) / 2.0 * (police::kHauteur + pas * static_cast<double>(lignes.size() - 1));
        double y = haut - police::kHauteur;
        for (const TexteSimple& ligne : lignes) {
            const double x = -(rang % 3) / 2.0 * police::largeur(ligne.texte);
            ecrit(traits(ligne), place * Matrice::translation({x, y}), d.height);
            y -= pas;
        }
    }

  private:
    struct Polyligne {
        Aspect aspect;
        Matrice plan;
        bool fermee = false;
        std::vector<Sommet> sommets;
    };
    struct Spline {
        Aspect aspect;
        Nurbs courbe;
        std::vector<Point> points;
    };

    Aspect aspect() {
        const DL_Attributes a = getAttributes();
        Aspect r;
        r.calque = a.getLayer().empty() ? "0" : majuscules(a.getLayer());
        r.couleur = numero(a.getColor());
        r.rgb = a.getColor24();
        r.trait = majuscules(a.getLinetype());
        r.poids = a.getWidth();
        return r;
    }

    Matrice plan() { return plan_de(*getExtrusion()); }

    // How far along the text, or up it, its anchor lies.
    static double appui_h(int h) { return h == kDroite ? 1 : h == kMilieuH || h == kCentre ? 0.5 : 0; }
    static double appui_v(int h, int v) {
        if (h == kCentre || v == kMilieuV) return police::kHauteur / 2;
        return v == kHautV ? police::kHauteur : v == kBasV ? police::kBas : 0;
    }

    void trait(const Chemin& chemin, const Matrice& m = {}) { pose(Figure{Genre::Trait, place(chemin, m), 0}); }

    static Chemin place(const Chemin& chemin, const Matrice& m) {
        Chemin r;
        r.ajoute(chemin, m);
        return r;
    }

    void ecrit(const Chemin& strokes, const Matrice& m, double hauteur) {
        pose(Figure{Genre::Texte, place(strokes, plan() * m), hauteur});
    }

    void surface(const DL_TraceData& d, std::array<int, 4> ordre, Genre genre, const Matrice& m) {
        Chemin c;
        for (const int i : ordre) c.ligne({d.x[i], d.y[i]});
        c.ferme();
        pose(Figure{genre, place(c, m), 0});
    }

    template <class Contenu>
    void pose(Contenu contenu) {
        finit_polyligne();
        destination_->push_back({aspect(), std::move(contenu)});
    }

    // The vertices of a polyline come after it, and nothing tells reliably which one is the last.
    void finit_polyligne() {
        if (!polyligne_) return;
        const Polyligne p = *std::exchange(polyligne_, {});
        const Chemin c = place(polyligne(p.sommets, p.fermee), p.plan);
        if (!c.empty()) destination_->push_back({p.aspect, Figure{Genre::Trait, c, 0}});
    }

    void finit_spline() {
        if (!spline_) return;
        const Spline s = *std::exchange(spline_, {});
        Chemin c = nurbs(s.courbe);
        if (c.empty()) c = courbe_par(s.points);
        if (c.empty())
            ++brut_.non_dessinees["SPLINE"];
        else
            destination_->push_back({s.aspect, Figure{Genre::Trait, c, 0}});
    }

    Brut brut_;
    std::vector<Entite>* destination_ = &brut_.entites;
    std::vector<double> tirets_;
    std::optional<Polyligne> polyligne_;
    std::optional<Spline> spline_;
    std::string morceaux_;
};

} // namespace

namespace {

// A text read piece by piece, so that it can be told how far the reading is.
class TexteSuivi : public std::streambuf {
  public:
    TexteSuivi(std::string texte, Suivi& suivi) : texte_(std::move(texte)), suivi_(suivi) {}

  protected:
    int_type underflow() override {
        constexpr std::size_t kMorceau = 128;
        suivi_.fait(lu_, texte_.size());
        if (lu_ == texte_.size()) return traits_type::eof();
        char* const debut = texte_.data() + lu_;
        const std::size_t n = std::min(kMorceau, texte_.size() - lu_);
        lu_ += n;
        setg(debut, debut, debut + n);
        return traits_type::to_int_type(*debut);
    }

  private:
    std::string texte_;
    Suivi& suivi_;
    std::size_t lu_ = 0;
};

Brut interprete(std::string&& texte, Suivi& suivi) {
    Lecture lecture;
    suivi.etape(kReduit, kInterprete);
    TexteSuivi octets(std::move(texte), suivi);
    std::istream flux(&octets);
    flux.exceptions(std::ios::badbit); // lets Abandon through
    DL_Dxf dxf;
    if (!dxf.in(flux, &lecture)) throw ErreurLecture("n'est pas un dessin DXF");
    return lecture.fait();
}

Dessin lit_reduit(DxfReduit&& lu, Suivi& suivi) {
    Brut brut = interprete(std::move(lu.texte), suivi);
    brut.unites = lu.unites;
    for (const auto& [nom, nombre] : lu.non_dessinees) brut.non_dessinees[nom] += nombre;
    brut.remarques = std::move(lu.remarques);
    return eclate(brut, suivi);
}

// The text of the file goes before it is interpreted.
DxfReduit reduit_fichier(const std::string& chemin, Suivi& suivi) {
    return reduit(lit_fichier(chemin), suivi);
}

} // namespace

Dessin lit_texte(std::string_view texte, Suivi suivi) {
    return lit_reduit(reduit(texte, suivi), suivi);
}

Dessin lit_dessin(const std::string& chemin, Suivi suivi) {
    return lit_reduit(reduit_fichier(chemin, suivi), suivi);
}

std::string bilan(const Compte& non_dessinees) {
    constexpr std::size_t kNomsMax = 20;
    if (non_dessinees.empty()) return {};
    long total = 0;
    std::size_t noms = 0;
    std::string detail;
    for (const auto& [nom, nombre] : non_dessinees) {
        total += nombre;
        if (++noms <= kNomsMax) detail += (noms > 1 ? ", " : "") + nom + ' ' + std::to_string(nombre);
    }
    if (noms > kNomsMax) detail += ", ...";
    return std::to_string(total) + (total > 1 ? " entites non dessinees: " : " entite non dessinee: ") + detail;
}

} // namespace atelier
