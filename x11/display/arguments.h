// What the user has given the application on its command line for the library, for opening the display and for the main
// window.
#pragma once

#include <X11/Xresource.h>

namespace grx {

/// The value of one argument (GRX_ARG_...), null when it was not given.
const char* given_argument(int which);

/// The last part of argv[0], empty when it is not known.
const char* program_name();

/// Puts the resources that were given into a database, the later ones last.
void put_given_resources(XrmDatabase database);

} // namespace grx
