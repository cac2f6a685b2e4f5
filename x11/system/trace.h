// The trace: a file of the developer's with a line for each call that names nothing, each refused value and each error of
// the display, for all rooms. Without it nothing is written and next to nothing is done.
#pragma once

#include "host_t.h"

namespace grx {

/// False when there is no trace; true while there is one, and before the environment was asked.
extern bool trace_wanted;

/// True while there is a trace. Asks the environment the first time.
bool tracing();

/// True while there is a trace that names the call of each error of the display exactly.
bool exact_calls_wanted();

/// Opens the trace by name; false, with nothing changed, when the file cannot be opened.
bool open_trace(const char* name, bool exact);

/// False when there was none.
bool close_trace();

/// Writes a line: what `format` makes of the arguments.
[[gnu::format(printf, 1, 2)]] void trace_line(const char* format, ...);

/// Writes that the application has called a function with a number that names nothing. `kind` says what of.
void trace_unknown(const char* kind, INT number);

/// The same where it costs nothing without a trace.
inline void note_unknown(const char* kind, INT number) {
    if (trace_wanted) trace_unknown(kind, number);
}

/// Traces that a function of the additions refuses a value: `return refused(GRX_ECHEC_NUMERO, "nofen", nofen);`. Gives the
/// code. The function is the one that the application called, or this one when that is not known.
INT refused(INT code, const char* argument, INT value, const char* function = __builtin_FUNCTION());

/// The same of a value that is no number, or of no single one.
INT refused(INT code, const char* argument, const char* function = __builtin_FUNCTION());

} // namespace grx
