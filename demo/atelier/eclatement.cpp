// From blocks and insertions to the flat list of objects.
#include <algorithm>
#include <numeric>
#include <set>

#include "couleurs.h"
#include "dessin.h"
#include "ordre.h"
#include "traits.h"

namespace atelier {

namespace {

constexpr int kProfondeurMax = 24;
constexpr std::size_t kPointsMax = 64'000'000;
constexpr std::size_t kInsertionsMax = 1'000'000;

// No less than it, however it is rounded.
float au_dessus(double d) {
    return std::nextafter(static_cast<float>(d), std::numeric_limits<float>::max());
}

// What an insertion passes on to its block.
struct Passe {
    Matrice place;
    std::string calque = "0";
    Rgb couleur = kAvantPlan;
    int trait = 0;
    int epaisseur = 0;
    bool visible = true;
};

class Eclatement {
  public:
    Eclatement(const Brut& brut, Suivi& suivi) : brut_(brut), suivi_(suivi) {
        dessin_.unites = brut.unites;
        dessin_.non_dessinees = brut.non_dessinees;
        dessin_.remarques = brut.remarques;
    }

    Dessin fait() {
        suivi_.etape(kInterprete, kEclate);
        pose(brut_.entites, {});
        suivi_.etape(kEclate, 1);
        if (plein()) dessin_.remarques.emplace_back("dessin trop grand : la suite est laissee de cote");
        trie_couleurs();
        for (const Objet& o : dessin_.objets) dessin_.boite.ajoute(o.boite);
        range();
        return std::move(dessin_);
    }

  private:
    bool plein() const { return points_ > kPointsMax || insertions_ > kInsertionsMax; }

    void pose(const std::vector<Entite>& entites, const Passe& passe) {
        for (const Entite& e : entites) {
            if (plein()) return;
            suivi_.fait(dessin_.objets.size(), brut_.entites.size());
            const Passe propre = regle(e.aspect, passe);
            if (const auto* figure = std::get_if<Figure>(&e.contenu))
                pose(*figure, propre);
            else
                insere(std::get<Insertion>(e.contenu), propre);
        }
    }

    // The aspect that an entity has in the end: its own, its layer's or its insertion's.
    Passe regle(const Aspect& a, const Passe& passe) const {
        Passe r = passe;
        if (a.calque != "0") r.calque = a.calque;
        const auto trouve = brut_.calques.find(r.calque);
        const Calque calque = trouve != brut_.calques.end() ? trouve->second : Calque{};
        r.visible = passe.visible && calque.visible;
        if (a.rgb != kSansRgb)
            r.couleur = couleur_vraie(a.rgb);
        else if (a.couleur == kDuCalque)
            r.couleur = couleur_de(calque);
        else if (a.couleur != kDuBloc)
            r.couleur = couleur_numero(a.couleur);
        if (a.trait != "BYBLOCK") r.trait = trait_de(a.trait == "BYLAYER" ? calque.trait : a.trait);
        if (a.poids != kPoidsDuBloc) r.epaisseur = epaisseur(a.poids == kPoidsDuCalque ? calque.poids : a.poids);
        return r;
    }

    static Rgb couleur_de(const Calque& c) {
        return c.rgb != kSansRgb ? couleur_vraie(c.rgb) : couleur_numero(c.couleur);
    }

    int trait_de(const std::string& nom) const {
        const auto motif = brut_.motifs.find(nom);
        return type_trait(nom, motif != brut_.motifs.end() ? motif->second : std::vector<double>{});
    }

    void pose(const Figure& f, const Passe& passe) {
        if (!passe.visible || f.chemin.empty()) return;
        Objet o;
        o.genre = f.genre;
        o.chemin = dessin_.chemins.garde(f.chemin, passe.place);
        points_ += o.chemin.nb_points();
        if (!o.chemin.fini()) {
            ++dessin_.non_dessinees["hors limites"];
            return;
        }
        o.boite = o.chemin.boite();
        o.courbure = au_dessus(o.chemin.courbure());
        o.couleur = place_couleur(passe.couleur);
        o.calque = place_calque(passe.calque);
        o.trait = static_cast<std::uint8_t>(f.genre == Genre::Trait ? passe.trait : 0);
        o.epaisseur = static_cast<std::uint8_t>(f.genre == Genre::Trait ? passe.epaisseur : 0);
        o.hauteur = f.hauteur * passe.place.grandeur();
        dessin_.objets.push_back(std::move(o));
    }

