// usage PROGRAM PICTURES PLACE SECONDS SEED COMBINATION [GROUP [LOCK...]]: uses atelier for a while as a hand does, with real
// mouse and keys, in an order that the seed gives, and checks what every step brought about: in atelier's journal, in
// files, in places of windows, in pictures. PLACE is a folder with drawings. A check that fails is told with its step,
// what was expected and what was seen, and leaves a picture; the use goes on. The exit code is 0 when none failed.
#include <array>

#include "etapes.h"

using namespace visite;

namespace {

struct Etape {
    const char* nom;
    void (*faite)(Session&);
};
constexpr std::array<Etape, 24> kEtapes{{{"champs X et Y", etapes::champs}, {"mots d'un champ", etapes::mots},
    {"pave numerique", etapes::pave}, {"icones", etapes::icones}, {"touches de menu", etapes::raccourcis},
    {"touches du dessin", etapes::touches}, {"menus au clavier", etapes::mnemoniques},
    {"menus a la souris", etapes::menus}, {"module", etapes::modules}, {"souris sur la feuille", etapes::souris},
    {"echelle du zoom", etapes::zoom}, {"liste des couches", etapes::liste}, {"autre taille", etapes::taille},
    {"icone et retour", etapes::iconifie}, {"reglages", etapes::reglages}, {"choix des couches", etapes::couches},
    {"nomenclature", etapes::nomenclature}, {"palette", etapes::palette}, {"enregistrer l'image", etapes::image},
    {"ouvrir", etapes::ouvrir}, {"editeur", etapes::editeur}, {"tracer", etapes::trace},
    {"bande d'information", etapes::bande}, {"titre et bord", etapes::decorations}}};

class Usage {
  public:
    explicit Usage(const Options& o) : o_(o), session_(o) {}

    // Returns how many checks failed.
    int fait() {
        const auto fin = Horloge::now() + std::chrono::seconds(o_.secondes);
        session_.lance();
        while (Horloge::now() < fin) tour(fin);
        if (session_.lancee()) essaie("fermeture", [this] { etapes::fermeture(session_); });
        memoire_stable();
        std::printf(
            "%s: %d tours, %d etapes, %d manquees, memoire (ko)", o_.combinaison.c_str(), tours_, etapes_, manquees_);
        for (const long ko : memoires_) std::printf(" %ld", ko);
        std::puts("");
        return manquees_;
    }

  private:
    // All steps once, in another order each time.
    void tour(Horloge::time_point fin) {
        auto ordre = kEtapes;
        std::shuffle(ordre.begin(), ordre.end(), session_.generateur());
        for (const Etape& e : ordre) {
            if (Horloge::now() > fin) return;
            if (!o_.seule.empty() && o_.seule != e.nom) continue;
            if (!session_.lancee()) session_.lance();
            essaie(e.nom, [&] {
                e.faite(session_);
                session_.tranquille();
            });
        }
        ++tours_;
        if (session_.lancee()) memoires_.push_back(session_.programme().memoire());
    }

    void essaie(const char* nom, const std::function<void()>& geste) {
        ++etapes_;
        try {
            geste();
        } catch (const std::exception& e) {
            manque(nom, e.what());
        }
    }

    void manque(const char* etape, const std::string& raison) {
        const std::string photo = "manque-" + std::to_string(++manquees_);
        std::printf("MANQUE %s, graine %u, tour %d, etape \"%s\": %s (%s-%s.png)\n", o_.combinaison.c_str(), o_.graine,
            tours_ + 1, etape, raison.c_str(), o_.combinaison.c_str(), photo.c_str());
        std::fflush(stdout);
        visite::photo((o_.photos / (o_.combinaison + "-" + photo + ".png")).string());
        session_.remet();
        memoires_.clear();
    }

    void memoire_stable() {
        constexpr std::size_t kChauffe = 3, kAssez = 6;
        constexpr long kParTour = 300; // kilobytes
        if (memoires_.size() < kAssez) return;
        const long de_plus =
            (memoires_.back() - memoires_[kChauffe - 1]) / static_cast<long>(memoires_.size() - kChauffe);
        if (de_plus <= kParTour) return;
        ++manquees_;
        std::printf("MANQUE %s, graine %u: attendu: moins de %ld ko de plus par tour; vu: %ld\n",
            o_.combinaison.c_str(), o_.graine, kParTour, de_plus);
    }

    Options o_;
    Session session_;
    std::vector<long> memoires_; // after each round of the program that runs
    int tours_ = 0, etapes_ = 0, manquees_ = 0;
};

Options options(int nombre, char** textes) {
    if (nombre < 7) throw Echec("usage: usage PROGRAMME IMAGES PLACE SECONDES GRAINE COMBINAISON [GROUPE [VERROU...]]");
    Options o{textes[1], textes[2], textes[3], std::atoi(textes[4]), static_cast<unsigned>(std::atoi(textes[5])),
        textes[6], nombre > 7 ? std::atoi(textes[7]) : 0, {}, ""};
    if (const char* const seule = std::getenv("USE_STEP")) o.seule = seule;
    for (int i = 8; i < nombre; ++i) o.verrous.push_back(XStringToKeysym(textes[i]));
    return o;
}

} // namespace

int main(int nombre, char** textes) try {
    return Usage(options(nombre, textes)).fait() == 0 ? 0 : 1;
} catch (const std::exception& e) {
    std::fprintf(stderr, "usage: %s\n", e.what());
    return 1;
}
