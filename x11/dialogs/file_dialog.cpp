// The dialog that returns with a file: its filters, the file proposed, and which names it accepts.
#include <Xm/DrawnB.h>
#include <Xm/FileSB.h>
#include <Xm/List.h>
#include <Xm/PushB.h>
#include <Xm/RowColumn.h>
#include <Xm/TextF.h>
#include <Xm/Xm.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdio>
#include <cstring>
#include <string_view>

#include "pure/text.h"
#include "system/shut_down.h"
#include "display/pixmaps.h"
#include "toolkit/args.h"
#include "toolkit/compound_string.h"
#include "toolkit/locale_text.h"
#include "toolkit/look.h"
#include "toolkit/option_menu.h"
#include "toolkit/widgets.h"
#include "windows/window_events.h"
#include "dialogs/file_parts.h"
#include "dialogs/question.h"
#include "host_f.h"
#include "xt_dir_f.h"
#include "xt_f.h"
#include "xt_ini_t.h"

using namespace grx::file_parts;

namespace {

constexpr INT kMessageSave = 1245, kMessageOpen = 1315;

// What the dialog on show was called for.
struct Request {
    INT operation;
    CH80 extension; // enforced on the name
    Widget field;
};

Request request{};

struct Filter {
    CH80 pattern;
    CH80 label;
};

constexpr std::size_t kMostFilters = 20;
std::array<Filter, kMostFilters> filters{};

constexpr std::size_t kNameRoom = 2 * GRX_CHEMIN_DIALOGUE_MAX; // a name, and the extension put behind it

std::string_view base_of(std::string_view name) {
    return name.substr(name.rfind('/') + 1); // no '/': the whole name
}

bool exists(char* name) {
    return test_fichier_r(name) == 0 || test_fichier_w(name) == 0;
}

// A name that was typed, and its correction.
class TypedName {
  public:
    explicit TypedName(std::string_view typed) : fits_(typed.size() < GRX_CHEMIN_DIALOGUE_MAX) {
        grx::copy_text(text_, sizeof text_, typed);
    }
    char* data() { return text_; }
    bool usable() const { return fits_ && std::strlen(text_) < GRX_CHEMIN_DIALOGUE_MAX && !base_of(text_).empty(); }

    // Puts the base name in capitals and the extension behind it. Extension and directory keep their letters.
    void correct(char* extension) {
        char* const base = text_ + (base_of(text_).data() - text_);
        str_upr(base, base);
        fits_ = verifie_extension(text_, extension) == 0; // it leaves a name that has no room for it
    }

