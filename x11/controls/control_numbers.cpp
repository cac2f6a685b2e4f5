// Sets the table of controls up and takes it down, for the application, and frees numbers. The picture of a control is
// freed with its number.
#include "display/context.h"
#include "registry/control_table.h"
#include "xt_bou_f.h"
#include "xt_gfx_f.h"
#include "xt_ini_t.h"

extern "C" {

INT grx_alloue_base_boutons(void) {
    if (grx::has_control_table()) grx_desalloue_base_boutons();
    if (!grx::allocate_control_table()) return GRX_ERR_BASE_BOUTONS;
    grx_alloue_tab_image_boutons(grx::control_table_size());
    return 0;
}

INT grx_desalloue_base_boutons(void) {
    grx::free_control_table();
    grx_desalloue_tab_image_boutons(grx::control_table_size());
    return 0;
}

INT grx_libere_indice_objet_bout(INT indice) {
    STRUCTURE_BOUTON* const record = grx::control_record(indice);
    if (record == nullptr) return 0;
    grx_desinstalle_bitmap(record->nobou);
    grx::forget_drawing_target(&record->image);
    grx::clear_control_entry(indice);
    return 1;
}
}
