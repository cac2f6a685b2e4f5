// atelier [--geometry WxH] [-display D] [FILE.dxf]: shows a drawing and lets the user move about in it.
#include <array>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <string>

#include "atelier.h"
#include "grx_plus_application.h"
#include "host_g.h"
#include "ouverture.h"

namespace {

constexpr int kLectureManquee = 1, kPasDEcran = 2, kUsage = 64;

struct Arguments {
    atelier::Taille taille;
    std::string fichier;
};

std::optional<atelier::Taille> taille_de(const char* texte) {
    constexpr int kMax = 32767;
    atelier::Taille t;
    char reste = 0;
    const bool lue = std::sscanf(texte, "%6dx%6d%c", &t.largeur, &t.hauteur, &reste) == 2;
    const auto permise = [](int v) { return v > 0 && v <= kMax; };
    return lue && permise(t.largeur) && permise(t.hauteur) ? std::optional(t) : std::nullopt;
}

std::optional<Arguments> arguments_de(int nombre, char** textes, const std::string& plan) {
    Arguments a;
    for (int i = 1; i < nombre; ++i) {
        const std::string texte = textes[i];
        if (texte == "--geometry" && i + 1 < nombre) {
            const auto taille = taille_de(textes[++i]);
            if (!taille) return std::nullopt;
            a.taille = *taille;
        } else if (texte.starts_with("--") || !a.fichier.empty()) {
            return std::nullopt;
        } else {
            a.fichier = texte;
        }
    }
    if (a.fichier.empty()) a.fichier = plan;
    return a;
}

// Where the settings and the sample plan are: the environment may say so, else the sources they came with.
std::string repertoire() {
    const char* const voulu = std::getenv("ATELIER_REP");
    return voulu != nullptr ? voulu : ATELIER_REP_DEFAUT;
}

// The sample spooling command is found where the user has none.
void ajoute_commandes(const std::string& repertoire) {
    constexpr const char* kRechercheUsuelle = "/usr/local/bin:/usr/bin:/bin";
    const char* const recherche = std::getenv("PATH");
    setenv("PATH", ((recherche != nullptr ? recherche : kRechercheUsuelle) + (":" + repertoire)).c_str(), 1);
}

int refuse_arguments() {
    std::array<char, 512> raison{};
    grx_recup_texte_arguments(raison.data(), raison.size());
    std::fprintf(stderr, "atelier: %s\n", raison.data());
    return kUsage;
}

} // namespace

int main(int nombre, char** textes) {
    static std::string config = repertoire() + "/config"; // the library reads the two paths while the program runs
    if (grx_arguments(&nombre, textes) != 1) return refuse_arguments();
    const auto a = arguments_de(nombre, textes, repertoire() + "/plans/maison.dxf");
    if (!a) {
        std::fputs("usage: atelier [--geometry LxH] [FICHIER.dxf]\n", stderr);
        return kUsage;
    }
    auto ouverture = atelier::ouvre_fichier(a->fichier);
    if (!ouverture.dessin) {
        std::fprintf(stderr, "atelier: %s : %s\n", a->fichier.c_str(), ouverture.raison.c_str());
        return kLectureManquee;
    }
    ajoute_commandes(repertoire() + "/bin");
    sstate[SST_REP_SYSTEME] = config.data();
    sstate[SST_REP_MENU] = config.data();
    atelier::Panneaux panneaux;
    for (const std::string& raison : panneaux.lit(config)) std::fprintf(stderr, "atelier: %s\n", raison.c_str());
    atelier::Atelier application(std::move(*ouverture.dessin), a->fichier, repertoire() + "/icones", panneaux);
    return application.ouvre(a->taille) ? application.boucle() : kPasDEcran;
}