    void insere(const Insertion& i, const Passe& passe) {
        const auto bloc = brut_.blocs.find(i.bloc);
        if (bloc == brut_.blocs.end() || en_cours_.contains(i.bloc) || profondeur_ >= kProfondeurMax) {
            ++dessin_.non_dessinees["INSERT"];
            return;
        }
        en_cours_.insert(i.bloc);
        ++profondeur_;
        for (int rangee = 0; rangee < i.rangees; ++rangee)
            for (int colonne = 0; colonne < i.colonnes && !plein(); ++colonne) {
                ++insertions_;
                const Point decale{colonne * i.pas_x, rangee * i.pas_y};
                pose_bloc(bloc->second, i.place, decale, passe);
            }
        --profondeur_;
        en_cours_.erase(i.bloc);
    }

    // The spacing of rows and columns turns with the insertion but is not scaled by it.
    void pose_bloc(const Bloc& bloc, const Matrice& place, Point decale, const Passe& passe) {
        const double angle = std::atan2(place.b, place.a);
        Passe dedans = passe;
        dedans.place = passe.place * Matrice::translation(Matrice::rotation(angle).direction(decale)) * place
                       * Matrice::translation(-1 * bloc.base);
        pose(bloc.entites, dedans);
    }

    int place_couleur(Rgb c) {
        const auto [place, neuve] = couleurs_.try_emplace(c, static_cast<int>(dessin_.couleurs.size()));
        if (neuve) dessin_.couleurs.push_back(c);
        return place->second;
    }

    int place_calque(const std::string& nom) {
        const auto [place, neuf] = calques_.try_emplace(nom, static_cast<int>(dessin_.calques.size()));
        if (neuf) dessin_.calques.push_back({nom, true});
        return place->second;
    }

    // The most used colours first, so that a small palette holds what matters.
    void trie_couleurs() {
        std::vector<int> usages(dessin_.couleurs.size()), ordre(usages.size()), place(usages.size());
        for (const Objet& o : dessin_.objets) ++usages[static_cast<std::size_t>(o.couleur)];
        std::iota(ordre.begin(), ordre.end(), 0);
        std::ranges::stable_sort(ordre, std::greater{}, [&](int i) { return usages[static_cast<std::size_t>(i)]; });
        std::vector<Rgb> triees;
        for (const int i : ordre) {
            place[static_cast<std::size_t>(i)] = static_cast<int>(triees.size());
            triees.push_back(dessin_.couleurs[static_cast<std::size_t>(i)]);
        }
        dessin_.couleurs = std::move(triees);
        for (Objet& o : dessin_.objets) o.couleur = place[static_cast<std::size_t>(o.couleur)];
    }

    // What is drawn one after the other lies close together in memory, paths as well as objects.
    void range() {
        ordonne(dessin_.objets, dessin_.boite);
        Classeur chemins;
        for (Objet& o : dessin_.objets) o.chemin = chemins.garde(o.chemin);
        dessin_.chemins = std::move(chemins);
        std::vector<Boite> boites;
        boites.reserve(dessin_.objets.size());
        for (const Objet& o : dessin_.objets) boites.push_back(boite_au_plus(o));
        dessin_.index = Index(boites);
    }

    const Brut& brut_;
    Suivi& suivi_;
    Dessin dessin_;
    std::map<Rgb, int> couleurs_;
    std::map<std::string, int> calques_;
    std::set<std::string> en_cours_;
    std::size_t points_ = 0;
    std::size_t insertions_ = 0;
    int profondeur_ = 0;
};

} // namespace

Dessin eclate(const Brut& brut, Suivi& suivi) {
    return Eclatement(brut, suivi).fait();
}

} // namespace atelier
