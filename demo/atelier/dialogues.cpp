#include "dialogues.h"

#include <array>
#include <cstdio>
#include <string>
#include <vector>

#include "host_f.h"
#include "xt_f.h"

namespace atelier {

namespace {

namespace fs = std::filesystem;

STRING texte(const char* t) {
    return {const_cast<char*>(t), 0, 0}; // the library reads these only
}

void libere(STRING& s) {
    if (s.str != nullptr) freeC(s.str, static_cast<UNSIGNED_INT>(s.taille));
    s = {};
}

// The first file chosen; what the library allocated is given back.
std::optional<fs::path> prend(SFICHIER& choisi) {
    std::optional<fs::path> r;
    if (choisi.adrs.str != nullptr && choisi.nb_fics > 0) r = fs::path(choisi.adrs.str) / choisi.fics[0].str;
    libere(choisi.adrs);
    const auto nombre = static_cast<std::size_t>(choisi.nb_fics);
    for (STRING& nom : std::span(choisi.fics, nombre)) libere(nom);
    if (choisi.fics != nullptr)
        freeC(reinterpret_cast<char*>(choisi.fics), static_cast<UNSIGNED_INT>(nombre * sizeof(STRING)));
    return r;
}

} // namespace

std::optional<fs::path> choisit_fichier(
    INT2 operation, const char* titre, std::span<const Filtre> filtres, const fs::path& depart) {
    std::vector<STRING> textes, extensions;
    for (const Filtre& f : filtres) {
        textes.push_back(texte(f.texte));
        extensions.push_back(texte(f.extension));
    }
    SCATAL catalogue{};
    catalogue.titre = texte(titre);
    catalogue.type_operation = operation;
    const std::string repertoire = depart.parent_path().string(), nom = depart.filename().string();
    STRING propose = texte(nom.c_str());
    SFICHIER choisi{};
    INT erreur = 0;
    const INT choix = select_fichier_x11(catalogue, {texte(repertoire.c_str()), &propose, 1},
        {textes.data(), extensions.data(), static_cast<INT2>(filtres.size())}, &choisi, &erreur);
    std::optional<fs::path> r = prend(choisi);
    return choix == 1 && erreur == 0 ? r : std::nullopt;
}

std::optional<fs::path> choisit_repertoire(const char* titre, const fs::path& depart) {
    std::string texte_titre = titre;
    std::array<char, GRX_CHEMIN_DIALOGUE_MAX> chemin{};
    std::snprintf(chemin.data(), chemin.size(), "%s", depart.c_str());
    if (select_repertoire_x11(texte_titre.data(), chemin.data()) != 1) return std::nullopt;
    return fs::path(chemin.data());
}

} // namespace atelier
