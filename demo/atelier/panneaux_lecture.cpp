#include "panneaux_lecture.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <limits>
#include <span>
#include <utility>

#include "xt_msg_t.h"

namespace atelier {

namespace {

constexpr std::size_t kOctetsMax = 256 * 1024;
constexpr std::size_t kItemsMax = std::numeric_limits<uchar>::max();
constexpr int kTailleMax = 10000;
constexpr std::size_t kItemsSelection = 7; // that the selection panel must have
constexpr char kSeparateur = '|';

struct Bornes {
    int min, max;
};
constexpr Bornes kTaille{-1, kTailleMax}, kPlace{0, kTailleMax};

// Takes the fields of a line one after the other; the first that is wrong settles the reason.
class Champs {
  public:
    explicit Champs(std::string_view ligne) : reste_(ligne) {}

    std::string_view suivant() {
        if (fin_) manque_ = true;
        const std::size_t place = std::min(reste_.find(kSeparateur), reste_.size());
        const std::string_view champ = reste_.substr(0, place);
        fin_ = place == reste_.size();
        reste_.remove_prefix(std::min(place + 1, reste_.size()));
        return champ;
    }
    int entier(const char* nom, Bornes bornes) {
        const std::string_view champ = suivant();
        int valeur = 0;
        const auto [fin, erreur] = std::from_chars(champ.data(), champ.data() + champ.size(), valeur);
        const bool lu = erreur == std::errc{} && fin == champ.data() + champ.size();
        if (!lu || valeur < bornes.min || valeur > bornes.max) refuse(nom, bornes);
        return valeur;
    }
    std::string_view dernier() {
        if (fin_) manque_ = true;
        return reste_;
    }
    std::string raison() const { return manque_ ? "ligne trop courte" : raison_; }

  private:
    void refuse(const char* nom, Bornes b) {
        if (raison_.empty())
            raison_ = std::string(nom) + " hors de " + std::to_string(b.min) + ".." + std::to_string(b.max);
    }

