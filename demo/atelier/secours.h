// What is saved when the display goes: the notes that were not, and the list of parts.
#ifndef ATELIER_SECOURS_H
#define ATELIER_SECOURS_H

#include <functional>

#include "nomenclature.h"
#include "plan.h"

namespace atelier {

// From now on; plan and critere live as long as the application.
void prepare_secours(Plan& plan, std::function<Critere()> critere);

} // namespace atelier

#endif
