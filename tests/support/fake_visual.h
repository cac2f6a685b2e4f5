// Makes a 24-plane server offer visuals that no test server has. In force for displays opened and visuals matched while
// the object lives.
#pragma once

namespace grxtest {

class FakeVisual {
  public:
    enum class Kind {
        none,
        default8, // the default visual looks like 8-plane PseudoColor; 24-plane TrueColor is still offered
        alt24,    // the 24-plane TrueColor match is a visual that is not the root's
        alt32,    // ... is the 32-plane visual: every window needs visual, depth and colormap of its own
        no_match  // neither 24-plane TrueColor nor 8-plane PseudoColor is found
    };

    explicit FakeVisual(Kind kind);
    ~FakeVisual();
    FakeVisual(const FakeVisual&) = delete;
    FakeVisual& operator=(const FakeVisual&) = delete;

    // Suspends it, for connections of the test itself.
    class Pause {
      public:
        Pause();
        ~Pause();
        Pause(const Pause&) = delete;
        Pause& operator=(const Pause&) = delete;

      private:
        Kind before_;
    };
};

} // namespace grxtest
