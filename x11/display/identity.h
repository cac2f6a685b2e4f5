// Who the application is: its name and class, for opening the display and for all its windows.
#pragma once

namespace grx {

/// The name in force, "HB" when nobody gave one.
const char* application_name();

/// The class in force, null when nobody gave one.
const char* application_class();

/// True when the application has said who it is, so that its windows have manners.
bool identity_declared();

/// True when new windows are kept within the work area.
bool keeps_to_work_area();

} // namespace grx
