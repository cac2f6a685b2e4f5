// Reading of drawings: each kind of entity, what layers and blocks pass on, broken and hostile files.
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <random>
#include <sstream>

#include "couleurs.h"
#include "dxf_lecture.h"
#include "xt_gfx_t.h"

namespace atelier {

namespace {

// "0 LINE 8 0 ..." written with one blank between code and value and a bar between pairs.
std::string paires(const std::string& court) {
    std::string r;
    std::istringstream flux(court);
    for (std::string paire; std::getline(flux, paire, '|');) {
        const std::size_t blanc = paire.find(' ');
        r += paire.substr(0, blanc) + '\n' + (blanc == std::string::npos ? "" : paire.substr(blanc + 1)) + '\n';
    }
    return r;
}

std::string fichier(const std::string& entites, const std::string& blocs = "", const std::string& tables = "",
    const std::string& entete = "") {
    std::string r;
    for (const auto& [nom, contenu] : {std::pair("HEADER", entete), std::pair("TABLES", tables),
             std::pair("BLOCKS", blocs), std::pair("ENTITIES", entites)})
        r += paires(std::string("0 SECTION|2 ") + nom) + paires(contenu) + paires("0 ENDSEC");
    return r + paires("0 EOF");
}

Dessin lu(const std::string& entites, const std::string& blocs = "", const std::string& tables = "") {
    return lit_texte(fichier(entites, blocs, tables));
}

void proche(Point p, Point q, double ecart = 1e-6) {
    EXPECT_NEAR(p.x, q.x, ecart);
    EXPECT_NEAR(p.y, q.y, ecart);
}

void boite_proche(const Boite& b, Point min, Point max, double ecart = 1e-6) {
    proche(b.min, min, ecart);
    proche(b.max, max, ecart);
}

const Objet& seul(const Dessin& d) {
    if (d.objets.size() != 1) throw std::runtime_error(std::to_string(d.objets.size()) + " objects");
    return d.objets.front();
}

std::vector<Point> points(const Objet& o) {
    return {o.chemin.points().begin(), o.chemin.points().end()};
}

Rgb couleur(const Dessin& d, const Objet& o) {
    return d.couleurs.at(static_cast<std::size_t>(o.couleur));
}

Boite contour(const Objet& o) {
    Boite b;
    o.chemin.aplatit({}, 1e-3, [&](const std::vector<Point>& trait) {
        for (const Point p : trait) b.ajoute(p);
    });
    return b;
}

} // namespace

// --- entities -----------------------------------------------------------------------------------------------------

TEST(Lecture, Line) {
    const Dessin d = lu("0 LINE|8 0|10 1|20 2|11 30|21 40");
    boite_proche(seul(d).boite, {1, 2}, {30, 40});
    EXPECT_EQ(seul(d).genre, Genre::Trait);
}

TEST(Lecture, CircleAndArc) {
    boite_proche(contour(seul(lu("0 CIRCLE|8 0|10 5|20 5|40 3"))), {2, 2}, {8, 8}, 2e-3);
    boite_proche(contour(seul(lu("0 ARC|8 0|10 0|20 0|40 10|50 0|51 90"))), {0, 0}, {10, 10}, 2e-3);
}

TEST(Lecture, EllipseInRadians) {
    boite_proche(
        contour(seul(lu("0 ELLIPSE|8 0|10 0|20 0|11 0|21 20|40 0.5|41 0|42 6.283185307"))), {-10, -20}, {10, 20}, 2e-3);
    const Boite demi = contour(seul(lu("0 ELLIPSE|8 0|10 0|20 0|11 20|21 0|40 0.5|41 0|42 3.141592654")));
    boite_proche(demi, {-20, 0}, {20, 10}, 2e-3);
}

TEST(Lecture, PolylinesOfBothKinds) {
    const Dessin neuve = lu("0 LWPOLYLINE|8 0|90 3|70 1|10 0|20 0|10 10|20 0|42 1|10 10|20 10");
    boite_proche(contour(seul(neuve)), {0, 0}, {15, 10}, 2e-3);
    const Dessin vieille = lu("0 POLYLINE|8 0|66 1|70 1|0 VERTEX|8 0|10 0|20 0|0 VERTEX|8 0|10 10|20 0|42 1|"
                              "0 VERTEX|8 0|10 10|20 10|0 SEQEND|8 0|0 LINE|8 0|10 0|20 0|11 1|21 1");
    ASSERT_EQ(vieille.objets.size(), 2U);
    EXPECT_EQ(
        points(*std::ranges::max_element(vieille.objets, {}, [](const Objet& o) { return o.chemin.nb_points(); })),
        points(seul(neuve)));
}

TEST(Lecture, VerticesThatGuideASmoothedPolylineAreNotDrawn) {
    const Dessin d = lu("0 POLYLINE|8 0|66 1|70 4|0 VERTEX|8 0|10 0|20 0|70 8|0 VERTEX|8 0|10 50|20 99|70 16|"
                        "0 VERTEX|8 0|10 9|20 0|70 8|0 SEQEND|8 0");
    EXPECT_EQ(seul(d).boite.max.y, 0);
}

TEST(Lecture, Spline) {
    const Dessin d = lu("0 SPLINE|8 0|70 8|71 3|72 8|73 4|40 0|40 0|40 0|40 0|40 1|40 1|40 1|40 1|"
                        "10 0|20 0|10 0|20 10|10 10|20 10|10 10|20 0");
    boite_proche(contour(seul(d)), {0, 0}, {10, 7.5}, 2e-3);
}

TEST(Lecture, SplineByItsFitPoints) {
    const Dessin d = lu("0 SPLINE|8 0|70 0|71 3|74 3|11 0|21 0|11 5|21 5|11 10|21 0");
    proche(seul(d).chemin.points().back(), {10, 0});
}

TEST(Lecture, SolidsTakeTheirCornersCrosswise) {
    const Dessin d = lu("0 SOLID|8 0|10 0|20 0|11 10|21 0|12 0|22 10|13 10|23 10");
    EXPECT_EQ(seul(d).genre, Genre::Plein);
    EXPECT_EQ(points(seul(d)), (std::vector<Point>{{0, 0}, {10, 0}, {10, 10}, {0, 10}, {0, 0}}));
}

TEST(Lecture, FacesAreOutlinesAndTracesSurfaces) {
    const std::string coins = "|8 0|10 0|20 0|11 10|21 0|12 10|22 10|13 0|23 10";
    EXPECT_EQ(seul(lu("0 3DFACE" + coins)).genre, Genre::Trait);
    EXPECT_EQ(seul(lu("0 TRACE" + coins)).genre, Genre::Plein);
}

TEST(Lecture, Points) {
    const Dessin d = lu("0 POINT|8 0|10 3|20 4");
    EXPECT_EQ(seul(d).genre, Genre::Point);
    proche(seul(d).boite.min, {3, 4});
}

TEST(Lecture, TextStandsWhereItIsAnchored) {
    const std::string debut = "0 TEXT|8 0|10 100|20 50|40 10|1 E|";
    boite_proche(seul(lu(debut + "50 0")).boite, {100, 50}, {105, 60});
    boite_proche(seul(lu(debut + "50 90")).boite, {90, 50}, {100, 55});
    boite_proche(seul(lu(debut + "41 2")).boite, {100, 50}, {110, 60});
    boite_proche(seul(lu(debut + "72 1|11 200|21 0")).boite, {197.5, 0}, {202.5, 10});
    boite_proche(seul(lu(debut + "72 2|11 200|21 0")).boite, {195, 0}, {200, 10});
    boite_proche(seul(lu(debut + "72 4|11 200|21 0")).boite, {197.5, -5}, {202.5, 5});
    boite_proche(seul(lu(debut + "72 0|73 3|11 200|21 0")).boite, {200, -10}, {205, 0});
    boite_proche(seul(lu(debut + "72 5|11 110|21 50")).boite, {100, 50}, {110, 60});
    boite_proche(seul(lu(debut + "72 3|11 110|21 50")).boite, {100, 50}, {110, 70});
    boite_proche(seul(lu(debut + "71 2")).boite, {95, 50}, {100, 60});
    EXPECT_DOUBLE_EQ(seul(lu(debut + "50 0")).hauteur, 10);
}

TEST(Lecture, ParagraphStandsAroundItsAnchor) {
    const std::string debut = "0 MTEXT|8 0|10 0|20 0|40 10|1 E\\PE|71 ";
    EXPECT_EQ(lu(debut + "1").objets.size(), 2U);
    boite_proche(lu(debut + "1").boite, {0, -26}, {5, 0});
    boite_proche(lu(debut + "5").boite, {-2.5, -13}, {2.5, 13});
    boite_proche(lu(debut + "9").boite, {-5, 0}, {0, 26});
    boite_proche(lu(debut + "7|50 90").boite, {-26, 0}, {0, 5});
    boite_proche(lu(debut + "7|11 0|21 1|31 0").boite, {-26, 0}, {0, 5});
}

TEST(Lecture, LongParagraphsComeInChunks) {
    const Dessin d = lu("0 MTEXT|8 0|10 0|20 0|40 10|71 7|3 EEE|3 EE|1 E");
    EXPECT_NEAR(seul(d).boite.max.x, 6 * 5 + 5 * 2, 1e-6);
}

TEST(Lecture, SeenFromBelowIsMirrored) {
    boite_proche(contour(seul(lu("0 CIRCLE|8 0|10 5|20 5|40 3|210 0|220 0|230 -1"))), {-8, 2}, {-2, 8}, 2e-3);
    boite_proche(contour(seul(lu("0 ARC|8 0|10 0|20 0|40 10|50 0|51 90|210 0|220 0|230 -1"))), {-10, 0}, {0, 10}, 2e-3);
    boite_proche(contour(seul(lu("0 CIRCLE|8 0|10 0|20 0|40 3|210 0|220 -1|230 0"))), {-3, 0}, {3, 0}, 2e-3);
}

// --- layers -------------------------------------------------------------------------------------------------------

namespace {

const char* const kCalques = "0 TABLE|2 LTYPE|70 1|0 LTYPE|2 Maison|70 0|3 x|72 65|73 4|40 1|49 10|49 -5|49 0|49 -5|"
                             "0 ENDTAB|0 TABLE|2 LAYER|70 9|"
                             "0 LAYER|2 Rouge|70 0|62 1|6 MAISON|370 70|0 LAYER|2 ETEINT|70 0|62 -3|6 CONTINUOUS|"
                             "0 LAYER|2 GELE|70 1|62 3|6 CONTINUOUS|0 LAYER|2 VERT|70 0|62 3|6 CONTINUOUS|0 ENDTAB";
const char* const kSegment = "|10 0|20 0|11 9|21 0";

} // namespace

TEST(Calques, GiveColourLineTypeAndWeight) {
    const Dessin d = lu(std::string("0 LINE|8 ROUGE") + kSegment, "", kCalques);
    EXPECT_EQ(couleur(d, seul(d)), couleur_numero(1));
    EXPECT_EQ(seul(d).trait, GRX_TRAIT_MIXTE_1_POINT);
    EXPECT_EQ(seul(d).epaisseur, 2);
}

TEST(Calques, WhatAnEntitySaysItselfIsStronger) {
    const Dessin d = lu(std::string("0 LINE|8 rouge|62 4|6 Continuous|370 13") + kSegment, "", kCalques);
    EXPECT_EQ(couleur(d, seul(d)), couleur_numero(4));
    EXPECT_EQ(seul(d).trait, GRX_TRAIT_CONTINU);
    EXPECT_EQ(seul(d).epaisseur, 0);
    const Dessin vraie = lu(std::string("0 LINE|8 ROUGE|62 4|420 1097983") + kSegment, "", kCalques);
    EXPECT_EQ(couleur(vraie, seul(vraie)), couleur_vraie(1097983));
}

TEST(Calques, OffAndFrozenOnesAreNotSeen) {
    EXPECT_TRUE(
        lu(std::string("0 LINE|8 ETEINT") + kSegment + "|0 LINE|8 GELE" + kSegment, "", kCalques).objets.empty());
}

TEST(Calques, UnknownOnesAreDrawnPlain) {
    const Dessin d = lu(std::string("0 LINE|8 NULLE PART") + kSegment);
    EXPECT_EQ(couleur(d, seul(d)), kAvantPlan);
}

TEST(Calques, PaperSpaceIsLeftOut) {
    EXPECT_TRUE(lu(std::string("0 LINE|8 0|67 1") + kSegment).objets.empty());
}

TEST(Calques, FillsComeFirstThenBrokenLinesThenSolidOnes) {
    const Dessin d = lu(std::string("0 TEXT|8 0|10 0|20 0|40 5|1 A|0 LINE|8 0") + kSegment + "|0 LINE|8 0|6 DASHED"
                        + kSegment + "|0 SOLID|8 0|10 0|20 0|11 1|21 0|12 0|22 1|13 0|23 1");
    ASSERT_EQ(d.objets.size(), 4U);
    EXPECT_EQ(d.objets[0].genre, Genre::Plein);
    EXPECT_EQ(d.objets[1].trait, GRX_TRAIT_POINTILLE);
    EXPECT_EQ(d.objets[2].trait, GRX_TRAIT_CONTINU);
    EXPECT_EQ(d.objets[3].genre, Genre::Texte);
}

// --- blocks -------------------------------------------------------------------------------------------------------

namespace {

std::string bloc(const std::string& nom, const std::string& contenu, const std::string& base = "|10 0|20 0") {
    return "0 BLOCK|8 0|2 " + nom + "|70 0" + base + "|3 " + nom + "|" + contenu + "|0 ENDBLK|8 0|";
}

const std::string kUn = "0 LINE|8 0|62 0|10 0|20 0|11 1|21 0"; // along x, one long, coloured as the insertion

} // namespace

TEST(Blocs, InsertionPlacesScalesAndTurns) {
    const Dessin d = lu("0 INSERT|8 0|2 b|10 100|20 10|41 4|42 2|50 90", bloc("B", kUn));
    proche(seul(d).chemin.points()[0], {100, 10});
    proche(seul(d).chemin.points()[1], {100, 14});
}

TEST(Blocs, BasePointGoesToTheInsertionPoint) {
    const Dessin d = lu("0 INSERT|8 0|2 B|10 100|20 10|41 2", bloc("B", kUn, "|10 1|20 0"));
    proche(seul(d).chemin.points()[1], {100, 10});
    proche(seul(d).chemin.points()[0], {98, 10});
}

TEST(Blocs, NestedOnesMultiply) {
    const std::string blocs = bloc("DEHORS", "0 INSERT|8 0|2 DEDANS|10 10|20 0|41 3|42 3|50 90") + bloc("DEDANS", kUn);
    const Dessin d = lu("0 INSERT|8 0|2 DEHORS|10 0|20 0|41 2|42 -1|50 0", blocs);
    proche(seul(d).chemin.points()[0], {20, 0});
    proche(seul(d).chemin.points()[1], {20, -3});
}

TEST(Blocs, RowsAndColumnsTurnWithTheInsertion) {
    const Dessin d = lu("0 INSERT|8 0|2 B|10 0|20 0|50 90|70 3|71 2|44 10|45 100", bloc("B", kUn));
    ASSERT_EQ(d.objets.size(), 6U);
    boite_proche(d.boite, {-100, 0}, {0, 21});
}

TEST(Blocs, ColourLineTypeAndLayerComeFromTheInsertion) {
    const std::string deux = kUn + "|0 CIRCLE|8 VERT|10 0|20 0|40 1|0 POINT|8 0|10 0|20 0";
    const Dessin d = lu("0 INSERT|8 ROUGE|62 5|2 B|10 0|20 0", bloc("B", deux), kCalques);
    ASSERT_EQ(d.objets.size(), 3U);
    const auto couleur_de = [&](Genre genre, bool rond) {
        for (const Objet& o : d.objets)
            if (o.genre == genre && (o.chemin.nb_points() > 2) == rond) return couleur(d, o);
        return Rgb{-1, -1, -1};
    };
    EXPECT_EQ(couleur_de(Genre::Trait, false), couleur_numero(5)); // as the insertion
    EXPECT_EQ(couleur_de(Genre::Trait, true), couleur_numero(3));  // as its own layer
    EXPECT_EQ(couleur_de(Genre::Point, false), couleur_numero(1)); // layer 0: as the layer of the insertion
}

TEST(Blocs, AHiddenLayerHidesWhatIsInsertedOnIt) {
    EXPECT_TRUE(lu("0 INSERT|8 GELE|2 B|10 0|20 0", bloc("B", kUn), kCalques).objets.empty());
}

TEST(Blocs, MissingOnesAreCounted) {
    EXPECT_EQ(lu("0 INSERT|8 0|2 RIEN|10 0|20 0").non_dessinees, (Compte{{"INSERT", 1}}));
}

TEST(Blocs, ABlockWithinItselfEnds) {
    const std::string blocs = bloc("A", kUn + "|0 INSERT|8 0|2 B|10 1|20 0") + bloc("B", "0 INSERT|8 0|2 A|10 1|20 0");
    const Dessin d = lu("0 INSERT|8 0|2 A|10 0|20 0", blocs);
    EXPECT_EQ(d.objets.size(), 1U);
    EXPECT_EQ(d.non_dessinees, (Compte{{"INSERT", 1}}));
}

TEST(Blocs, ExplodingOnesAreCutShort) {
    std::string blocs = bloc("B0", kUn);
    for (int i = 1; i < 12; ++i)
        blocs += bloc("B" + std::to_string(i),
            "0 INSERT|8 0|2 B" + std::to_string(i - 1) + "|10 0|20 0|70 30000|71 30000|44 1|45 1");
    const auto debut = std::chrono::steady_clock::now();
    const Dessin d = lu("0 INSERT|8 0|2 B11|10 0|20 0", blocs);
    EXPECT_LT(std::chrono::steady_clock::now() - debut, std::chrono::seconds(20));
    ASSERT_FALSE(d.remarques.empty());
    EXPECT_NE(d.remarques.back().find("trop grand"), std::string::npos);
}

TEST(Blocs, AttributesAreTextsAndHiddenOnesAreNot) {
    const std::string texte = "|8 0|10 0|20 0|40 5|1 N12|2 NUMERO|70 ";
    const Dessin d = lu("0 INSERT|8 0|66 1|2 B|10 0|20 0|0 ATTRIB" + texte + "0|0 ATTRIB" + texte + "1|0 SEQEND|8 0",
        bloc("B", "0 ATTDEF" + texte + "0"));
    EXPECT_EQ(seul(d).genre, Genre::Texte);
    EXPECT_TRUE(d.non_dessinees.empty());
}

TEST(Blocs, DimensionsAreDrawnByTheirBlock) {
    const Dessin d = lu("0 DIMENSION|8 0|2 *D1|10 5|20 5|11 9|21 9|70 32|1 |13 0|23 0|14 9|24 0", bloc("*D1", kUn));
    boite_proche(seul(d).boite, {0, 0}, {1, 0});
}

// --- what is not drawn --------------------------------------------------------------------------------------------

TEST(Bilan, CountsByKind) {
    const Dessin d =
        lu("0 HATCH|8 0|91 4000000000|93 99999999|0 IMAGE|8 0|0 HATCH|8 0|0 XLINE|8 0|10 0|20 0|11 1|21 0");
    EXPECT_EQ(bilan(d.non_dessinees), "4 entites non dessinees: HATCH 2, IMAGE 1, XLINE 1");
    EXPECT_EQ(bilan({{"HATCH", 1}}), "1 entite non dessinee: HATCH 1");
    EXPECT_EQ(bilan({}), "");
}

TEST(Bilan, MeshesAreCountedOnceAndTheirVerticesSkipped) {
    const Dessin d = lu("0 POLYLINE|8 0|66 1|70 64|0 VERTEX|8 0|10 1|20 1|70 192|0 SEQEND|8 0|0 POINT|8 0|10 0|20 0");
    EXPECT_EQ(seul(d).genre, Genre::Point);
    EXPECT_EQ(d.non_dessinees, (Compte{{"POLYLINE", 1}}));
}

TEST(Bilan, StrangeNamesAreShownSafely) {
    const Dessin d = lu("0 \x1B[31mX|8 0|0 " + std::string(300, 'Z') + "|8 0");
    ASSERT_EQ(d.non_dessinees.size(), 2U);
    for (const auto& [nom, nombre] : d.non_dessinees) {
        EXPECT_LE(nom.size(), 24U);
        EXPECT_TRUE(std::ranges::all_of(nom, [](char c) { return c > 32 && c < 127; })) << nom;
    }
}

TEST(Bilan, CoordinatesBeyondMeasureAreCounted) {
    EXPECT_EQ(lu("0 LINE|8 0|10 1e300|20 0|11 0|21 0").non_dessinees.size(), 1U);
    EXPECT_TRUE(lu("0 CIRCLE|8 0|10 0|20 0|40 1e308").objets.empty());
}

// --- broken files -------------------------------------------------------------------------------------------------

namespace {

std::string raison(const std::string& texte) {
    try {
        lit_texte(texte);
    } catch (const ErreurLecture& e) {
        return e.what();
    }
    return "";
}

std::string maison() {
    return lit_fichier(ATELIER_PLAN);
}

} // namespace

TEST(Casse, EachReasonIsTold) {
    EXPECT_NE(raison("").find("vide"), std::string::npos);
    EXPECT_NE(raison("Bonjour,\nceci n'est pas un plan.\n").find("n'est pas un dessin DXF"), std::string::npos);
    EXPECT_NE(raison(std::string("\x7F\x45\x4C\x46\0\0\1\2", 8)).find("binaire"), std::string::npos);
    EXPECT_NE(raison(paires("0 SECTION|2 HEADER|0 ENDSEC|0 EOF")).find("ENTITIES"), std::string::npos);
    EXPECT_THROW(lit_fichier("/nulle/part.dxf"), ErreurLecture);
    EXPECT_THROW(lit_fichier("/"), ErreurLecture);
    EXPECT_THROW(lit_fichier("/dev/null"), ErreurLecture);
}

TEST(Casse, LineEndsOfEverySystem) {
    const std::string texte = fichier("0 POINT|8 0|10 3|20 4");
    std::string dos, mac;
    for (const char c : texte) {
        dos += c == '\n' ? "\r\n" : std::string(1, c);
        mac += c == '\n' ? '\r' : c;
    }
    for (const std::string& t : {dos, mac, "\xEF\xBB\xBF" + texte, "999\nun commentaire\n" + texte})
        proche(seul(lit_texte(t)).boite.min, {3, 4});
}

TEST(Casse, WhatCameBeforeTheDamageIsDrawn) {
    const std::string texte = fichier("0 POINT|8 0|10 3|20 4");
    const Dessin court = lit_texte(texte.substr(0, texte.find("ENDSEC", texte.find("POINT"))));
    EXPECT_EQ(court.objets.size(), 1U);
    EXPECT_NE(court.remarques.at(0).find("incomplet"), std::string::npos);
    const Dessin sale = lit_texte(fichier("0 POINT|8 0|10 3|20 4|abc def|0 POINT|8 0|10 9|20 9"));
    EXPECT_EQ(sale.objets.size(), 1U);
    EXPECT_NE(sale.remarques.back().find("illisible"), std::string::npos);
}

TEST(Casse, CountsThatLieDoNoHarm) {
    for (const char* n : {"-1", "0", "2000000000", "99999999999", "x"}) {
        const std::string nombre = n;
        EXPECT_EQ(lu("0 LWPOLYLINE|8 0|90 " + nombre + "|10 0|20 0|10 1|20 1").objets.size(), 1U) << n;
        EXPECT_EQ(lu("0 SPLINE|8 0|71 3|72 " + nombre + "|73 " + nombre + "|74 " + nombre
                      + "|40 0|10 0|20 0|10 1|20 1|10 2|20 0|10 3|20 1|11 0|21 0")
                      .objets.size(),
            1U)
            << n;
    }
}

TEST(Casse, WhatIsNoNumberReadsAsNought) {
    proche(seul(lu("0 POINT|8 0|10 nan|20 ")).boite.min, {0, 0});
    proche(seul(lu("0 LWPOLYLINE|8 0|90 2|10 1|10 2|20 5")).chemin.points()[0], {1, 0});
    proche(seul(lu("0 SPLINE|8 0|71 1|10 1|10 2|20 5|41 0.5")).chemin.points()[0], {1, 0});
    EXPECT_EQ(couleur(lu("0 POINT|8 0|62 -2147483648|10 1|20 1"), Objet{}), kAvantPlan);
}

TEST(Casse, EndlessLinesAreCut) {
    const std::string longue(5'000'000, 'A');
    EXPECT_EQ(lu("0 TEXT|8 " + longue + "|10 0|20 0|40 1|1 " + longue).objets.size(), 1U);
}

TEST(Casse, EntitiesWithoutTheirNumbersAreNoTrouble) {
    for (const char* nom : {"LINE", "LWPOLYLINE", "POLYLINE", "VERTEX", "SEQEND", "ARC", "CIRCLE", "ELLIPSE", "SPLINE",
             "POINT", "SOLID", "TRACE", "3DFACE", "TEXT", "MTEXT", "INSERT", "ATTRIB", "DIMENSION", "BLOCK", "ENDBLK"})
        EXPECT_NO_THROW(lu(std::string("0 ") + nom + "|0 " + nom + "|8 0|0 POINT|8 0|10 0|20 0")) << nom;
}

// --- how far it is ------------------------------------------------------------------------------------------------

std::string beaucoup() {
    std::string entites;
    for (int i = 0; i < 8000; ++i) {
        const std::string n = std::to_string(i);
        entites += (i > 0 ? "|" : "") + ("0 LINE|8 0|10 " + n + "|20 0|11 " + n + "|21 5");
    }
    return fichier(entites);
}

TEST(Avancement, IsToldFromTheBeginningToTheLastStage) {
    std::vector<double> parts;
    lit_texte(beaucoup(), Suivi([&](double part) { return parts.push_back(part), true; }));
    ASSERT_GT(parts.size(), 12U);
    EXPECT_TRUE(std::ranges::is_sorted(parts));
    EXPECT_EQ(parts.front(), 0);
    EXPECT_EQ(parts.back(), kEclate);
    const auto entre = [&](double debut, double fin) {
        return std::ranges::count_if(parts, [&](double p) { return debut < p && p < fin; });
    };
    EXPECT_GT(entre(0, kPairesLues), 1);
    EXPECT_GT(entre(kPairesLues, kReduit), 1);
    EXPECT_GT(entre(kReduit, kInterprete), 1);
    EXPECT_GT(entre(kInterprete, kEclate), 1);
}

TEST(Avancement, ReadingCanBeGivenUpAtAnyPoint) {
    const std::string texte = beaucoup();
    for (const double jusqu_a : {0.0, 0.05, 0.2, 0.5, 0.8, kEclate}) {
        const auto lecture = [&] { lit_texte(texte, Suivi([&](double part) { return part < jusqu_a; })); };
        EXPECT_THROW(lecture(), Suivi::Abandon) << jusqu_a;
    }
}

TEST(Casse, DamagedPlansNeverDoHarm) {
    const std::string plan = maison();
    std::mt19937 hasard(20240229);
    const auto tire = [&](std::size_t n) { return std::uniform_int_distribution<std::size_t>(0, n - 1)(hasard); };
    const std::vector<std::string> mauvais{"-1", "0", "1e308", "nan", "inf", "2147483648", "INSERT", "SPLINE", "BLOCK",
        "ENDSEC", "SECTION", "%%", "\\", "\\S", "\\U+", "", "72", "90"};
    for (int i = 0; i < 150; ++i) {
        std::string casse = plan;
        for (std::size_t k = 0; k <= tire(40); ++k) {
            const std::size_t ligne = casse.find('\n', tire(casse.size()));
            if (ligne == std::string::npos) continue;
            const std::size_t fin = std::min(casse.find('\r', ligne), casse.size());
            casse.replace(ligne + 1, fin - ligne - 1, mauvais[tire(mauvais.size())]);
        }
        if (i % 3 == 0) casse.resize(tire(casse.size()));
        if (i % 5 == 0 && !casse.empty()) casse[tire(casse.size())] = static_cast<char>(tire(256));
        try {
            const Dessin d = lit_texte(casse);
            for (const Objet& o : d.objets) ASSERT_TRUE(o.chemin.fini());
        } catch (const ErreurLecture& e) {
            ASSERT_STRNE(e.what(), "");
        }
    }
}

// --- the sample plan ----------------------------------------------------------------------------------------------

TEST(Maison, IsDrawnWhole) {
    const Dessin d = lit_texte(maison());
    EXPECT_TRUE(d.non_dessinees.empty()) << bilan(d.non_dessinees);
    EXPECT_TRUE(d.remarques.empty());
    EXPECT_EQ(d.unites, 4);
    EXPECT_GT(d.objets.size(), 1000U);
    EXPECT_GT(d.couleurs.size(), 12U);
    EXPECT_LE(d.couleurs.size(), 64U);
    std::set<int> styles;
    for (const Objet& o : d.objets) styles.insert(o.trait);
    EXPECT_GE(styles.size(), 6U);
    boite_proche(d.boite, {-3200, -4650}, {18200, 10600}, 1);
}

} // namespace atelier
