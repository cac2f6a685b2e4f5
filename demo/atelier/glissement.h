// The picture of a window moved, and drawn anew only where that uncovers it.
#ifndef ATELIER_GLISSEMENT_H
#define ATELIER_GLISSEMENT_H

#include <optional>
#include <vector>

#include "geometrie.h"
#include "host_t.h"
#include "vue.h"

namespace atelier {

// Moves what a window shows. Returns what comes to light, to be drawn; nothing when the window cannot be moved so.
std::optional<std::vector<Boite>> glisse_image(INT nofen, Ecart ecart);

// As long as it lives, all that is drawn into the window, emptied and shown is held to this part of it.
class Decoupe {
  public:
    Decoupe(INT nofen, const Boite& partie);
    ~Decoupe();
    Decoupe(const Decoupe&) = delete;
    Decoupe& operator=(const Decoupe&) = delete;
};

} // namespace atelier

#endif
