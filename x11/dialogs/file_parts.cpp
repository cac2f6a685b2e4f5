// Choosing files and directories: dialogs that return with the answer.
#include "xt_prive.h"

#include <X11/StringDefs.h>
#include <Xm/DrawnB.h>
#include <Xm/FileSB.h>
#include <Xm/Label.h>
#include <Xm/List.h>
#include <Xm/MessageB.h>
#include <Xm/PushB.h>
#include <Xm/RowColumn.h>
#include <Xm/TextF.h>
#include <Xm/Xm.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstring>
#include <string_view>
#include <utility>

#include "host_f.h"
#include "toolkit/args.h"
#include "system/block.h"
#include "toolkit/control_parts.h"
#include "display/pixmaps.h"
#include "toolkit/locale_text.h"
#include "session/nested_loop.h"
#include "toolkit/option_menu.h"
#include "events/record.h"
#include "toolkit/look.h"
#include "toolkit/widgets.h"
#include "toolkit/compound_string.h"
#include "pure/question_text.h"
#include "pure/text.h"
#include "xt_dir_f.h"
#include "xt_f.h"
#include "xt_fen_f.h"
#include "xt_ini_f.h"

namespace {

// -- what a dialog is waiting for

enum Answer : int { kWaiting = 0, kAccepted = 1, kCancelled = 2, kGone = 3 };

int sortie_fichier = kWaiting;
int sortie_rep = kWaiting;
int ques_accept = kWaiting;

using Path = std::array<char, GRX_CHEMIN_DIALOGUE_MAX>;
Path fichier_retour_complet{};
Path rep_retour_complet{};

Widget file_dialog = nullptr; // on show, or left by one that went away by itself
Widget file_selection = nullptr;
bool choosing = false; // a dialog is on show: there is only one at a time

struct INFO_FICHIER {
    int type_operation;
    CH80 extension; // enforced on the name
    Widget texte;
};
INFO_FICHIER ifichier{};

struct EXT_FICHIER {
    CH80 extension; // pattern
    CH80 message;
};
constexpr std::size_t kMostFilters = 20;
std::array<EXT_FICHIER, kMostFilters> efichier{};

// A dialog that goes with its parent, or by itself, leaves the answer that it had.
void end_with(int& answer, int value) {
    if (answer == kWaiting) answer = value;
}

bool keep_path(Path& path, std::string_view name) {
    return grx::copy_text(path.data(), path.size(), name);
}

Widget main_widget() {
    Widget w = grx_recup_objet_fen(grx_recup_nofen_principale());
    return grx::can_hold_children(w) ? w : nullptr;
}

// ------------------------------------------------------------------------------------------- labels and their look

// Texts of the application; where it has none the toolkit's own stay.
class MessageText {
  public:
    explicit MessageText(INT number) {
        if (litmess(number, text_) == 0) text_[0] = '\0';
    }
    const char* c_str() const { return text_; }
    bool empty() const { return text_[0] == '\0'; }

