// Fills the one pending event record, for all handlers of events. A member is filled field by field: a field that the
// type of event does not use keeps the value that grx_init_evenement or an earlier event left.
#pragma once

#include "xt_ent_t.h"

namespace grx {

template <class Member>
Member& post(Member& member, INT type, INT nofen) {
    member.type_evenement = type;
    member.nofen = nofen;
    return member;
}

/// The modifier bits of the application for an event's state.
constexpr INT modifier_bits(unsigned int state) {
    constexpr unsigned int shift = 1, control = 4;
    return ((state & shift) != 0 ? GRX_ETAT_SHIFT : 0) + ((state & control) != 0 ? GRX_ETAT_CONTROL : 0);
}

} // namespace grx
