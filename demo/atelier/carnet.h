// The notes as the user meets them: asked for in a prompt, saved beside the drawing, and asked about before they would be
// lost. Messages are in UTF-8, "" when the user gave up.
#ifndef ATELIER_CARNET_H
#define ATELIER_CARNET_H

#include <functional>
#include <string>

#include "feuille.h"
#include "plan.h"

namespace atelier {

class Carnet {
  public:
    // reprend: called once a dialog is gone, which handled events of its own. Returns false when the application ended
    // meanwhile.
    Carnet(Plan& plan, std::function<bool()> reprend) : plan_(plan), reprend_(std::move(reprend)) {}

    // A note at a point of the drawing, over window mere.
    std::string note(Feuille& feuille, Point place, INT mere);
    std::string enregistre();
    // Whether the drawing may go: its notes are saved, or the user saves them now or does without.
    bool peut_partir(INT mere);

  private:
    Plan& plan_;
    std::function<bool()> reprend_;
};

} // namespace atelier

#endif
