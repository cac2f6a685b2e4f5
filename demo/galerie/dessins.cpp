// The pages of what drawings have besides lines: texts that scale and turn, a layer above them, icons with transparency; and a
// drawing beside the paper that it was put on.
#include "galerie.h"

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <numbers>
#include <vector>

#include "grx_plus.h"
#include "grx_plus_papier.h"

extern "C" char** environ;

namespace galerie {

namespace {

constexpr INT kFond = 1; // reserved colour: black
constexpr INT kEncre = GRX_NB_COULEURS_RESERVE + 15, kRouge = GRX_NB_COULEURS_RESERVE + 12,
              kBleu = GRX_NB_COULEURS_RESERVE + 11;
constexpr const char* kPolice = "DejaVu Sans";
constexpr const char* kPhrase =
    "Fa\u00e7ade \u00e9tay\u00e9e \u2300 12 \u00b1 0,5 mm, 45\u00b0, 3 \u20ac, \u03b1 \u03b2 \u03c0";

// --- texts ----------------------------------------------------------------------------------------------------------

GRX_TEXTE texte(INT nofen, INT x, INT y, const char* chaine, const char* police, double hauteur) {
    GRX_TEXTE t;
    grx_init_texte_dessin(&t);
    t.nofen = nofen;
    t.x = x;
    t.y = y;
    t.hauteurlabel = hauteur;
    t.attrib.coul_fond = kFond;
    t.attrib.coul_trace = kEncre;
    copie(t.chaine, chaine);
    copie(t.fontlabel, police);
    return t;
}

void ecrit_tailles(INT nofen) {
    constexpr std::array<double, 4> hauteurs{6, 9, 13, 20};
    constexpr std::array<const char*, 3> polices{kPolice, "DejaVu Serif:bold", GRX_FONTE_TRAIT};
    INT y = 10;
    for (const char* police : polices) {
        for (const double hauteur : hauteurs) {
            y += static_cast<INT>(hauteur * 1.5 + 6);
            const GRX_TEXTE t = texte(nofen, 14, y, kPhrase, police, hauteur);
            grx_trace_texte_dessin(&t);
        }
        y += 8;
    }
}

void ecrit_rose(INT nofen, INT x, INT y) {
    constexpr int kRayons = 16;
    for (int i = 0; i < kRayons; ++i) {
        const double angle = 2 * std::numbers::pi * i / kRayons;
        GRX_TEXTE t = texte(nofen, x, y, "      Chambre 12,40 m\u00b2", i % 2 == 0 ? kPolice : GRX_FONTE_TRAIT, 9);
        t.cosinuslabel = std::cos(angle);
        t.sinuslabel = std::sin(angle);
        t.attrib.coul_trace = i % 2 == 0 ? kBleu : kRouge;
        grx_trace_texte_dessin(&t);
    }
}

void ecrit_formes(INT nofen, INT x, INT y) {
    GRX_TEXTE penche = texte(nofen, x, y, "pench\u00e9", kPolice, 24);
    penche.slantlabel = 0.27;
    GRX_TEXTE contour = texte(nofen, x + 140, y, "contour", kPolice, 24);
    contour.filllabel = 0;
    GRX_TEXTE large = texte(nofen, x, y + 44, "large", kPolice, 24);
    large.largeurlabel = 44;
    GRX_TEXTE etroit = texte(nofen, x + 190, y + 44, "\u00e9troit et haut", kPolice, 24);
    etroit.largeurlabel = 12;
    GRX_TEXTE miroir = texte(nofen, x + 140, y + 88, "miroir", kPolice, 24);
    miroir.mirorlabel = 1;
    GRX_TEXTE espace = texte(nofen, x + 160, y + 88, "espac\u00e9", kPolice, 24);
    std::fill(std::begin(espace.extentslabel), std::end(espace.extentslabel), 28.0);
    for (const GRX_TEXTE* t : {&penche, &contour, &large, &etroit, &miroir, &espace}) grx_trace_texte_dessin(t);
}

// --- a layer --------------------------------------------------------------------------------------------------------

void pose_calque(INT nofen, const Boite& boite) {
    if (grx_commence_calque(nofen, 0) != 1) return;
    GRX_RECTANGLE r{};
    r.nofen = nofen;
    r.x1 = boite.x;
    r.y1 = boite.y;
    r.x2 = boite.x + boite.largeur;
    r.y2 = boite.y + boite.hauteur;
    r.attrib.coul_fond = kFond;
    r.attrib.coul_trace = kRouge;
    r.attrib.epaisseur = 1;
    grx_trace_rectangle(r);
    GRX_TEXTE t = texte(nofen, r.x1 + 6, r.y1 - 6, "calque : 3,20 x 1,45 m", kPolice, 9);
    t.attrib.coul_trace = kRouge;
    grx_trace_texte_dessin(&t);
    grx_termine_calque();
}

// --- icons ----------------------------------------------------------------------------------------------------------

// A ring whose edge fades, and a soft disc inside it.
std::vector<unsigned char> anneau(INT cote) {
    std::vector<unsigned char> r;
    const double milieu = (cote - 1) / 2.0;
    for (int y = 0; y < cote; ++y) {
        for (int x = 0; x < cote; ++x) {
            const double d = std::hypot(x - milieu, y - milieu) / milieu;
            const double bord = std::clamp(1 - std::abs(d - 0.8) * cote / 8, 0.0, 1.0);
            const double disque = std::clamp(0.7 - d, 0.0, 1.0);
            const auto alpha = static_cast<unsigned char>(255 * std::max(bord, disque));
            for (const int v : {bord > disque ? 40 : 200, bord > disque ? 60 : 120, bord > disque ? 200 : 20})
                r.push_back(static_cast<unsigned char>(v));
            r.push_back(alpha);
        }
    }
    return r;
}

void cree_icones_png(INT fenetre, INT y) {
    constexpr INT kCote = 40;
    constexpr std::array<const char*, 3> noms{"au repos", "enfonc\351", "insensible"};
    std::vector<unsigned char> pixels = anneau(kCote);
    GRX_IMAGE image;
    grx_init_image(&image);
    image.largeur = image.hauteur = kCote;
    image.octets_par_pixel = 4;
    image.pixels = pixels.data();
    bouton(fenetre, GRX_BOU_LABEL, GRX_BOU_ATT_ACTIF, {640, y - 60, -1, -1}, "Ic\364nes transparentes", -1);
    for (INT i = 0; i < static_cast<INT>(noms.size()); ++i) {
        const INT nobou = bouton(fenetre, GRX_BOU_DESSINE, GRX_BOU_ATT_ACTIF, {640 + 180 * i, y - 20, 56, 56}, "", -1);
        grx_affecte_icone_image_bouton(nobou, &image);
        if (i == 1) grx_enfonce_bouton(nobou);
        if (i == 2) grx_desactive_bouton(nobou, 1);
        bouton(fenetre, GRX_BOU_LABEL, GRX_BOU_ATT_ACTIF, {704 + 180 * i, y, -1, -1}, noms[static_cast<std::size_t>(i)],
            -1);
    }
}

// --- paper ----------------------------------------------------------------------------------------------------------

constexpr INT kLargeurPlan = 520, kHauteurPlan = 368; // the proportions of A4

void trace_plan(INT nofen) {
    GRX_RECTANGLE mur{};
    mur.nofen = nofen;
    mur.x1 = 60;
    mur.y1 = 60;
    mur.x2 = 460;
    mur.y2 = 300;
    mur.attrib.coul_fond = kFond;
    mur.attrib.epaisseur = 2;
    grx_trace_rectangle(mur);
    GRX_RECTANGLE sol = mur;
    sol.x1 = 300;
    sol.y1 = 200;
    sol.attrib.coul_trace = kBleu;
    grx_remplit_rectangle(sol);
    for (INT i = 0; i < 8; ++i) {
        GRX_SEGMENT s{};
        s.nofen = nofen;
        s.x1 = 80;
        s.x2 = 280;
        s.y1 = s.y2 = 150 + 18 * i;
        s.attrib.coul_fond = kFond;
        s.attrib.coul_trace = i % 2 == 0 ? kEncre : kRouge;
        s.attrib.type_trait = i;
        grx_trace_segment(s);
    }
    GRX_ARC porte{};
    porte.nofen = nofen;
    porte.x = 330;
    porte.y = 90;
    porte.lar = porte.hau = 90;
    porte.angle_arr = 270;
    porte.attrib.coul_fond = kFond;
    porte.attrib.coul_trace = kRouge;
    grx_trace_arc(porte);
    GRX_TEXTE titre = texte(nofen, 80, 110, "S\u00e9jour \u2014 34,20 m\u00b2", kPolice, 16);
    GRX_TEXTE cote = texte(nofen, 45, 290, "8,40 m", GRX_FONTE_TRAIT, 10);
    cote.cosinuslabel = 0;
    cote.sinuslabel = 1;
    for (const GRX_TEXTE* t : {&titre, &cote}) grx_trace_texte_dessin(t);
}

// The drawing in a PDF on A4.
bool met_en_pdf(INT nofen, const std::string& fichier) {
    GRX_PAPIER papier;
    grx_init_papier(&papier);
    papier.fichier = fichier.c_str();
    papier.orientation = GRX_PAPIER_PAYSAGE;
    papier.cible = GRX_CIBLE_FENETRE;
    papier.numero = nofen;
    papier.reperes = 2;
    papier.titre = "galerie";
    if (grx_commence_papier(&papier) != 1) return false;
    trace_plan(nofen);
    return grx_termine_papier() == 1;
}

// By the program that comes with PDF readers; without it the sheet stays empty.
bool pdf_en_png(const std::string& pdf, const std::string& png_sans_fin) {
    std::array<std::string, 6> mots{"pdftocairo", "-png", "-singlefile", "-r", "45"};
    std::array<char*, 8> arguments{};
    for (std::size_t i = 0; i < 5; ++i) arguments[i] = mots[i].data();
    std::string entree = pdf, sortie = png_sans_fin;
    arguments[5] = entree.data();
    arguments[6] = sortie.data();
    pid_t enfant = -1;
    int etat = -1;
    if (posix_spawnp(&enfant, "pdftocairo", nullptr, nullptr, arguments.data(), environ) != 0) return false;
    return waitpid(enfant, &etat, 0) == enfant && etat == 0;
}

void montre_png(INT nofen, const std::string& fichier) {
    GRX_IMAGE image;
    grx_init_image(&image);
    image.octets_voulus = 3;
    if (grx_lit_image(fichier.c_str(), &image) == 1) grx_affiche_image(GRX_CIBLE_FENETRE, nofen, &image, 0, 0);
    grx_libere_image(&image);
}

} // namespace

INT ouvre_surface(INT mere, const Boite& boite) {
    INT largeur = 0, hauteur = 0;
    grx_recup_taille_fenetre_fille(mere, &largeur, &hauteur);
    GRX_FENETRE f;
    grx_init_fenetre(&f);
    f.type = GRX_FEN_GRAPHIQUE;
    f.attrib |= GRX_FEN_ATT_FILLE;
    f.fen_mere = mere;
    f.x = boite.x;
    f.droite = boite.largeur;
    f.haut = boite.hauteur;
    f.y = hauteur - boite.y - boite.hauteur;
    if (grx_cree_fenetre(&f) != 0) return -1;
    grx_attend_creation_fenetre(f.nofen);
    return f.nofen;
}

void cree_textes(INT principale) {
    cree_icones_png(principale, 520);
    const INT nofen = ouvre_surface(principale, {20, 20, 1150, 400});
    grx_affecte_nofen_active(nofen);
    grx_alloue_image(nofen);
    ecrit_tailles(nofen);
    ecrit_rose(nofen, 980, 170);
    ecrit_formes(nofen, 600, 280);
    grx_desalloue_image();
    grx_affiche_bitmap_backingstore(nofen);
    pose_calque(nofen, {900, 70, 160, 200});
}

void cree_papier(INT principale) {
    bouton(principale, GRX_BOU_LABEL, GRX_BOU_ATT_ACTIF, {30, 20, -1, -1}, "Fen\352tre", -1);
    bouton(principale, GRX_BOU_LABEL, GRX_BOU_ATT_ACTIF, {600, 20, -1, -1}, "PDF, A4 paysage", -1);
    const INT plan = ouvre_surface(principale, {30, 50, kLargeurPlan, kHauteurPlan});
    const INT feuille = ouvre_surface(principale, {600, 50, 527, 373});
    grx_affecte_nofen_active(plan);
    grx_alloue_image(plan);
    trace_plan(plan);
    grx_desalloue_image();
    grx_affiche_bitmap_backingstore(plan);
    std::string place = "/tmp/galerie-XXXXXX";
    if (mkdtemp(place.data()) == nullptr) return;
    const std::string pdf = place + "/plan.pdf", page = place + "/page";
    if (met_en_pdf(plan, pdf) && pdf_en_png(pdf, page)) montre_png(feuille, page + ".png");
    for (const std::string& nom : {pdf, page + ".png"}) std::remove(nom.c_str());
    rmdir(place.c_str());
}

} // namespace galerie
