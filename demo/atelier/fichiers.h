// What the application does with files: drawings opened, pictures, lists of parts, plots. Each asks the user for a place
// in a dialog of the library and tells in the end what came of it.
#ifndef ATELIER_FICHIERS_H
#define ATELIER_FICHIERS_H

#include <filesystem>
#include <functional>
#include <optional>
#include <string>

#include "feuille.h"
#include "nomenclature.h"
#include "plan.h"

namespace atelier {

class Fichiers {
  public:
    // reprend: called once a dialog is gone, which handled events of its own. Returns false when the application ended
    // meanwhile.
    Fichiers(const Plan& plan, std::function<bool()> reprend);

    // The messages are in UTF-8, "" when the user gave up.
    struct Ouvert {
        std::string message;
        std::optional<Dessin> dessin; // none when it could not be read
        std::filesystem::path chemin;
    };
    Ouvert ouvre(INT mere) const;
    // A drawing that was chosen otherwise.
    Ouvert lit(const std::filesystem::path& chemin, INT mere) const;
    // The list of parts on the clipboard.
    std::string copie_pieces(Critere critere) const;
    std::string enregistre_image(Feuille& feuille) const;
    // The list of parts in the library's editor.
    std::string edite_pieces(Critere critere) const;
    // Plots what is seen. The directory is proposed again the next time.
    std::string trace(const Boite& visible);
    // What is seen, on a sheet of paper in a PDF.
    std::string exporte(const Boite& visible) const;

  private:
    const Plan& plan_;
    std::function<bool()> reprend_;
    std::filesystem::path repertoire_traces_; // none before the first plot
};

} // namespace atelier

#endif
