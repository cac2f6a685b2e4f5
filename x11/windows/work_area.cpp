// Tells the application and the library which part of the screen panels of the desktop leave free.
#include "windows/work_area.h"

#include <X11/Xatom.h>

#include <algorithm>
#include <span>

#include "pure/axis.h"
#include "pure/out.h"
#include "display/identity.h"
#include "display/properties.h"
#include "display/screen.h"
#include "windows/net_atoms.h"
#include "grx_plus_application.h"
#include "grx_plus_erreurs.h"
#include "xt_ini_f.h"

namespace {

constexpr std::size_t kBox = 4; // values of one desktop

grx::Box whole_screen() {
    return {0, 0, DisplayWidth(x11_disp, x11_screen), DisplayHeight(x11_disp, x11_screen)};
}

grx::Box box_of(std::span<const long> values) {
    return {grx::saturated(values[0]), grx::saturated(values[1]), grx::saturated(values[2]), grx::saturated(values[3])};
}

bool all_alike(std::span<const long> areas) {
    for (std::size_t i = kBox; i < areas.size(); ++i)
        if (areas[i] != areas[i % kBox]) return false;
    return true;
}

std::size_t current_desktop() {
    const Atom name = grx::net_atom(grx::NetAtom::current_desktop);
    const grx::PropertyValues desktop(grx::root_window(), name, XA_CARDINAL, 1);
    return desktop.values().empty() ? 0 : static_cast<std::size_t>(desktop.values()[0]);
}

// The values of the desktop in force among those of all desktops.
std::span<const long> own_values(std::span<const long> areas) {
    if (all_alike(areas)) return areas.first(kBox);
    const std::size_t desktop = current_desktop();
    return areas.subspan(desktop < areas.size() / kBox ? desktop * kBox : 0, kBox);
}

// What a manager tells may be of another screen size, or nonsense.
grx::Box inside_screen(const grx::Box& told) {
    const grx::Box screen = whole_screen();
    const int64_t left = std::clamp(told.x, 0, screen.width);
    const int64_t top = std::clamp(told.y, 0, screen.height);
    const int64_t right = std::min<int64_t>(int64_t{told.x} + told.width, screen.width);
    const int64_t bottom = std::min<int64_t>(int64_t{told.y} + told.height, screen.height);
    if (right <= left || bottom <= top) return screen;
    return {static_cast<int32_t>(left), static_cast<int32_t>(top), static_cast<int32_t>(right - left),
        static_cast<int32_t>(bottom - top)};
}

} // namespace

namespace grx {

Box work_area() {
    if (x11_disp == nullptr) return {};
    constexpr long most_desktops = 64;
    const PropertyValues told(root_window(), net_atom(NetAtom::work_area), XA_CARDINAL, most_desktops * long{kBox});
    const auto areas = told.values().first(told.values().size() / kBox * kBox);
    return areas.empty() ? whole_screen() : inside_screen(box_of(own_values(areas)));
}

void keep_in_work_area(int32_t& x, int32_t& y, Size frame) {
    if (!keeps_to_work_area()) return;
    const Box kept = kept_within({x, y, frame.width, frame.height}, work_area());
    x = kept.x;
    y = kept.y;
}

} // namespace grx

extern "C" {

INT grx_recup_zone_travail(INT* x, INT* y, INT* largeur, INT* hauteur) {
    const grx::Box area = grx::work_area();
    const INT screen_height = x11_disp != nullptr ? DisplayHeight(x11_disp, x11_screen) : 0;
    grx::give(x, area.x);
    grx::give(y, grx::top_of_box(screen_height, area.y, area.height));
    grx::give(largeur, area.width);
    grx::give(hauteur, area.height);
    return x11_disp != nullptr ? 1 : GRX_ECHEC_AFFICHAGE;
}
}
