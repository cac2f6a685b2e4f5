// The part of the application that has to do with files: drawings, pictures, lists, plots.
#include "atelier.h"

#include <sys/wait.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <utility>

#include "apercu.h"
#include "dialogues.h"
#include "host_g.h"
#include "hpgl.h"
#include "nomenclature.h"
#include "ouverture.h"
#include "palette.h"
#include "unites.h"
#include "xt_f.h"

namespace atelier {

namespace {

namespace fs = std::filesystem;

constexpr std::array<Filtre, 2> kPlans{{{"Plans DXF", "dxf"}, {"Tous les fichiers", "*"}}};
constexpr std::array<Filtre, 1> kImages{{{"Images BMP", "BMP"}}};

bool ecrit_image(const std::string& chemin, Image image) {
    std::string rien, nom = chemin;
    return ecrit_fichier_bitmap_256(rien.data(), nom.data(), image.points.data(), image.largeur, image.hauteur) == 0;
}

// Where the file dialog looks for the picture of a file.
std::string chemin_apercu(const std::string& chemin) {
    std::string nom = chemin;
    std::array<char, HOST_CHEMIN_MAX> r{};
    if (nom.size() < GRX_CHEMIN_DIALOGUE_MAX) recup_bitmap_fichier(nom.data(), r.data());
    return r.data();
}

// A directory of its own in the temporary one; nothing when there can be none.
std::optional<fs::path> repertoire_neuf() {
    std::error_code erreur;
    std::string modele = (fs::temp_directory_path(erreur) / "atelier-XXXXXX").string();
    return !erreur && mkdtemp(modele.data()) != nullptr ? std::optional<fs::path>(modele) : std::nullopt;
}

bool ecrit_texte(const fs::path& fichier, const std::string& texte) {
    std::ofstream f(fichier, std::ios::binary);
    f << texte;
    f.close();
    return !f.fail();
}

// The user edits a file until the editor is closed. Returns the name that it was saved under, nothing when it was not.
std::optional<fs::path> edite(const fs::path& fichier) {
    std::array<char, GRX_MEMO_FILENAME_MAX> repertoire{}, nom{};
    std::snprintf(repertoire.data(), repertoire.size(), "%s", fichier.parent_path().c_str());
    std::snprintf(nom.data(), nom.size(), "%s", fichier.filename().c_str());
    if (grx_debut_editeur() == 0) return std::nullopt;
    grx_editeur();
    if (grx_file_editeur_bloquant(repertoire.data(), nom.data()) == 0) return std::nullopt;
    return fs::path(repertoire.data()) / nom.data();
}

// To the plotter on the first port. Returns the exit code of the spooling command, -1 when it did not end by itself.
int envoie(const fs::path& trace) {
    constexpr INT kPort = 1, kBauds = 9600, kBits = 8, kSansParite = 0, kBitsArret = 1, kSansFlux = 0;
    std::string repertoire = trace.parent_path().string(), nom = trace.filename().string();
    std::string traceur = "Traceur A3", format = "A3 paysage";
    const INT etat = OutputFileOnPort(GRX_SORTIE_TRACEUR, repertoire.data(), nom.data(), traceur.data(), format.data(),
        kPort, kBauds, kBits, kSansParite, kBitsArret, kSansFlux);
    return WIFEXITED(etat) ? WEXITSTATUS(etat) : -1;
}

} // namespace

void Atelier::dit(const std::string& message) {
    message_ = message;
}

// After a dialog, which handled events of its own: what they told is looked at anew.
void Atelier::reprend() {
    fini_ = grx_recup_objet_fen(principale_) == nullptr;
    if (fini_) return;
    place_feuille();
    taille_changee(graphique_);
    bandeau_.redessine();
}

void Atelier::ouvre_plan() {
    const auto choisi = choisit_fichier(HOST_CATAL_LECTURE, "Ouvrir un plan", kPlans, chemin_);
    reprend();
    if (!choisi || fini_) return;
    Ouverture ouverture = ouvre_fichier(choisi->string());
    const std::string nom = choisi->filename().string();
    dit(nom
        + (ouverture.dessin ? (ouverture.raison.empty() ? " : ouvert" : " : " + ouverture.raison)
                            : " : pas ouvert, " + ouverture.raison));
    if (ouverture.dessin) prend_dessin(std::move(*ouverture.dessin), *choisi);
}

void Atelier::prend_dessin(Dessin dessin, const fs::path& chemin) {
    ferme_panneaux();
    dessin_ = std::move(dessin);
    chemin_ = chemin;
    nom_ = chemin.filename().string();
    indices_ = pose_couleurs(dessin_.couleurs);
    outils_.montre_calques(dessin_.calques);
    reglages_.unite = kUniteDuPlan;
    reglages_.pas = pas_pour(dessin_.boite);
    reglages_.plume = 0;
    calque_choisi_ = -1;
    panneau_table_.mesure_en({1, symbole(dessin_.unites)});
    vue_.cadre_tout(dessin_.boite);
    a_redessiner_ = true;
}

// What the window shows at this moment.
Image Atelier::image_feuille() {
    Image r{vue_.largeur(), vue_.hauteur(), {}};
    r.points.resize(static_cast<std::size_t>(r.largeur) * static_cast<std::size_t>(r.hauteur));
    redessine();
    grx_affecte_nofen_active(graphique_);
    grx_recup_image(0, 0, r.largeur, r.hauteur, r.points.data());
    if (grx_recup_profondeur_ecran() == GRX_PROFONDEUR_8)
        grx_image_system_to_oxa(r.largeur, r.hauteur, r.points.data());
    return r;
}

// Taken before the dialog, which lies above the sheet.
void Atelier::enregistre_image() {
    const Image image = image_feuille();
    const auto choisi = choisit_fichier(
        HOST_CATAL_ECRITURE, "Enregistrer l'image", kImages, fs::path(chemin_).replace_extension(".BMP"));
    reprend();
    if (!choisi || fini_) return;
    if (!ecrit_image(choisi->string(), image)) return dit("Image pas \u00e9crite : " + choisi->string());
    const std::string apercu = chemin_apercu(chemin_.string());
    const bool avec_apercu = apercu == choisi->string() || ecrit_image(apercu, reduite(image, kCoteApercu, kCoulFond));
    dit("Image : " + choisi->string() + (avec_apercu ? "" : ", sans aper\u00e7u"));
}

std::string Atelier::liste_de_pieces() const {
    return texte_nomenclature(
        "Nomenclature de " + nom_, nomenclature(dessin_, panneau_table_.critere()), panneau_table_.mesure());
}

// The directory stays when the list was saved in it.
void Atelier::edite_pieces() {
    const auto repertoire = repertoire_neuf();
    if (!repertoire) return dit("Pas de r\u00e9pertoire temporaire");
    const fs::path fichier = *repertoire / fs::path(nom_).replace_extension(".txt");
    const bool ecrit = ecrit_texte(fichier, liste_de_pieces());
    const auto enregistre = ecrit ? edite(fichier) : std::nullopt;
    std::error_code erreur;
    if (enregistre != fichier) fs::remove_all(*repertoire, erreur);
    reprend();
    dit(!ecrit       ? "Liste pas \u00e9crite : " + fichier.string()
        : enregistre ? "Liste enregistr\u00e9e : " + enregistre->string()
                     : "Liste pas enregistr\u00e9e");
}

// The directory is proposed again the next time.
void Atelier::trace_plan() {
    const fs::path depart = repertoire_traces_.empty() ? chemin_.parent_path() : repertoire_traces_;
    const auto choisi = choisit_repertoire("R\351pertoire des trac\351s", depart);
    reprend();
    if (!choisi || fini_) return;
    repertoire_traces_ = choisi->has_filename() ? *choisi : choisi->parent_path();
    const fs::path trace = repertoire_traces_ / fs::path(nom_).replace_extension(".plt");
    if (!ecrit_texte(trace, hpgl(dessin_, vue_.visible()))) return dit("Trac\u00e9 pas \u00e9crit : " + trace.string());
    const int code = envoie(trace);
    dit(code == 0 ? "Trac\u00e9 envoy\u00e9 : " + trace.string()
                  : "Trac\u00e9 pas envoy\u00e9 (pltspool, code " + std::to_string(code) + ") : " + trace.string());
}

} // namespace atelier
