// Records of the additions, types from 200 up: a queue beside the one pending record, so that none replaces another. For
// whatever makes such records, and for the loop that delivers them.
#pragma once

#include <span>

#include "grx_plus_evenements.h"
#include "xt_ent_t.h"

namespace grx {

/// What a record says beyond its members. The texts are copied.
struct Detail {
    INT x = 0;
    INT y = 0;
    DOUBLE real = 0.0;
    std::span<const char* const> texts{};
};

/// Puts a record at the end of the queue and has the loop that waits wake up. False when memory is short.
bool post_added(const GRX_EVENEMENT& record, const Detail& detail = {});

bool added_waiting();

/// Ends a wait of the toolkit, now or when it begins, with an event that is nobody's.
void wake_loop();

/// Takes the first record of the queue; its details are from now on those that the application gets. False when there is
/// none.
bool take_added(GRX_EVENEMENT& record);

/// Another record is delivered: the details of the one before are no longer to be had.
void forget_delivered_detail();

/// Forgets the waiting records for which `drop` returns true, as those of a timer that is gone.
void drop_added(bool (*drop)(const GRX_EVENEMENT& record, const void* what), const void* what);

} // namespace grx
