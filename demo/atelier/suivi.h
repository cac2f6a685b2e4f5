// How far a long piece of work is: told by who does it, in parts of the whole, to who watches and may give it up.
#ifndef ATELIER_SUIVI_H
#define ATELIER_SUIVI_H

#include <algorithm>
#include <cstddef>
#include <functional>
#include <utility>

namespace atelier {

// Where the stages of reading a drawing end, in parts of its time.
constexpr double kPairesLues = 0.12, kReduit = 0.3, kInterprete = 0.75, kEclate = 0.9;

class Suivi {
  public:
    // part: 0 to 1 of the whole. Returns false to give the work up.
    using Temoin = std::function<bool(double part)>;

    Suivi() = default; // nobody watches
    explicit Suivi(Temoin temoin) : temoin_(std::move(temoin)) {}

    // What is told from now on is of a stage, which begins and ends at these parts of the whole.
    void etape(double debut, double fin) {
        debut_ = debut;
        fin_ = fin;
        dit(0);
    }
    // Cheap enough for each of many. Throws Abandon when the work is given up.
    void fait(std::size_t combien, std::size_t sur) {
        constexpr std::size_t kRarement = 512;
        if (++appels_ % kRarement == 0 && sur > 0) dit(static_cast<double>(combien) / static_cast<double>(sur));
    }

    struct Abandon {};

  private:
    void dit(double part) {
        if (temoin_ && !temoin_(debut_ + std::min(part, 1.0) * (fin_ - debut_))) throw Abandon{};
    }

    Temoin temoin_;
    double debut_ = 0, fin_ = 1;
    std::size_t appels_ = 0;
};

} // namespace atelier

#endif
