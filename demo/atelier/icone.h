// The picture of the program for window managers and task bars.
#ifndef ATELIER_ICONE_H
#define ATELIER_ICONE_H

namespace atelier {

// For all windows, in the usual sizes; before start-up.
void pose_icone();

} // namespace atelier

#endif
