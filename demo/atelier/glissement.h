// The backing picture of a window moved, and drawn anew only where that uncovers it.
#ifndef ATELIER_GLISSEMENT_H
#define ATELIER_GLISSEMENT_H

#include <vector>

#include "geometrie.h"
#include "host_t.h"
#include "vue.h"

namespace atelier {

// Moves what the upper left part of the picture shows, as large as the view. Returns false when there is no picture.
bool glisse_image(INT nofen, const Vue& vue, Ecart ecart);

// What a move uncovers of the screen: nothing, or one strip or two.
std::vector<Boite> parties_decouvertes(const Vue& vue, Ecart ecart);

// As long as it lives, all that the library draws, and empties, is held to this part of the target.
class Decoupe {
  public:
    explicit Decoupe(const Boite& partie);
    ~Decoupe();
    Decoupe(const Decoupe&) = delete;
    Decoupe& operator=(const Decoupe&) = delete;
};

} // namespace atelier

#endif
