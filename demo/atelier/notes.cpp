#include "notes.h"

#include <algorithm>
#include <cmath>
#include <fstream>
#include <iomanip>
#include <limits>
#include <optional>
#include <sstream>
#include <system_error>

namespace atelier {

namespace {

namespace fs = std::filesystem;

// "x y texte"
std::optional<Note> note_de(const std::string& ligne) {
    std::istringstream flux(ligne);
    flux.imbue(std::locale::classic());
    Note n;
    if (!(flux >> n.place.x >> n.place.y) || !std::isfinite(n.place.x) || !std::isfinite(n.place.y))
        return std::nullopt;
    std::getline(flux >> std::ws, n.texte);
    return n.texte.empty() ? std::nullopt : std::optional(n);
}

void ecrit_ligne(std::ostream& flux, const Note& n) {
    flux << n.place.x << ' ' << n.place.y << ' ' << n.texte << '\n';
}

} // namespace

fs::path Notes::fichier_de(const fs::path& plan) {
    return fs::path(plan).replace_extension(".notes");
}

Notes Notes::de(const fs::path& plan) {
    Notes r;
    std::ifstream f(fichier_de(plan), std::ios::binary);
    for (std::string ligne; std::getline(f, ligne);)
        if (auto note = note_de(ligne)) r.notes_.push_back(std::move(*note));
    return r;
}

void Notes::ajoute(Point place, const std::string& texte) {
    Note n{place, texte};
    std::ranges::replace_if(
        n.texte, [](char c) { return c == '\n' || c == '\r' || c == '\t'; }, ' ');
    n.texte.erase(0, n.texte.find_first_not_of(' '));
    if (n.texte.empty()) return;
    notes_.push_back(std::move(n));
    modifiees_ = true;
}

bool Notes::ecrit(const fs::path& plan) {
    const fs::path fichier = fichier_de(plan), neuf = fs::path(fichier) += ".neuf";
    std::ofstream f(neuf, std::ios::binary);
    f.imbue(std::locale::classic());
    f << std::setprecision(std::numeric_limits<double>::max_digits10);
    for (const Note& n : notes_) ecrit_ligne(f, n);
    f.close();
    std::error_code erreur;
    if (!f.fail()) fs::rename(neuf, fichier, erreur);
    if (f.fail() || erreur) {
        fs::remove(neuf, erreur);
        return false;
    }
    modifiees_ = false;
    return true;
}

} // namespace atelier
