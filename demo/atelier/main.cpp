// atelier [--geometry WxH] [FILE.dxf]: shows a drawing and lets the user move about in it.
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <optional>
#include <string>

#include "atelier.h"
#include "dxf_lecture.h"
#include "host_g.h"

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

std::optional<atelier::Dessin> dessin_de(const std::string& fichier) try {
    atelier::Dessin dessin = atelier::lit_dessin(fichier);
    for (const std::string& remarque : dessin.remarques) std::printf("%s\n", remarque.c_str());
    if (const std::string bilan = atelier::bilan(dessin.non_dessinees); !bilan.empty())
        std::printf("%s\n", bilan.c_str());
    std::fflush(stdout);
    return dessin;
} catch (const std::exception& e) {
    std::fprintf(stderr, "atelier: %s : %s\n", fichier.c_str(), e.what());
    return std::nullopt;
}

} // namespace

int main(int nombre, char** textes) {
    static std::string config = repertoire() + "/config"; // the library reads the two paths while the program runs
    const auto a = arguments_de(nombre, textes, repertoire() + "/plans/maison.dxf");
    if (!a) {
        std::fputs("usage: atelier [--geometry LxH] [FICHIER.dxf]\n", stderr);
        return kUsage;
    }
    auto dessin = dessin_de(a->fichier);
    if (!dessin) return kLectureManquee;
    sstate[SST_REP_SYSTEME] = config.data();
    sstate[SST_REP_MENU] = config.data();
    atelier::Atelier application(
        std::move(*dessin), std::filesystem::path(a->fichier).filename().string(), repertoire() + "/icones");
    return application.ouvre(a->taille) ? application.boucle() : kPasDEcran;
}
