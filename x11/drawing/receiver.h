// Gives primitives to functions of the application instead of the screen, for all functions that draw.
#pragma once

#include "grx_plus_recepteur.h"
#include "xt_gfx_t.h"

namespace grx {

/// The receiver that drawing goes to, null when it goes to the screen.
extern const GRX_RECEPTEUR* receiver;

/// As long as it lives, drawing goes to the screen.
class OnScreen {
  public:
    OnScreen() : former_(receiver) { receiver = nullptr; }
    ~OnScreen() { receiver = former_; }
    OnScreen(const OnScreen&) = delete;
    OnScreen& operator=(const OnScreen&) = delete;

  private:
    const GRX_RECEPTEUR* former_;
};

/// Hand a record over; for received() alone.
template <class Record>
using Taking = void (*GRX_RECEPTEUR::*)(void*, INT, const Record*);
template <class Record>
void hand_over(Taking<Record> member, INT target, const Record& record);

/// True when a receiver has taken the primitive, so that nothing is left to draw.
template <class Record>
inline bool received(Taking<Record> member, INT target, const Record& record) {
    if (receiver == nullptr) [[likely]]
        return false;
    hand_over(member, target, record);
    return true;
}

/// The same for lines through points, and for polygons.
bool received_points(Taking<GRX_POLY> member, INT target, const GRX_POLY& poly);

/// The same for points that come with a colour alone, for the window drawn to last.
bool received_outline(Taking<GRX_POLY> member, GRX_POINT_POLY* points, INT count, uchar colour);

/// The same for a picture without a table of some form.
bool received_picture(INT target, GRX_IMAGE_RECUE picture);

/// The same for a window or a control that is cleared.
bool received_clearing(INT target, INT number);

} // namespace grx
