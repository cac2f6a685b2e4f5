#include "dxf_texte.h"

#include <dxflib/dl_dxf.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <optional>
#include <span>

namespace atelier {

namespace {

constexpr std::uintmax_t kTailleMax = 512U << 20;
constexpr std::size_t kLigneMax = 1000; // dxflib's buffer holds some more
constexpr int kCodeMax = 1071;
constexpr int kCommentaire = 999;

enum Code {
    kTexte = 1,
    kNom = 2,
    kIdentifiant = 5,
    kVariable = 9,
    kX = 10,
    kXLisse = 11,
    kNoeud = 40,
    kPoidsDePole = 41,
    kPapier = 67,
    kDrapeaux = 70,
    kNbNoeuds = 72,
    kNbPoles = 73,
    kNbLisses = 74,
    kNbSommets = 90,
    kPoids = 370,
    kVraieCouleur = 420,
};

constexpr int kVersOrdonnee = 10;     // from the code of an abscissa to that of its ordinate
constexpr int kMaille = 16 | 64;      // POLYLINE: a mesh
constexpr int kPoleDeLissage = 16;    // VERTEX: guides a smoothed polyline
constexpr int kAttributInvisible = 1; // ATTRIB

struct Paire {
    int code;
    std::string_view valeur;
};
using Paires = std::span<const Paire>;

std::string_view sans_blancs(std::string_view s) {
    while (!s.empty() && (s.front() == ' ' || s.front() == '\t')) s.remove_prefix(1);
    while (!s.empty() && (s.back() == ' ' || s.back() == '\t')) s.remove_suffix(1);
    return s;
}

std::optional<int> entier(std::string_view s) {
    s = sans_blancs(s);
    if (s.starts_with('+')) s.remove_prefix(1);
    int v = 0;
    const auto [fin, erreur] = std::from_chars(s.data(), s.data() + s.size(), v);
    if (erreur != std::errc{} || fin != s.data() + s.size()) return std::nullopt;
    return v;
}

bool nombre_fini(std::string_view s) {
    s = sans_blancs(s);
    if (s.starts_with('+')) s.remove_prefix(1);
    double v = 0;
    return std::from_chars(s.data(), s.data() + s.size(), v).ec == std::errc{} && std::isfinite(v);
}

// Lines ended by LF, CR LF or CR.
class Lignes {
  public:
    explicit Lignes(std::string_view texte) : reste_(texte) {}
    std::optional<std::string_view> suivante() {
        if (reste_.empty()) return std::nullopt;
        const std::size_t fin = std::min(reste_.find_first_of("\r\n"), reste_.size());
        const std::string_view ligne = reste_.substr(0, fin);
        const bool double_fin = reste_.substr(fin).starts_with("\r\n");
        reste_.remove_prefix(std::min(fin + (double_fin ? 2 : 1), reste_.size()));
        ++numero_;
        return ligne;
    }
    std::size_t numero() const { return numero_; }

  private:
    std::string_view reste_;
    std::size_t numero_ = 0;
};

struct Contenu {
    std::vector<Paire> paires;
    std::optional<std::size_t> ligne_fausse;
};

Contenu paires_de(std::string_view texte, Suivi& suivi) {
    Contenu r;
    Lignes lignes(texte);
    while (const auto ligne = lignes.suivante()) {
        suivi.fait(static_cast<std::size_t>(ligne->data() - texte.data()), texte.size());
        const auto code = entier(*ligne);
        if (!code || *code < -5 || *code > kCodeMax) {
            r.ligne_fausse = lignes.numero();
            return r;
        }
        const auto valeur = lignes.suivante();
        if (!valeur) return r;
        if (*code != kCommentaire) r.paires.push_back({*code, valeur->substr(0, kLigneMax)});
    }
    return r;
}

std::string_view valeur(Paires objet, int code) {
    const auto p = std::ranges::find(objet, code, &Paire::code);
    return p != objet.end() ? sans_blancs(p->valeur) : std::string_view{};
}

int valeur_entiere(Paires objet, int code) {
    return entier(valeur(objet, code)).value_or(0);
}

std::ptrdiff_t compte_de(Paires objet, int code) {
    return std::ranges::count(objet, code, &Paire::code);
}

template <std::size_t N>
bool parmi(const std::array<std::string_view, N>& noms, std::string_view nom) {
    return std::ranges::find(noms, nom) != noms.end();
}

constexpr std::array<std::string_view, 16> kDessinees{"LINE", "LWPOLYLINE", "POLYLINE", "VERTEX", "SEQEND", "ARC",
    "CIRCLE", "ELLIPSE", "SPLINE", "POINT", "SOLID", "TRACE", "3DFACE", "TEXT", "MTEXT", "INSERT"};
// Not part of the picture.
constexpr std::array<std::string_view, 3> kMuettes{"ATTDEF", "VIEWPORT", "ENDSEC"};
constexpr std::array<std::string_view, 3> kTables{"LTYPE", "LAYER", "STYLE"};

// A name from the file that can be shown.
std::string nom_sur(std::string_view nom) {
    constexpr std::size_t kLong = 24;
    std::string r(nom.substr(0, kLong));
    std::ranges::replace_if(
        r, [](char c) { return c < 33 || c > 126; }, '?');
    return r.empty() ? "?" : r;
}

class Reduction {
  public:
    Reduction(Paires paires, Suivi& suivi) : reste_(paires), toutes_(paires.size()), suivi_(suivi) {}

