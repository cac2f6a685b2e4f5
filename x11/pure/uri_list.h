// Lists of addresses as programs drop them (text/uri-list), and the paths in them.
#pragma once

#include <cstddef>
#include <string_view>

namespace grx {

/// Takes the next address of a list, whose lines end with CR LF or LF; comments and empty lines are left out. Empty at
/// the end of the list.
std::string_view take_uri(std::string_view& list);

/// The path of a file of this computer, whose name is `host`: decoded into `out`, which has room for the address and a
/// zero. False for the address of anything else, one that is no absolute path or holds an encoded zero, with `out`
/// undefined.
bool path_of_uri(std::string_view uri, std::string_view host, char* out);

} // namespace grx
