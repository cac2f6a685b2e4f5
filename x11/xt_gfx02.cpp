// The pictures of controls.
#include "xt_prive.h"

#include <X11/Xutil.h>
#include <Xm/Xm.h>

#include "kit/block.h"
#include "kit/drawables.h"
#include "xt_bou_f.h"
#include "xt_gfx_f.h"

namespace {

grx::Block<P_XIMAGE> Tab_image; // one place per control, null = no picture

} // namespace

extern "C" {

INT grx_alloue_tab_image_boutons(INT maxbouton) {
    if (maxbouton <= 0) return GRX_ERR_BASE_BOUTONS;
    Tab_image = grx::Block<P_XIMAGE>(static_cast<std::size_t>(maxbouton));
    return Tab_image ? 0 : GRX_ERR_BASE_BOUTONS;
}

void grx_desalloue_tab_image_boutons(INT) {
    Tab_image.reset();
}

void grx_desinstalle_bitmap(INT nobou) {
    STRUCTURE_BOUTON* record = nullptr;
    grx_recup_structure_bouton(nobou, &record);
    if (record == nullptr || grx_recup_objet_bout(nobou) == nullptr) return;
    if (record->image != XmUNSPECIFIED_PIXMAP) grx::free_pixmap(record->image);
    record->image = None;
}
}