    DxfReduit fait() {
        ecrit(kCommentaire, "dxflib " DL_VERSION); // or angles of paragraphs are taken as its oldest files had them
        bool fini = false, entites = false;
        while (!reste_.empty() && !fini) {
            suivi_.fait(toutes_ - reste_.size(), toutes_);
            const Paires objet = prend();
            const std::string_view nom = valeur(objet, 0);
            fini = nom == "EOF";
            if (nom == "SECTION") section_ = valeur(objet, kNom);
            entites |= nom == "SECTION" && section_ == "ENTITIES";
            traite(nom, objet);
        }
        if (!entites) throw ErreurLecture("n'est pas un dessin DXF complet (aucune section ENTITIES)");
        if (!fini) r_.remarques.emplace_back("fichier incomplet : la fin manque");
        ecrit(0, "ENDSEC");
        ecrit(0, "EOF");
        return std::move(r_);
    }

  private:
    // The pairs up to the next object.
    Paires prend() {
        std::size_t n = 1;
        while (n < reste_.size() && reste_[n].code != 0) ++n;
        const Paires objet = reste_.first(n);
        reste_ = reste_.subspan(n);
        return objet;
    }

    void traite(std::string_view nom, Paires objet) {
        if (section_ == "HEADER") return entete(objet);
        if (section_ == "TABLES") return table(nom, objet);
        if (section_ != "BLOCKS" && section_ != "ENTITIES") return;
        if (nom == "SECTION" || nom == "ENDSEC" || nom == "BLOCK" || nom == "ENDBLK") {
            maille_ = false;
            return copie(nom, objet);
        }
        if (nom != "EOF") entite(nom, objet);
    }

    void entete(Paires objet) {
        for (std::size_t i = 0; i + 1 < objet.size(); ++i)
            if (objet[i].code == kVariable && sans_blancs(objet[i].valeur) == "$INSUNITS")
                r_.unites = entier(objet[i + 1].valeur).value_or(0);
    }

    void table(std::string_view nom, Paires objet) {
        if (nom == "SECTION" || nom == "ENDSEC") return copie(nom, objet);
        if (nom == "TABLE") table_ = valeur(objet, kNom);
        if (parmi(kTables, table_) && (nom == table_ || nom == "TABLE" || nom == "ENDTAB")) copie(nom, objet);
    }

    void entite(std::string_view nom, Paires objet) {
        if (valeur_entiere(objet, kPapier) == 1) return;
        if (nom == "POLYLINE") {
            maille_ = (valeur_entiere(objet, kDrapeaux) & kMaille) != 0;
            if (maille_) return compte(nom);
        }
        if (maille_ && (nom == "VERTEX" || nom == "SEQEND")) return;
        if (nom == "VERTEX" && (valeur_entiere(objet, kDrapeaux) & kPoleDeLissage) != 0) return;
        if (nom == "DIMENSION") return cote(objet);
        if (nom == "LWPOLYLINE") return copie_comptee(nom, objet, {{kNbSommets, kX}});
        if (nom == "SPLINE")
            return copie_comptee(nom, objet, {{kNbNoeuds, kNoeud}, {kNbPoles, kX}, {kNbLisses, kXLisse}});
        if (nom == "ATTRIB") {
            if ((valeur_entiere(objet, kDrapeaux) & kAttributInvisible) == 0) copie("TEXT", objet);
            return;
        }
        if (parmi(kDessinees, nom))
            copie(nom, objet);
        else if (!parmi(kMuettes, nom))
            compte(nom);
    }

