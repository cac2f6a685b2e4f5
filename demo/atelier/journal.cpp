#include "journal.h"

#include <cstdlib>

namespace atelier {

Journal::Journal() {
    if (const char* const nom = std::getenv("ATELIER_JOURNAL"); nom != nullptr && *nom != '\0') fichier_.open(nom);
}

void Journal::note(const std::string& ligne) {
    if (tenu()) fichier_ << ligne << std::endl; // read while atelier runs
}

void Journal::etat(const std::string& nom, const std::string& valeur) {
    const auto [connu, neuf] = connus_.try_emplace(nom, valeur);
    if (!neuf && connu->second == valeur) return;
    connu->second = valeur;
    note(nom + "=" + valeur);
}

} // namespace atelier
