// The rubber band over a window, between the point where the button went down and the pointer: a frame that is zoomed into, or
// a line that measures. It lies on a layer above the drawing, with its length or sizes.
#ifndef ATELIER_ELASTIQUE_H
#define ATELIER_ELASTIQUE_H

#include <optional>
#include <string>

#include "geometrie.h"
#include "host_t.h"

namespace atelier {

class Elastique {
  public:
    enum class Forme { Cadre, Ligne };

    bool tendu() const { return coins_.has_value(); }
    Forme forme() const { return forme_; }
    // Pixels of the window; defined while it is stretched.
    Point fixe() const { return coins_->fixe; }

    void debut(INT nofen, Point p, Forme forme);
    // cote: what is written beside the pointer.
    void tend(Point p, const std::string& cote);
    // Takes a frame away, and leaves a line on show. Returns the box of both ends, nothing when it is so small that the
    // user clicked.
    std::optional<Boite> fin();
    // Takes it away, stretched or left on show.
    void efface();

  private:
    struct Coins {
        Point fixe, mobile;
    };
    void trace(const std::string& cote) const;

    INT nofen_ = -1;
    Forme forme_ = Forme::Cadre;
    std::optional<Coins> coins_;
};

} // namespace atelier

#endif
