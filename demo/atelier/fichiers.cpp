#include "fichiers.h"

#include <sys/wait.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <utility>

#include "apercu.h"
#include "dialogues.h"
#include "grx_plus_images.h"
#include "grx_plus_messages.h"
#include "grx_plus_presse_papiers.h"
#include "host_g.h"
#include "ouverture.h"
#include "palette.h"
#include "papier.h"
#include "xt_f.h"

namespace atelier {

namespace {

namespace fs = std::filesystem;

constexpr std::array<Filtre, 2> kPlans{{{"Plans DXF", "dxf"}, {"Tous les fichiers", "*"}}};
constexpr std::array<Filtre, 2> kImages{{{"Images BMP", "BMP"}, {"Images PNG", "PNG"}}};
constexpr std::array<Filtre, 1> kPdf{{{"Feuilles PDF", "pdf"}}};

bool ecrit_image(const std::string& chemin, Image image) {
    std::string rien, nom = chemin;
    return ecrit_fichier_bitmap_256(rien.data(), nom.data(), image.points.data(), image.largeur, image.hauteur) == 0;
}

// What a window shows, in the colours of the screen.
bool ecrit_png(const std::string& chemin, INT nofen) {
    GRX_IMAGE image;
    grx_init_image(&image);
    const bool ecrite =
        grx_recup_image_fenetre(nofen, &image) == 1 && grx_ecrit_image(chemin.c_str(), &image, GRX_IMAGE_PNG) == 1;
    grx_libere_image(&image);
    return ecrite;
}

bool est_png(const fs::path& chemin) {
    const std::string fin = chemin.extension().string();
    return fin == ".png" || fin == ".PNG";
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

// A large drawing takes its time: the user sees how far it is, and may give up.
Ouverture lit_en_montrant(const fs::path& chemin, INT mere) {
    const std::string texte = "Lecture de " + chemin.filename().string();
    GRX_AVANCEMENT avancement;
    grx_init_avancement(&avancement);
    avancement.nofen_mere = mere;
    avancement.titre = "atelier";
    avancement.texte = texte.c_str();
    avancement.maximum = 1;
    grx_avancement_commence(&avancement);
    Ouverture r =
        ouvre_fichier(chemin.string(), Suivi([](double part) { return grx_avancement_avance(part, nullptr) != 0; }));
    grx_avancement_finit();
    return r;
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

Fichiers::Fichiers(const Plan& plan, std::function<bool()> reprend) : plan_(plan), reprend_(std::move(reprend)) {}

Fichiers::Ouvert Fichiers::ouvre(INT mere) const {
    const auto choisi = choisit_fichier(HOST_CATAL_LECTURE, "Ouvrir un plan", kPlans, plan_.chemin);
    if (!reprend_() || !choisi) return {};
    return lit(*choisi, mere);
}

Fichiers::Ouvert Fichiers::lit(const fs::path& chemin, INT mere) const {
    Ouverture ouverture = lit_en_montrant(chemin, mere);
    const std::string nom = chemin.filename().string();
    std::string message = nom
                          + (ouverture.dessin ? (ouverture.raison.empty() ? " : ouvert" : " : " + ouverture.raison)
                                              : " : pas ouvert, " + ouverture.raison);
    return {std::move(message), std::move(ouverture.dessin), chemin};
}

// Taken before the dialog, which lies above the sheet.
std::string Fichiers::enregistre_image(Feuille& feuille) const {
    const Image image = feuille.image();
    const auto choisi = choisit_fichier(
        HOST_CATAL_ECRITURE, "Enregistrer l'image", kImages, fs::path(plan_.chemin).replace_extension(".BMP"));
    if (!reprend_() || !choisi) return {};
    const bool ecrite =
        est_png(*choisi) ? ecrit_png(choisi->string(), feuille.nofen()) : ecrit_image(choisi->string(), image);
    if (!ecrite) return "Image pas \u00e9crite : " + choisi->string();
    const std::string apercu = chemin_apercu(plan_.chemin.string());
    const bool avec_apercu = apercu == choisi->string() || ecrit_image(apercu, reduite(image, kCoteApercu, kCoulFond));
    return "Image : " + choisi->string() + (avec_apercu ? "" : ", sans aper\u00e7u");
}

// The directory stays when the list was saved in it.
std::string Fichiers::edite_pieces(Critere critere) const {
    const auto repertoire = repertoire_neuf();
    if (!repertoire) return "Pas de r\u00e9pertoire temporaire";
    const fs::path fichier = *repertoire / fs::path(plan_.nom()).replace_extension(".txt");
    const std::string liste =
        texte_nomenclature("Nomenclature de " + plan_.nom(), nomenclature(plan_.dessin, critere), plan_.mesure());
    const bool ecrit = ecrit_texte(fichier, liste);
    const auto enregistre = ecrit ? edite(fichier) : std::nullopt;
    std::error_code erreur;
    if (enregistre != fichier) fs::remove_all(*repertoire, erreur);
    reprend_();
    return !ecrit       ? "Liste pas \u00e9crite : " + fichier.string()
           : enregistre ? "Liste enregistr\u00e9e : " + enregistre->string()
                        : "Liste pas enregistr\u00e9e";
}

std::string Fichiers::copie_pieces(Critere critere) const {
    const std::string liste =
        texte_nomenclature("Nomenclature de " + plan_.nom(), nomenclature(plan_.dessin, critere), plan_.mesure());
    const INT fait = grx_affecte_texte_presse_papiers(
        GRX_SEL_PRESSE_PAPIERS, GRX_CODAGE_UTF8, liste.data(), static_cast<INT>(liste.size()));
    return fait == 1 ? "Liste copi\u00e9e" : "Liste pas copi\u00e9e";
}

std::string Fichiers::trace(const Boite& visible) {
    const fs::path depart = repertoire_traces_.empty() ? plan_.chemin.parent_path() : repertoire_traces_;
    const auto choisi = choisit_repertoire("R\351pertoire des trac\351s", depart);
    if (!reprend_() || !choisi) return {};
    repertoire_traces_ = choisi->has_filename() ? *choisi : choisi->parent_path();
    const fs::path trace = repertoire_traces_ / fs::path(plan_.nom()).replace_extension(".plt");
    if (const std::string raison = met_sur_papier(plan_, visible, Papier::Traceur, trace); !raison.empty())
        return "Trac\u00e9 pas \u00e9crit, " + raison + " : " + trace.string();
    const int code = envoie(trace);
    return code == 0 ? "Trac\u00e9 envoy\u00e9 : " + trace.string()
                     : "Trac\u00e9 pas envoy\u00e9 (pltspool, code " + std::to_string(code) + ") : " + trace.string();
}

std::string Fichiers::exporte(const Boite& visible) const {
    const auto choisi =
        choisit_fichier(HOST_CATAL_ECRITURE, "Exporter en PDF", kPdf, fs::path(plan_.chemin).replace_extension(".pdf"));
    if (!reprend_() || !choisi) return {};
    const std::string raison = met_sur_papier(plan_, visible, Papier::Pdf, *choisi);
    return raison.empty() ? "Feuille : " + choisi->string()
                          : "Feuille pas \u00e9crite, " + raison + " : " + choisi->string();
}

} // namespace atelier
