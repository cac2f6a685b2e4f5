// Notes that the user puts on a drawing, kept in a file beside it.
#ifndef ATELIER_NOTES_H
#define ATELIER_NOTES_H

#include <filesystem>
#include <string>
#include <vector>

#include "geometrie.h"

namespace atelier {

struct Note {
    Point place;       // in the drawing
    std::string texte; // one line, in UTF-8
};

class Notes {
  public:
    // Of a drawing: those that were saved beside it. Lines that are no notes are passed over.
    static Notes de(const std::filesystem::path& plan);
    static std::filesystem::path fichier_de(const std::filesystem::path& plan);

    const std::vector<Note>& toutes() const { return notes_; }
    void ajoute(Point place, const std::string& texte);
    bool modifiees() const { return modifiees_; }

    // All of them, or the file as it was. Returns whether they were written.
    bool ecrit(const std::filesystem::path& plan);

  private:
    std::vector<Note> notes_;
    bool modifiees_ = false;
};

} // namespace atelier

#endif
