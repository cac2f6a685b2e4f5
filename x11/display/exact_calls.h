// Has Xlib wait for the server after each request while the trace wants the call of each error exactly.
#pragma once

namespace grx {

/// Does so on the connection that is open now, or ends it.
void follow_exact_calls();

} // namespace grx
