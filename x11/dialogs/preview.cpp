// The picture of a bitmap file, beside the list of a file dialog.
#include <Xm/Label.h>
#include <Xm/List.h>
#include <Xm/Xm.h>

#include <cstring>

#include "display/pixmaps.h"
#include "display/screen.h"
#include "toolkit/args.h"
#include "toolkit/compound_string.h"
#include "toolkit/control_parts.h"
#include "toolkit/widgets.h"
#include "drawing/control_pictures.h"
#include "host_f.h"
#include "xt_dir_f.h"
#include "xt_f.h"

namespace {

void free_shown(Widget w, XtPointer, XtPointer) {
    if (grx::resource<unsigned char>(w, XmNlabelType) == XmPIXMAP)
        grx::free_pixmap(grx::resource<Pixmap>(w, XmNlabelPixmap));
}

// Shows a picture. The label owns it: it is freed when the next one is shown, or with the label.
void show_owned(Widget w, Pixmap pixmap) {
    const bool first = grx::resource<unsigned char>(w, XmNlabelType) != XmPIXMAP;
    const auto former = grx::resource<Pixmap>(w, XmNlabelPixmap);
    grx::show_pixmap(w, pixmap);
    grx::redraw(w); // a drawn button does not redraw itself for a picture of the same size
    if (first) {
        XtAddCallback(w, XmNdestroyCallback, free_shown, nullptr);
    } else {
        grx::free_pixmap(former);
    }
}

Drawable drawable_of(Widget w) {
    return grx::window_of(w) != None ? grx::window_of(w) : grx::root_window();
}

} // namespace

extern "C" {

INT recup_bitmap_fichier(char* nomfic, char* nombitmap) {
    if (nomfic == nullptr || nombitmap == nullptr || std::strlen(nomfic) >= GRX_CHEMIN_DIALOGUE_MAX) return 0;
    char extension[] = "BMP";
    nouvelle_extension(nomfic, extension, nombitmap);
    return test_fichier_r(nombitmap) == 0 ? 1 : 0;
}

void affiche_bitmap_fichier(char* nom_fic, Widget wid) {
    if (nom_fic == nullptr || wid == nullptr || !XmIsLabel(wid)) return;
    const Pixmap pixmap = grx::pixmap_of_bitmap(nom_fic, drawable_of(wid));
    if (pixmap != None) show_owned(wid, pixmap);
}

void grx_element_fileliste_clique(Widget, XtPointer client_data, XtPointer call_data) {
    if (client_data == nullptr || call_data == nullptr) return;
    const grx::PlainText name(static_cast<XmListCallbackStruct*>(call_data)->item);
    char bitmap[HOST_CHEMIN_MAX] = "";
    if (recup_bitmap_fichier(const_cast<char*>(name.c_str()), bitmap) != 0)
        affiche_bitmap_fichier(bitmap, static_cast<Widget>(client_data));
}
}
