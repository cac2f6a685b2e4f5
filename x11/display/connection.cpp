// Opens the connection to the X server, for the start of the library, and catches its errors: protocol errors do no
// harm. The globals here describe the connection to all other rooms.
#include "display/connection.h"

#include <X11/Intrinsic.h>
#include <X11/StringDefs.h>
#include <Xm/Xm.h>

#include <cstdio>
#include <cstdlib>
#include <utility>

#include "display/last_error.h"
#include "display/lost_connection.h"
#include "xt_ini_t.h"

Display* x11_disp = nullptr;
XtAppContext contexte = nullptr;
Visual* x11_vis = nullptr;
Colormap x11_cmap = None;
INT x11_screen = 0;
XmFontList fontlist = nullptr;
XFontStruct* fontstruct = nullptr;
GC g_c = nullptr;
GC gc = nullptr;
XVisualInfo vtemp{};
INT profondeur_ecran = 0;
INT prof_24 = 1;
INT dec_red = 0;
INT dec_green = 0;
INT dec_blue = 0;
INT lar_ecran = 0;
INT hau_ecran = 0;
INT lar_ecran_mm = 0;
INT hau_ecran_mm = 0;
INT nbr_xpel_crt = 0;
INT nbr_ypel_crt = 0;

namespace {

// The handlers that the application had installed before; null when it had none.
XErrorHandler application_errors = nullptr;
XIOErrorHandler application_end = nullptr;

bool lost = false;

// The arguments of the application that the toolkit is given. It keeps their address.
constexpr std::size_t kNameBuffer = 80;
char* arguments[2] = {nullptr, nullptr};

// The display itself is Xlib's, which is not done with it.
void hide_connection() {
    x11_disp = nullptr;
    contexte = nullptr;
    x11_vis = nullptr;
    x11_cmap = None;
    fontlist = nullptr;
    fontstruct = nullptr;
    g_c = gc = nullptr;
}

} // namespace

namespace grx {

bool connection_lost() {
    return lost;
}

} // namespace grx

extern "C" {

int erreur_systeme(Display* disp, XErrorEvent* evt);
int erreur_io_systeme(Display* disp);

int erreur_systeme(Display* disp, XErrorEvent* evt) {
    static bool telling = false; // the application's handler may call the one it found, which is this one
    if (telling) return 0;
    grx::note_x_error(disp, *evt);
    if (application_errors == nullptr) return 0;
    telling = true;
    application_errors(disp, evt);
    telling = false;
    return 0;
}

int erreur_io_systeme(Display* disp) {
    lost = true;
    grx::call_rescue();
    if (application_end != nullptr) std::exchange(application_end, nullptr)(disp);
    return 0; // Xlib ends the process after this
}
}

namespace {

// Installs our handler and remembers the application's. It remembers neither our own nor Xlib's: Xlib's is brought back
// by null only.
template <class Handler>
void install(Handler (*set)(Handler), Handler ours, Handler& application) {
    Handler before = set(nullptr);
    Handler of_xlib = set(ours);
    if (before != ours && before != of_xlib) application = before;
}

// Takes our handler away, unless the application has installed another since.
template <class Handler>
void put_back(Handler (*set)(Handler), Handler ours, Handler& application) {
    Handler present = set(nullptr);
    if (present != ours)
        set(present);
    else if (application != nullptr)
        set(application);
    application = nullptr;
}

void forget_screen() {
    x11_disp = nullptr;
    x11_vis = nullptr;
    x11_cmap = None;
    vtemp = XVisualInfo{};
    prof_24 = 1;
    for (INT* const number : {&x11_screen, &profondeur_ecran, &dec_red, &dec_green, &dec_blue, &lar_ecran, &hau_ecran,
             &lar_ecran_mm, &hau_ecran_mm, &nbr_xpel_crt, &nbr_ypel_crt})
        *number = 0;
}

} // namespace

namespace grx {

void install_end_handler() {
    install(XSetIOErrorHandler, erreur_io_systeme, application_end);
}

void install_error_handlers() {
    install(XSetErrorHandler, erreur_systeme, application_errors);
    install_end_handler();
}

bool open_display(const Opening& how) {
    if (rescue_was_called()) return false;
    if (arguments[0] == nullptr) arguments[0] = static_cast<char*>(std::malloc(kNameBuffer));
    if (arguments[0] == nullptr) return false;
    std::snprintf(arguments[0], kNameBuffer, "%s", how.name);
    int count = 1;
    at_lost_connection(hide_connection);
    XtToolkitInitialize();
    contexte = XtCreateApplicationContext();
    x11_disp = XtOpenDisplay(contexte, how.display, nullptr, how.application_class, nullptr, 0, &count, arguments);
    if (x11_disp == nullptr) return false;
    x11_screen = DefaultScreen(x11_disp);
    install_error_handlers(); // Xlib's own would end the process on the first refused colour
    return true;
}

void close_display() {
    if (contexte != nullptr) XtDestroyApplicationContext(std::exchange(contexte, nullptr)); // which closes its displays
    put_back(XSetErrorHandler, erreur_systeme, application_errors);
    put_back(XSetIOErrorHandler, erreur_io_systeme, application_end);
    std::free(std::exchange(arguments[0], nullptr));
    forget_screen();
}

} // namespace grx
