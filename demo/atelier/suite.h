// What a part of the application made of an event, and what that leaves to the others.
#ifndef ATELIER_SUITE_H
#define ATELIER_SUITE_H

namespace atelier {

enum class Suite {
    PasPourMoi,
    Fait,
    Applique, // of a panel: what the user chose is to take effect
    Calques,  // layers are shown or hidden
    Choix,    // another layer is the chosen one
    Refuse,   // what was typed is no point
};

} // namespace atelier

#endif