  private:
    bool fits_;
    char text_[kNameRoom];
};

// KEEP: what can be neither read nor written counts as new, in a missing directory too.
bool may_write(TypedName& name, Widget field) {
    name.correct(request.extension);
    if (!name.usable()) return false;
    XmTextFieldSetString(field, name.data());
    return !exists(name.data()) || question_suppression() == GRX_QUESTION_OUI;
}

// KEEP: a directory without its final '/' can be read, and so be chosen.
bool may_read(TypedName& name) {
    if (exists(name.data())) return true;
    name.correct(request.extension);
    return name.usable() && exists(name.data());
}

// A name that is not accepted leaves the dialog on show.
void on_ok(Widget dialog, XtPointer, XtPointer call_data) {
    if (grx::question_on_show() || call_data == nullptr || has_controls(dialog)) return;
    const grx::PlainText typed(static_cast<XmFileSelectionBoxCallbackStruct*>(call_data)->value);
    TypedName name(typed.c_str());
    if (!name.usable()) return;
    // KEEP: a name typed without a directory is accepted, and then gives 0.
    const bool writing = request.operation == HOST_CATAL_ECRITURE;
    const bool accepted = writing ? may_write(name, request.field) : may_read(name);
    keep_path(file_dialog().path, name.data());
    if (accepted) end_with(file_dialog().answer, kAccepted);
}

void on_visibility(Widget shell, XtPointer, XEvent* event, Boolean*) {
    if (event->type != VisibilityNotify || grx::question_on_show()) return; // the question may cover it
    if (event->xvisibility.state == VisibilityFullyObscured) XRaiseWindow(x11_disp, grx::window_of(shell));
}

void on_filter(Widget w, XtPointer client_data, XtPointer) {
    Widget dialog = grx::nearest_of_class(w, xmFileSelectionBoxWidgetClass);
    if (dialog == nullptr) return;
    // KEEP: the extension enforced stays the first filter's.
    const grx::CompoundString pattern(static_cast<Filter*>(client_data)->pattern);
    grx::set_resource(dialog, XmNpattern, pattern.get());
}

// -- filters

std::string_view text_of(const STRING& string) {
    return grx::view(string.str);
}

std::size_t filter_count(const SFILTRE& given) {
    if (given.nb_filtres <= 0 || given.filtres_ext == nullptr || given.filtres_msg == nullptr) return 0;
    return std::min<std::size_t>(static_cast<std::size_t>(given.nb_filtres), kMostFilters);
}

void read_filters(const SFILTRE& given) {
    filters.fill({});
    for (std::size_t i = 0; i < filter_count(given); ++i) {
        const std::string_view extension = text_of(given.filtres_ext[i]);
        std::snprintf(filters[i].pattern, sizeof filters[i].pattern, "*.%.*s",
            static_cast<int>(std::min(extension.size(), sizeof filters[i].pattern)), extension.data());
        grx::copy_text(filters[i].label, text_of(given.filtres_msg[i]));
    }
}

Widget make_filter(Widget menu, Filter& filter) {
    const grx::CompoundString label(filter.label);
    grx::Args args;
    args.set(XmNlabelString, label.get()).set(XmNfontList, fontlist);
    grx::set_background(args, GRX_AUCUN);
    Widget button = XmCreatePushButton(menu, filter.label, args.list(), args.count());
    if (button == nullptr) return nullptr;
    XtAddCallback(button, XmNactivateCallback, on_filter, &filter);
    XtManageChild(button);
    return button;
}

// A single filter leaves nothing to choose. It is made insensitive last: an option menu that is made with an
// insensitive choice does not show it.
void make_filters(Widget row, std::size_t count) {
    Widget menu = count > 0 ? grx::make_pulldown(row, "PullMenu") : nullptr;
    if (menu == nullptr) return;
    Widget first = make_filter(menu, filters[0]);
    for (std::size_t i = 1; i < count; ++i) make_filter(menu, filters[i]);
    Widget box = grx::make_option_menu(row, "OptionMenu", "", menu, first, grx::key_over_part);
    if (count > 1) return;
    if (first != nullptr) XtSetSensitive(first, False);
    if (box != nullptr) XtSetSensitive(box, False);
}

// -- work area

Widget make_preview(Widget row) {
    constexpr int side = 80;
    const grx::CompoundString nothing("");
    grx::Args args;
    args.set(XmNwidth, side).set(XmNheight, side).set(XmNmarginWidth, 0).set(XmNmarginHeight, 0);
    args.set(XmNhighlightThickness, 0).set(XmNalignment, XmALIGNMENT_CENTER).set(XmNrecomputeSize, False);
    args.set(XmNlabelString, nothing.get());
    grx::set_background(args, GRX_AUCUN);
    Widget preview = XmCreateDrawnButton(row, const_cast<char*>("preview"), args.list(), args.count());
    if (preview != nullptr) XtManageChild(preview);
    return preview;
}

void make_work_area(Widget dialog, std::size_t filters_given) {
    grx::Args args;
    args.set(XmNorientation, XmHORIZONTAL).set(XmNisAligned, False); // or the picture is not centred
    grx::set_background(args, GRX_AUCUN);
    Widget row = XmCreateRowColumn(dialog, const_cast<char*>("work_area"), args.list(), args.count());
    if (row == nullptr) return;
    Widget preview = make_preview(row);
    make_filters(row, filters_given);
    XtManageChild(row);
    XtAddCallback(child_of(dialog, XmDIALOG_LIST), XmNbrowseSelectionCallback, grx_element_fileliste_clique, preview);
}

// -- the file proposed

std::string_view without_last_slash(std::string_view directory) {
    return directory.size() > 1 && directory.ends_with('/') ? directory.substr(0, directory.size() - 1) : directory;
}

bool has_file(const SFICHIER& proposed) {
    return proposed.nb_fics > 0 && proposed.fics != nullptr && !text_of(proposed.fics[0]).empty();
}

void show_name(Widget field, const char* path) {
    grx::LocaleText name(path);
    XmTextFieldSetString(field, name.data());
    XmTextFieldSetInsertionPosition(field, XmTextFieldGetLastPosition(field)); // its end is seen
}

// Selects the file proposed; its name goes into the field when the list does not have it.
void select_proposed(Widget dialog, const SFICHIER& proposed) {
    const std::size_t room =
        text_of(proposed.adrs).size() + (has_file(proposed) ? text_of(proposed.fics[0]).size() : 0);
    if (!has_file(proposed) || room + 2 > HOST_CHEMIN_MAX) return;
    char directory[HOST_CHEMIN_MAX] = "", path[HOST_CHEMIN_MAX] = "";
    grx::copy_text(directory, without_last_slash(text_of(proposed.adrs)));
    compose_adresse_fichier(directory, proposed.fics[0].str, path);
    Widget list = child_of(dialog, XmDIALOG_LIST);
    const grx::CompoundString item(path, XmFONTLIST_DEFAULT_TAG);
    const int position = XmListItemPos(list, item.get());
    if (position == 0) return show_name(child_of(dialog, XmDIALOG_TEXT), path);
    XmListSelectPos(list, position, True);
    XmListSetBottomPos(list, position);
}

void add_file_callbacks(Widget dialog) {
    XtAddCallback(dialog, XmNokCallback, on_ok, nullptr);
    add_end_callbacks(dialog, file_dialog());
    XtAddEventHandler(XtParent(dialog), VisibilityChangeMask, False, on_visibility, nullptr);
    grx::end_with_its_window(XtParent(dialog));
}

INT ok_message(INT operation) {
    switch (operation) {
    case HOST_CATAL_ECRITURE: return kMessageSave;
    case HOST_CATAL_LECTURE: return kMessageOpen;
    default: return kMessageOk;
    }
}

void forget_file_dialog();

Widget make_file_dialog(Widget parent, const SCATAL& scat, const SFICHIER& proposed, const SFILTRE& given) {
    grx::at_shut_down(forget_file_dialog);
    read_filters(given);
    const std::size_t count = filter_count(given);
    Widget dialog = make_dialog(parent, {text_or_empty(scat.titre.str), count > 0 ? filters[0].pattern : "*",
                                            text_or_empty(proposed.adrs.str), ok_message(scat.type_operation)});
    if (dialog == nullptr) return nullptr;
    request.operation = scat.type_operation;
    grx::copy_text(request.extension, count > 0 ? text_of(given.filtres_ext[0]) : std::string_view());
    request.field = child_of(dialog, XmDIALOG_TEXT);
    make_work_area(dialog, count);
    add_file_callbacks(dialog);
    select_proposed(dialog, proposed);
    return dialog;
}

// Hands the file chosen to the application's functions, whose result it returns.
INT store_choice(SFICHIER& sfic) {
    char* const name = file_dialog().path.data();
    char* const slash = std::strrchr(name, '/');
    Path directory{};
    const std::string_view before(name, static_cast<std::size_t>(slash - name));
    keep_path(directory, before.empty() ? "/" : before);
    const INT result = string_realloc(&sfic.adrs, directory.data());
    return result != 0 ? result : ajout_sfichier(&sfic, slash + 1);
}

void forget_file_dialog() {
    forget(file_dialog());
    request = Request{};
    filters.fill({});
}

} // namespace

extern "C" {

INT select_fichier_x11(SCATAL scat, SFICHIER sfic_def, SFILTRE sfiltre, SFICHIER* sfic, INT* err) {
    Widget parent = main_widget();
    if (parent == nullptr || one_is_on_show()) return 0;
    PathDialog& dialog = file_dialog();
    start(dialog);
    dialog.widget = make_file_dialog(parent, scat, sfic_def, sfiltre);
    if (dialog.widget == nullptr || run(dialog) != kAccepted) return 0;
    if (sfic == nullptr || std::strchr(dialog.path.data(), '/') == nullptr) return 0;
    const INT result = store_choice(*sfic);
    if (err != nullptr) *err = result;
    return 1;
}
}