  private:
    char text_[HOST_MESSAGE_MAX] = "";
};

constexpr INT kMessageOk = 1250, kMessageSave = 1245, kMessageOpen = 1315;
constexpr INT kMessageReplace = 83;

struct Label {
    const char* resource;
    INT message;
};
// KEEP: the label of the filter and the button that applies it are one message.
const std::array<Label, 6> kLabels{
    {{XmNapplyLabelString, 1251}, {XmNcancelLabelString, 1246}, {XmNfilterLabelString, 1251},
        {XmNselectionLabelString, 1335}, {XmNdirListLabelString, 1336}, {XmNfileListLabelString, 1066}}};

void set_label(Widget dialog, const Label& label) {
    const MessageText text(label.message);
    if (text.empty()) return;
    const grx::CompoundString string(text.c_str());
    grx::set_resource(dialog, label.resource, string.get());
}

void set_modal_look(grx::Args& args) {
    args.set(XmNdialogStyle, XmDIALOG_FULL_APPLICATION_MODAL);
    grx::set_dialog_look(args);
}

Widget child_of(Widget dialog, unsigned char which) {
    return XmFileSelectionBoxGetChild(dialog, which);
}

void remove(Widget w) {
    if (w != nullptr) XtUnmanageChild(w);
}

// Line feeds and the like stand for themselves in the field only: the answer has lost them, and would be another name.
bool has_controls(Widget dialog) {
    char* const typed = XmTextFieldGetString(child_of(dialog, XmDIALOG_TEXT));
    const bool found = std::ranges::any_of(grx::view(typed), grx::is_control);
    XtFree(typed);
    return found;
}

// -- made once the parts are known

struct Proposal {
    const char* title;
    const char* pattern;   // "" = the toolkit's own
    const char* directory; // "" = the current one
    INT ok_message;
};

constexpr int kColumns = 48; // of the selected name: whole paths are read

Widget make_dialog(Widget parent, const char* name, const Proposal& proposal) {
    const grx::CompoundString pattern(proposal.pattern);
    const grx::CompoundString directory(proposal.directory);
    grx::Args args;
    set_modal_look(args);
    args.set(XmNtextColumns, kColumns);
    if (proposal.pattern[0] != '\0') args.set(XmNpattern, pattern.get());
    if (proposal.directory[0] != '\0') args.set(XmNdirectory, directory.get());
    Widget dialog = XmCreateFileSelectionDialog(parent, const_cast<char*>(name), args.list(), args.count());
    if (dialog == nullptr) return nullptr;
    // As windows have it: the toolkit's own conversion of a dialog's title depends on the locale, and fails for Latin-1
    // bytes in a UTF-8 one.
    grx::set_resource(XtParent(dialog), XmNtitle, proposal.title);
    set_label(dialog, {XmNokLabelString, proposal.ok_message});
    for (const Label& label : kLabels) set_label(dialog, label);
    remove(child_of(dialog, XmDIALOG_HELP_BUTTON));
    return dialog;
}

} // namespace

// --------------------------------------------------------------------------------------------- the picture beside

