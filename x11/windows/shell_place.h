// Keeps the place and the size right that the toolkit remembers for the shells of windows. The shell of a window gets
// the events of its children, and the toolkit takes the place and size of a child, inside the shell, for those of the
// shell. Left alone, controls would answer no press because they seem to be elsewhere. Menus would open in the corner
// of the screen. Two resizes shortly after each other would undo each other for ever.
#pragma once

#include <X11/IntrinsicP.h>

namespace grx {

/// Makes the toolkit ask the server the next time it needs the place of a shell.
void forget_place(Widget shell);

/// True for an event about a child that the toolkit takes for one about the shell.
bool is_news_of_a_child(const XEvent& event);

/// Event handler that runs before the toolkit's own: it writes the shell's known place and size into an event about a
/// child, so that the toolkit learns nothing wrong.
void blunt_news_of_a_child(Widget shell, XtPointer, XEvent* event, Boolean*);

/// Forgets the place of a shell after a geometry request. The toolkit waits for the event that answers the request and
/// may take one about a child.
void after_geometry_request(Widget, XtPointer, XtPointer call);

/// Calls after_geometry_request for all shells of the display from now on.
void watch_places_of_shells(Display* display);

} // namespace grx