    // A dimension is a block that its author drew out.
    void cote(Paires objet) {
        if (valeur(objet, kNom).empty()) return compte("DIMENSION");
        ecrit(0, "INSERT");
        for (const Paire& p : objet)
            if (p.code == kNom || p.code == 6 || p.code == 8 || p.code == 62 || p.code == kPoids)
                ecrit(p.code, p.valeur);
    }

    struct Comptage {
        int nombre; // the code that states how many
        int chacun; // the code that each one has
    };

    void copie_comptee(std::string_view nom, Paires objet, const std::vector<Comptage>& comptages) {
        ecrit(0, nom);
        for (const Comptage& c : comptages)
            if (const auto n = compte_de(objet, c.chacun)) ecrit(c.nombre, std::to_string(n));
        const bool poids = compte_de(objet, kPoidsDePole) == compte_de(objet, kX);
        for (std::size_t i = 1; i < objet.size(); ++i) {
            const Paire& p = objet[i];
            if (std::ranges::find(comptages, p.code, &Comptage::nombre) != comptages.end()) continue;
            if (p.code == kPoidsDePole && !poids) continue;
            copie(p);
            // dxflib reads what memory happens to hold for an ordinate that is missing.
            const bool abscisse = p.code == kX || p.code == kXLisse;
            const bool complete = i + 1 < objet.size() && objet[i + 1].code == p.code + kVersOrdonnee;
            if (abscisse && !complete) ecrit(p.code + kVersOrdonnee, "0");
        }
    }

    void copie(std::string_view nom, Paires objet) {
        ecrit(0, nom);
        for (const Paire& p : objet.subspan(1)) copie(p);
    }

    // Handles, links and extended data are of no use here.
    void copie(const Paire& p) {
        const bool utile = p.code > 0 && p.code < 300 && p.code != kIdentifiant && (p.code < 100 || p.code > 109);
        const bool reel = (p.code >= 10 && p.code < 60) || (p.code >= 140 && p.code < 150) || p.code >= 210;
        if (utile && reel && !nombre_fini(p.valeur)) return ecrit(p.code, "0"); // as above
        if (utile || p.code == kPoids || p.code == kVraieCouleur) ecrit(p.code, p.valeur);
    }

    void ecrit(int code, std::string_view valeur) {
        r_.texte += std::to_string(code);
        r_.texte += '\n';
        r_.texte += valeur;
        r_.texte += '\n';
    }

    void compte(std::string_view nom) { ++r_.non_dessinees[nom_sur(nom)]; }

    Paires reste_;
    std::size_t toutes_;
    Suivi& suivi_;
    DxfReduit r_;
    std::string_view section_, table_;
    bool maille_ = false; // within a mesh
};

} // namespace

std::string lit_fichier(const std::string& chemin) {
    namespace fs = std::filesystem;
    std::error_code erreur;
    const fs::file_status etat = fs::status(chemin, erreur);
    if (etat.type() == fs::file_type::not_found) throw ErreurLecture("fichier introuvable");
    if (fs::is_directory(etat)) throw ErreurLecture("est un repertoire, pas un dessin");
    if (!fs::is_regular_file(etat)) throw ErreurLecture("n'est pas un fichier ordinaire");
    const std::uintmax_t taille = fs::file_size(chemin, erreur);
    if (!erreur && taille > kTailleMax) throw ErreurLecture("fichier trop grand");
    std::ifstream fichier(chemin, std::ios::binary);
    std::string texte((std::istreambuf_iterator<char>(fichier)), std::istreambuf_iterator<char>());
    if (!fichier) throw ErreurLecture("lecture impossible");
    return texte;
}

DxfReduit reduit(std::string_view texte, Suivi& suivi) {
    if (texte.empty()) throw ErreurLecture("fichier vide");
    if (texte.find('\0') != std::string_view::npos)
        throw ErreurLecture("n'est pas un dessin DXF en mode texte (contenu binaire)");
    if (texte.starts_with("\xEF\xBB\xBF")) texte.remove_prefix(3);
    suivi.etape(0, kPairesLues);
    const Contenu contenu = paires_de(texte, suivi);
    if (contenu.paires.empty() || contenu.paires[0].code != 0 || sans_blancs(contenu.paires[0].valeur) != "SECTION")
        throw ErreurLecture("n'est pas un dessin DXF");
    suivi.etape(kPairesLues, kReduit);
    DxfReduit r = Reduction(contenu.paires, suivi).fait();
    if (contenu.ligne_fausse)
        r.remarques.push_back(
            "ligne " + std::to_string(*contenu.ligne_fausse) + " illisible : la suite est laissee de cote");
    return r;
}

} // namespace atelier
