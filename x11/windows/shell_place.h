// Where the toolkit believes a shell to be, and how large. A window's shell asks for the news of its children, and the
// toolkit takes a child's new place and size, inside the shell, for the shell's own. Its controls would then answer no
// press, for they seem to be elsewhere; menus would open in the corner of the screen; and of two resizes shortly after
// each other, each would undo the other for ever.
#pragma once

#include <X11/IntrinsicP.h>

namespace grx {

/// Lets the toolkit ask the server for the place of a shell when it is next needed.
void forget_place(Widget shell);

/// News of a child that the toolkit reads as the shell's own.
bool is_news_of_a_child(const XEvent& event);

/// Comes before the toolkit's own handler, and gives it nothing new to read.
void blunt_news_of_a_child(Widget shell, XtPointer, XEvent* event, Boolean*);

/// A shell resized through the toolkit waits for the news of it, and may catch its child's.
void after_geometry_request(Widget, XtPointer, XtPointer call);

void watch_places_of_shells(Display* display);

} // namespace grx