namespace {

void free_shown(Widget w, XtPointer, XtPointer) {
    if (grx::resource<unsigned char>(w, XmNlabelType) == XmPIXMAP)
        grx::free_pixmap(grx::resource<Pixmap>(w, XmNlabelPixmap));
}

// The label owns what it shows from its first picture on.
void show_owned(Widget w, Pixmap pixmap) {
    const bool first = grx::resource<unsigned char>(w, XmNlabelType) != XmPIXMAP;
    const auto former = grx::resource<Pixmap>(w, XmNlabelPixmap);
    grx::show_pixmap(w, pixmap);
    grx::redraw(w); // a drawn button that shows one of the same size does not
    if (!first) {
        grx::free_pixmap(former);
        return;
    }
    XtAddCallback(w, XmNdestroyCallback, free_shown, nullptr);
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

// ---------------------------------------------------------------------------------------------------- the question

namespace {

void on_question(Widget, XtPointer answer, XtPointer) {
    ques_accept = grx::number_in(answer);
}

void on_question_gone(Widget, XtPointer, XtPointer) {
    end_with(ques_accept, kGone);
}

// The parts as texts of their own; empty when memory is short.
using PartTable = grx::Block<std::array<char, HOST_MESSAGE_MAX>>;

PartTable part_table() {
    PartTable table(grx::kQuestionParts);
    const MessageText message(kMessageReplace);
    const auto parts = grx::question_parts(message.empty() ? "Replace File? -Yes -No" : message.c_str());
    for (std::size_t i = 0; i < table.size(); ++i) grx::copy_text(table[i].data(), table[i].size(), parts[i]);
    return table;
}

void set_text(grx::Args& args, const char* resource, const grx::CompoundString& string, const char* text) {
    if (text[0] != '\0') args.set(resource, string.get());
}

Widget make_question(Widget parent, const PartTable& parts) {
    const grx::CompoundString question(parts[0].data()), yes(parts[1].data()), no(parts[2].data());
    grx::Args args;
    set_modal_look(args);
    set_text(args, XmNmessageString, question, parts[0].data());
    set_text(args, XmNokLabelString, yes, parts[1].data());
    set_text(args, XmNcancelLabelString, no, parts[2].data());
    args.set(XmNdefaultButtonType, XmDIALOG_CANCEL_BUTTON); // Return loses no file
    Widget box = XmCreateQuestionDialog(parent, const_cast<char*>("question"), args.list(), args.count());
    if (box == nullptr) return nullptr;
    grx::set_resource(XtParent(box), XmNtitle, grx::resource<const char*>(grx::nearest_shell(parent), XmNtitle));
    remove(XmMessageBoxGetChild(box, XmDIALOG_HELP_BUTTON));
    XtAddCallback(box, XmNokCallback, on_question, grx::as_client_data(kAccepted));
    XtAddCallback(box, XmNcancelCallback, on_question, grx::as_client_data(kCancelled));
    XtAddCallback(box, XmNunmapCallback, on_question_gone, nullptr);
    XtAddCallback(box, XmNdestroyCallback, on_question_gone, nullptr);
    return box;
}

bool asking = false;
bool question_alive = false;

void on_question_death(Widget, XtPointer, XtPointer) {
    question_alive = false;
}

// Its answer; the question is on show until then.
int ask(Widget box) {
    asking = question_alive = true;
    XtAddCallback(box, XmNdestroyCallback, on_question_death, nullptr);
    grx::end_with_its_window(XtParent(box));
    XtManageChild(box);
    grx::run_until([box] { return ques_accept != kWaiting || !question_alive || grx::is_dying(box); });
    asking = false;
    end_with(ques_accept, kGone);
    const int answer = ques_accept;
    grx::take_off_screen(question_alive ? XtParent(box) : nullptr);
    if (question_alive) XtDestroyWidget(box);
    return answer;
}

} // namespace

extern "C" {

INT question_suppression(void) {
    ques_accept = kWaiting;
    const PartTable parts = part_table();
    Widget parent = file_dialog != nullptr && choosing ? file_dialog : main_widget();
    if (!parts || parent == nullptr || asking) return GRX_QUESTION_NON;
    Widget box = make_question(parent, parts);
    return box != nullptr ? ask(box) : GRX_QUESTION_NON;
}
}

// -------------------------------------------------------------------------------------------------- the file dialog

namespace {

constexpr std::size_t kNameRoom = 2 * GRX_CHEMIN_DIALOGUE_MAX; // a name with an extension that is put behind it

std::string_view base_of(std::string_view name) {
    return name.substr(name.rfind('/') + 1); // no '/': the whole name
}

bool can_be_read(char* name) {
    return test_fichier_r(name) == 0;
}

bool exists(char* name) {
    return can_be_read(name) || test_fichier_w(name) == 0;
}

// A name being corrected.
class Name {
  public:
    explicit Name(std::string_view typed) : fits_(typed.size() < GRX_CHEMIN_DIALOGUE_MAX) {
        grx::copy_text(text_, sizeof text_, typed);
    }
    char* data() { return text_; }
    bool usable() const { return fits_ && std::strlen(text_) < GRX_CHEMIN_DIALOGUE_MAX && !base_of(text_).empty(); }

    // In capitals and with the extension, which keeps its letters; the directory keeps its own too.
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
bool may_write(Name& name, Widget field) {
    name.correct(ifichier.extension);
    if (!name.usable()) return false;
    XmTextFieldSetString(field, name.data());
    return !exists(name.data()) || question_suppression() == GRX_QUESTION_OUI;
}

// KEEP: a directory without its final '/' can be read, and so be chosen.
bool may_read(Name& name) {
    if (exists(name.data())) return true;
    name.correct(ifichier.extension);
    return name.usable() && exists(name.data());
}

// An answer that is not accepted leaves the dialog on show.
void DialogAcceptCB(Widget dialog, XtPointer client_data, XtPointer call_data) {
    const auto* const info = static_cast<INFO_FICHIER*>(client_data);
    if (asking || call_data == nullptr || has_controls(dialog)) return;
    const grx::PlainText typed(static_cast<XmFileSelectionBoxCallbackStruct*>(call_data)->value);
    Name name(typed.c_str());
    if (!name.usable()) return;
    // KEEP: a name typed without a directory is accepted, and then gives 0.
    const bool writing = info->type_operation == HOST_CATAL_ECRITURE;
    const bool accepted = writing ? may_write(name, info->texte) : may_read(name);
    keep_path(fichier_retour_complet, name.data());
    if (accepted) end_with(sortie_fichier, kAccepted);
}

void DialogCancelCB(Widget, XtPointer, XtPointer) {
    fichier_retour_complet[0] = '\0';
    sortie_fichier = kCancelled;
}

// The end of a dialog that was on show before says nothing of the present one.
void DialogDestroyCB(Widget dialog, XtPointer, XtPointer) {
    if (dialog == file_dialog) end_with(sortie_fichier, kGone);
}

void forget_file_dialog(Widget dialog, XtPointer, XtPointer) {
    DialogDestroyCB(dialog, nullptr, nullptr);
    if (file_dialog == dialog) file_dialog = nullptr;
}

void DialogVisibilityEH(Widget shell, XtPointer, XEvent* event, Boolean*) {
    if (event->type != VisibilityNotify || asking) return; // the question may cover it
    if (event->xvisibility.state == VisibilityFullyObscured) XRaiseWindow(x11_disp, grx::window_of(shell));
}

void PullappuiCB(Widget w, XtPointer client_data, XtPointer) {
    Widget dialog = grx::nearest_of_class(w, xmFileSelectionBoxWidgetClass);
    if (dialog == nullptr) return;
    // KEEP: the extension enforced stays the first filter's.
    const grx::CompoundString pattern(static_cast<EXT_FICHIER*>(client_data)->extension);
    grx::set_resource(dialog, XmNpattern, pattern.get());
}

// -- filters

std::string_view text_of(const STRING& string) {
    return grx::view(string.str);
}

std::size_t filter_count(const SFILTRE& filters) {
    if (filters.nb_filtres <= 0 || filters.filtres_ext == nullptr || filters.filtres_msg == nullptr) return 0;
    return std::min<std::size_t>(static_cast<std::size_t>(filters.nb_filtres), kMostFilters);
}

void read_filters(const SFILTRE& filters) {
    efichier.fill({});
    for (std::size_t i = 0; i < filter_count(filters); ++i) {
        const std::string_view extension = text_of(filters.filtres_ext[i]);
        std::snprintf(efichier[i].extension, sizeof efichier[i].extension, "*.%.*s",
            static_cast<int>(std::min(extension.size(), sizeof efichier[i].extension)), extension.data());
        grx::copy_text(efichier[i].message, text_of(filters.filtres_msg[i]));
    }
}

Widget make_filter(Widget menu, EXT_FICHIER& filter) {
    const grx::CompoundString label(filter.message);
    grx::Args args;
    args.set(XmNlabelString, label.get()).set(XmNfontList, fontlist);
    if (const auto pixel = grx::application_pixel()) args.set(XmNbackground, *pixel);
    Widget button = XmCreatePushButton(menu, filter.message, args.list(), args.count());
    if (button == nullptr) return nullptr;
    XtAddCallback(button, XmNactivateCallback, PullappuiCB, &filter);
    XtManageChild(button);
    return button;
}

// With a single filter there is nothing to choose. It is sensitive at first: an option menu shows none of the others.
void make_filters(Widget row, std::size_t count) {
    Widget menu = count > 0 ? grx::make_pulldown(row, "PullMenu") : nullptr;
    if (menu == nullptr) return;
    Widget first = make_filter(menu, efichier[0]);
    for (std::size_t i = 1; i < count; ++i) make_filter(menu, efichier[i]);
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
    if (const auto pixel = grx::application_pixel()) args.set(XmNbackground, *pixel);
    Widget preview = XmCreateDrawnButton(row, const_cast<char*>("preview"), args.list(), args.count());
    if (preview != nullptr) XtManageChild(preview);
    return preview;
}

void make_work_area(Widget dialog, const SFILTRE& filters) {
    grx::Args args;
    args.set(XmNorientation, XmHORIZONTAL).set(XmNisAligned, False); // or the picture is not centred
    if (const auto pixel = grx::application_pixel()) args.set(XmNbackground, *pixel);
    Widget row = XmCreateRowColumn(dialog, const_cast<char*>("work_area"), args.list(), args.count());
    if (row == nullptr) return;
    Widget preview = make_preview(row);
    make_filters(row, filter_count(filters));
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

// One that is not in the list is a name all the same.
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
    XtAddCallback(dialog, XmNokCallback, DialogAcceptCB, &ifichier);
    XtAddCallback(dialog, XmNcancelCallback, DialogCancelCB, nullptr);
    XtAddCallback(dialog, XmNunmapCallback, DialogDestroyCB, nullptr);
    XtAddCallback(dialog, XmNdestroyCallback, forget_file_dialog, nullptr);
    XtAddEventHandler(XtParent(dialog), VisibilityChangeMask, False, DialogVisibilityEH, nullptr);
    grx::end_with_its_window(XtParent(dialog));
}

INT ok_message(INT operation) {
    switch (operation) {
    case HOST_CATAL_ECRITURE: return kMessageSave;
    case HOST_CATAL_LECTURE: return kMessageOpen;
    default: return kMessageOk;
    }
}

// A dialog that went away by itself was not destroyed then.
void drop_former(Widget& dialog) {
    Widget former = std::exchange(dialog, nullptr);
    if (former != nullptr) XtDestroyWidget(XtParent(former));
}

Widget open_file_dialog(Widget parent, const SCATAL& scat, const SFICHIER& proposed, const SFILTRE& filters) {
    drop_former(file_dialog);
    read_filters(filters);
    const bool filtered = filter_count(filters) > 0;
    Widget dialog = make_dialog(parent, "file_selection",
        {grx::view(scat.titre.str).data() != nullptr ? scat.titre.str : "", filtered ? efichier[0].extension : "*",
            grx::view(proposed.adrs.str).empty() ? "" : proposed.adrs.str, ok_message(scat.type_operation)});
    if (dialog == nullptr) return nullptr;
    ifichier.type_operation = scat.type_operation;
    grx::copy_text(ifichier.extension, filtered ? text_of(filters.filtres_ext[0]) : std::string_view());
    ifichier.texte = child_of(dialog, XmDIALOG_TEXT);
    make_work_area(dialog, filters);
    add_file_callbacks(dialog);
    select_proposed(dialog, proposed);
    return dialog;
}

// Runs a dialog until its answer is there; one that went away by itself stays, to be destroyed with the next.
int run(Widget& dialog, int& answer) {
    choosing = true;
    XtManageChild(dialog);
    grx::run_until([&] { return answer != kWaiting || dialog == nullptr || grx::is_dying(dialog); });
    choosing = false;
    end_with(answer, kGone);
    const int result = answer;
    grx::take_off_screen(dialog != nullptr ? XtParent(dialog) : nullptr);
    if (result != kGone) drop_former(dialog);
    return result;
}

// Stores a name found; the result is what the application says of it.
INT store_choice(SFICHIER& sfic) {
    char* const name = fichier_retour_complet.data();
    char* const slash = std::strrchr(name, '/');
    Path directory{};
    const std::string_view before(name, static_cast<std::size_t>(slash - name));
    keep_path(directory, before.empty() ? "/" : before);
    const INT result = string_realloc(&sfic.adrs, directory.data());
    return result != 0 ? result : ajout_sfichier(&sfic, slash + 1);
}

} // namespace

extern "C" {

INT select_fichier_x11(SCATAL scat, SFICHIER sfic_def, SFILTRE sfiltre, SFICHIER* sfic, INT* err) {
    Widget parent = main_widget();
    if (parent == nullptr || choosing) return 0;
    sortie_fichier = kWaiting;
    fichier_retour_complet[0] = '\0';
    file_dialog = open_file_dialog(parent, scat, sfic_def, sfiltre);
    if (file_dialog == nullptr || run(file_dialog, sortie_fichier) != kAccepted) return 0;
    if (sfic == nullptr || std::strchr(fichier_retour_complet.data(), '/') == nullptr) return 0;
    const INT result = store_choice(*sfic);
    if (err != nullptr) *err = result;
    return 1;
}
}

// --------------------------------------------------------------------------------------------- the directory dialog

namespace {

void DialogDirAcceptCB(Widget dialog, XtPointer, XtPointer call_data) {
    if (call_data == nullptr) return;
    const grx::PlainText chosen(static_cast<XmFileSelectionBoxCallbackStruct*>(call_data)->value);
    if (std::strlen(chosen.c_str()) >= GRX_CHEMIN_DIALOGUE_MAX || has_controls(dialog)) return;
    keep_path(rep_retour_complet, chosen.c_str());
    sortie_rep = kAccepted;
}

void on_dir_cancel(Widget, XtPointer, XtPointer) {
    rep_retour_complet[0] = '\0';
    sortie_rep = kCancelled;
}

void on_dir_gone(Widget dialog, XtPointer, XtPointer) {
    if (dialog == file_selection) end_with(sortie_rep, kGone);
}

void forget_dir_dialog(Widget dialog, XtPointer, XtPointer) {
    on_dir_gone(dialog, nullptr, nullptr);
    if (file_selection == dialog) file_selection = nullptr;
}

Widget open_dir_dialog(Widget parent, const char* titre, const char* directory) {
    drop_former(file_selection);
    Widget dialog = make_dialog(parent, "file_selection", {titre, "", directory, kMessageOk});
    if (dialog == nullptr) return nullptr;
    remove(child_of(dialog, XmDIALOG_LIST_LABEL));
    remove(XtParent(child_of(dialog, XmDIALOG_LIST)));
    XtAddCallback(dialog, XmNokCallback, DialogDirAcceptCB, nullptr);
    XtAddCallback(dialog, XmNcancelCallback, on_dir_cancel, nullptr);
    XtAddCallback(dialog, XmNunmapCallback, on_dir_gone, nullptr);
    XtAddCallback(dialog, XmNdestroyCallback, forget_dir_dialog, nullptr);
    return dialog;
}

const char* text_or_empty(const char* text) {
    return text != nullptr ? text : "";
}

} // namespace

extern "C" {

INT select_repertoire_x11(char* titre, char* rep_def) {
    Widget parent = main_widget();
    if (parent == nullptr || choosing) return 0;
    sortie_rep = kWaiting;
    rep_retour_complet[0] = '\0';
    file_selection = open_dir_dialog(parent, text_or_empty(titre), text_or_empty(rep_def));
    if (file_selection == nullptr || run(file_selection, sortie_rep) != kAccepted) return 0;
    if (rep_def != nullptr) grx::copy_text(rep_def, GRX_CHEMIN_DIALOGUE_MAX, rep_retour_complet.data());
    return 1;
}
}