    std::string_view reste_;
    bool fin_ = false, manque_ = false;
    std::string raison_;
};

bool imprimable(std::string_view texte) {
    return std::ranges::none_of(texte, [](char c) { return static_cast<unsigned char>(c) < ' ' || c == '\x7F'; });
}

std::string texte_de(Champs& champs, std::size_t place, std::string& raison) {
    const std::string_view texte = champs.dernier();
    raison = champs.raison();
    if (raison.empty() && texte.size() >= place) raison = "texte de plus de " + std::to_string(place - 1) + " octets";
    return std::string(texte);
}

std::string lit_entete(Champs& champs, PanneauLu& p) {
    std::string raison;
    if (p.numero >= 0) return "deux lignes PANNEAU";
    const int numero = champs.entier("numero", {0, kNbPanneaux - 1});
    p.largeur = champs.entier("largeur", {1, kTailleMax});
    p.hauteur = champs.entier("hauteur", {1, kTailleMax});
    p.titre = texte_de(champs, sizeof(CH40), raison);
    if (raison.empty()) p.numero = numero;
    return raison;
}

std::string lit_item(Champs& champs, PanneauLu& p) {
    if (p.numero < 0) return "ITEM avant PANNEAU";
    if (p.items.size() == kItemsMax) return "plus de " + std::to_string(kItemsMax) + " items";
    PanneauLu::Item i;
    i.type = champs.entier("type", {0, std::numeric_limits<uchar>::max()});
    i.actif = champs.entier("actif", {0, 1});
    i.indice = champs.entier("indice", {0, kIndiceMax});
    i.x = champs.entier("x", kPlace);
    i.y = champs.entier("y", kPlace);
    i.largeur = champs.entier("largeur", kTaille);
    i.hauteur = champs.entier("hauteur", kTaille);
    std::string raison;
    i.texte = texte_de(champs, GRX_MSG_TITRE_MAX, raison);
    p.items.push_back(std::move(i));
    return raison;
}

// Nothing, or what is wrong with the line.
std::string lit_ligne(std::string_view ligne, PanneauLu& p, bool& fini) {
    if (ligne.empty() || ligne.front() == '#') return {};
    if (!imprimable(ligne)) return "caractere de controle";
    Champs champs(ligne);
    const std::string_view mot = champs.suivant();
    if (fini) return "ligne apres FIN";
    if (mot == "PANNEAU") return lit_entete(champs, p);
    if (mot == "ITEM") return lit_item(champs, p);
    fini = ligne == "FIN";
    return fini ? "" : "ni PANNEAU, ni ITEM, ni FIN";
}

std::string_view prend_ligne(std::string_view& reste) {
    const std::size_t fin = std::min(reste.find('\n'), reste.size());
    std::string_view ligne = reste.substr(0, fin);
    reste.remove_prefix(std::min(fin + 1, reste.size()));
    while (ligne.ends_with('\r') || ligne.ends_with(' ')) ligne.remove_suffix(1);
    return ligne;
}

std::string raison_du_tout(const PanneauLu& p, bool fini) {
    if (p.numero < 0) return "pas de ligne PANNEAU";
    if (!fini) return "pas de ligne FIN";
    if (p.numero == GRX_PANNEAU_SELECTION && p.items.size() < kItemsSelection)
        return "le panneau de selection a " + std::to_string(kItemsSelection) + " items";
    return {};
}

PanneauLu refus(std::string raison) {
    PanneauLu p;
    p.raison = std::move(raison);
    return p;
}

// Only a regular file is opened: a pipe would wait for ever.
PanneauLu lit_fichier(const std::filesystem::path& nom) {
    std::error_code erreur;
    if (!std::filesystem::is_regular_file(nom, erreur)) return refus("pas un fichier ordinaire");
    if (std::filesystem::file_size(nom, erreur) > kOctetsMax || erreur) return refus("trop grand");
    std::ifstream f(nom, std::ios::binary);
    if (!f) return refus("illisible");
    return lit_panneau(std::string(std::istreambuf_iterator<char>(f), {}));
}

bool nom_de_panneau(const std::filesystem::path& nom) {
    const std::string n = nom.filename().string();
    return n.starts_with("PAN_") && n.ends_with(".DAT");
}

std::vector<std::filesystem::path> fichiers(const std::string& repertoire) {
    std::vector<std::filesystem::path> r;
    std::error_code erreur;
    std::filesystem::directory_iterator i(repertoire, erreur);
    for (; !erreur && i != std::filesystem::directory_iterator(); i.increment(erreur))
        if (nom_de_panneau(i->path())) r.push_back(i->path());
    std::ranges::sort(r);
    return r;
}

ITEM_PANEL item_de(const PanneauLu::Item& lu, std::string& texte) {
    ITEM_PANEL i{};
    i.type = static_cast<uchar>(lu.type);
    i.actif = static_cast<uchar>(lu.actif);
    i.indice = lu.indice;
    i.x = lu.x;
    i.y = lu.y;
    i.tx_item = lu.largeur;
    i.ty_item = lu.hauteur;
    i.message = texte.data();
    return i;
}

} // namespace

PanneauLu lit_panneau(std::string_view octets) {
    PanneauLu p;
    bool fini = false;
    if (octets.size() > kOctetsMax) return refus("trop grand");
    for (int numero = 1; !octets.empty(); ++numero) {
        const std::string raison = lit_ligne(prend_ligne(octets), p, fini);
        if (!raison.empty()) return refus("ligne " + std::to_string(numero) + " : " + raison);
    }
    std::string raison = raison_du_tout(p, fini);
    return raison.empty() ? p : refus(std::move(raison));
}

std::vector<std::string> Panneaux::lit(const std::string& repertoire) {
    std::vector<std::string> remarques;
    for (const auto& nom : fichiers(repertoire))
        if (const std::string raison = prend(lit_fichier(nom)); !raison.empty())
            remarques.push_back(nom.filename().string() + " : " + raison);
    return remarques;
}

std::string Panneaux::prend(PanneauLu lu) {
    if (!lu.raison.empty()) return lu.raison;
    PANEL& p = panneaux_[static_cast<std::size_t>(lu.numero)];
    if (panneau(lu.numero) != nullptr) return "deuxieme fichier du panneau " + std::to_string(lu.numero);
    std::vector<ITEM_PANEL>& items = items_.emplace_back();
    for (PanneauLu::Item& i : lu.items) items.push_back(item_de(i, textes_.emplace_back(std::move(i.texte))));
    p.nofen = p.pere = -1;
    p.tx = lu.largeur;
    p.ty = lu.hauteur;
    p.reference = lu.numero + 1;
    std::memcpy(p.titre, lu.titre.c_str(), lu.titre.size() + 1);
    p.nb_items = static_cast<uchar>(items.size());
    p.tab_items = items.data();
    return {};
}

void Panneaux::mesure(int largeur_carac, int hauteur_ligne) {
    constexpr int kDixiemes = 10;
    for (PANEL& p : panneaux_) {
        p.tx = p.tx * largeur_carac / kDixiemes;
        p.ty = p.ty * hauteur_ligne / kDixiemes;
        for (ITEM_PANEL& i : std::span(p.tab_items, p.nb_items)) {
            i.x = i.x * largeur_carac / kDixiemes;
            i.y = i.y * hauteur_ligne / kDixiemes;
        }
    }
}

const PANEL* Panneaux::panneau(int numero) const {
    if (numero < 0 || numero >= nombre()) return nullptr;
    const PANEL& p = panneaux_[static_cast<std::size_t>(numero)];
    return p.reference != 0 ? &p : nullptr;
}

} // namespace atelier
