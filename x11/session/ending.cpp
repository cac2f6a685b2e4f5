// Ends the library's work for the application, so that the same calls start it again: frees what the library owns, closes the
// connection, and brings all state back to that of a fresh process.
#include <X11/Intrinsic.h>

#include <array>

#include "grx_plus_erreurs.h"
#include "grx_plus_session.h"
#include "system/forget_system.h"
#include "system/inventory.h"
#include "system/shut_down.h"
#include "display/connection.h"
#include "display/forget_display.h"
#include "toolkit/application_font.h"
#include "toolkit/forget_toolkit.h"
#include "toolkit/shells_of_display.h"
#include "events/queue.h"
#include "registry/forget_registry.h"
#include "drawing/forget_drawing.h"
#include "menus/forget_menus.h"
#include "windows/forget_windows.h"
#include "controls/forget_controls.h"
#include "session/forget_session.h"
#include "xt_bou_f.h"
#include "xt_ent_f.h"
#include "xt_fen_f.h"
#include "xt_gfx_f.h"
#include "xt_ini_f.h"

namespace {

bool ending = false;

void free_controls() {
    grx_desalloue_base_boutons();
    grx::forget_controls();
}

void free_icons() {
    desalloue_tab_icon();
}

using Step = void (*)();

// In this order: what is freed with the help of the display comes before its end.
constexpr std::array kWithDisplay{Step{free_controls}, Step{grx::forget_windows}, Step{free_icons},
    Step{grx::forget_shared_memory}, Step{grx::forget_contexts}, Step{grx::forget_application_font},
    Step{grx::forget_layouts}};

constexpr std::array kAfterwards{grx::forget_alarm, grx::forget_directories, grx::forget_inventory, grx::forget_listing,
    grx::forget_settings, grx::forget_font_setting, grx::forget_colours, grx::forget_palettes, grx::forget_exact_calls,
    grx::forget_lost_connection, grx::forget_encoding, grx::forget_hidden_shell, grx::forget_control_pixmap,
    grx::forget_menu_zone, grx::forget_spare_menu, grx::forget_menu_state, grx::forget_held_button,
    grx::forget_minimised_icon, grx::forget_default_colours, grx::forget_encodings, grx::forget_pressed,
    grx::forget_digitized, grx::forget_double_click, grx::forget_untold_ends};

bool called_from_inside() {
    if (ending || grx::connection_lost() || grx::InLoop::any()) return true;
    return x11_disp != nullptr && grx::toolkit_is_busy();
}

void end_all() {
    grx::list_before_end_of_work();
    grx::run_shut_down();
    if (x11_disp != nullptr) {
        grx::note_display_in_toolkit();
        grx::destroy_shells();
    }
    for (const Step step : kWithDisplay) step();
    if (x11_disp != nullptr) grx::forget_display_in_toolkit();
    if (x11_disp != nullptr) grx::forget_pixmaps_in_toolkit();
    grx::close_display();
    grx::run_shut_down(); // of what was noted meanwhile, as of the last errors
    for (const Step step : kAfterwards) step();
    grx_definit_tous_curseurs(); // the server has freed them
    evt_global = GRX_EVENEMENT{};
}

} // namespace

extern "C" {

INT grx_termine_application(void) {
    if (called_from_inside()) return GRX_ECHEC_OCCUPE;
    ending = true;
    end_all();
    ending = false;
    return 1;
}
}
