// What a room does when the library is shut down, so that it can be started again: a list of functions, for every file
// that keeps something beyond the fixed tables.
#pragma once

namespace grx {

/// Has `forget` called when the library shuts down, once, the last noted first; noting it again changes nothing. `forget`
/// frees what its file owns and brings its state back to what it is in a fresh process. The connection is still open
/// unless the server is gone (x11_disp is null then); widgets still stand.
void at_shut_down(void (*forget)());

/// Calls what was noted, and forgets the list.
void run_shut_down();

} // namespace grx
