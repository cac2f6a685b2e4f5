// The files that the menu bar is read from: which one, and what its lines say.
#include "menus/menu_file.h"

#include <string_view>

#include "pure/menu_line.h"
#include "pure/number.h"
#include "pure/text.h"
#include "menus/forget_menus.h"
#include "host_f.h"
#include "host_g.h"
#include "xt_fen_f.h"

namespace {

constexpr INT kSkipped = 1;
constexpr INT kTaken = 0;
constexpr INT kNoKeyword = -1;
constexpr INT kUnbalanced = -2;

bool Debut_Menu = false; // the application has decoded the line with the zone's marker

LI_MENU empty_line() {
    LI_MENU line{};
    line.mneumonic = GRX_MENU_SANS_MNEMO;
    line.itype = GRX_MENU_AUCUN;
    return line;
}

void set_label(LI_MENU& line, std::string_view text) {
    const grx::MenuLabel label = grx::menu_label(text);
    std::snprintf(line.nom_fonction, sizeof line.nom_fonction, "%.*s%.*s", static_cast<int>(label.before.size()),
        label.before.data(), static_cast<int>(label.behind.size()), label.behind.data());
    line.mneumonic = label.mnemonic.value_or(GRX_MENU_SANS_MNEMO);
}

void set_label_of_message(LI_MENU& line, INT number) {
    char text[HOST_MESSAGE_MAX] = "";
    f_mess_menu_lire(0, number, text);
    set_label(line, grx::trimmed(text));
}

INT kind_of(const grx::MenuKeyword& keyword) {
    return &keyword == &grx::kMenuKeywords.front() ? GRX_MENU_POPUP : GRX_MENU_ITEM;
}

INT decode_content(LI_MENU& line, const grx::MenuContent& content) {
    if (!content.fields) return kNoKeyword;
    const auto& [number, text, accelerator, function] = *content.fields;
    line.itype = kind_of(*content.keyword);
    if (number.empty()) {
        set_label(line, text);
    } else {
        set_label_of_message(line, grx::number_of(number));
    }
    grx::copy_text(line.accelerateur, accelerator);
    line.no_fo = grx::number_of(function);
    return kTaken;
}

// Decodes a line; `in_zone` and `depth` say where the reader stands: behind the zone's marker, in so many braces.
INT decode_line(std::string_view text, std::string_view zone, LI_MENU& line, bool& in_zone, INT& depth) {
    const grx::MenuLine kind = grx::menu_line(text, zone, in_zone, depth);
    if (kind == grx::MenuLine::comment || kind == grx::MenuLine::skip_word) return kSkipped;
    line = empty_line();
    switch (kind) {
    case grx::MenuLine::zone: in_zone = true; break;
    case grx::MenuLine::opening: ++depth; break;
    case grx::MenuLine::closing: --depth; break;
    case grx::MenuLine::unbalanced: return kUnbalanced;
    case grx::MenuLine::content: return decode_content(line, grx::menu_content(text));
    default: break;
    }
    return kTaken;
}

const char* menu_file_name() {
    switch (istate[IST_MODULE_MENU]) {
    case 0: return "MNU_COMM.DAT";
    case 1: return "MNU_MECA.DAT";
    default: return "MNU_ARCH.DAT";
    }
}

FILE* open_menu_file(const char* name) {
    FILE* file = nullptr;
    char nowhere[] = "", copy[HOST_CHEMIN_MAX];
    char* const directory = sstate[SST_REP_MENU] != nullptr ? sstate[SST_REP_MENU] : nowhere;
    if (!grx::copy_text(copy, grx::view(name))) return nullptr;
    const INT result = ftext_open(&file, directory, copy, HOST_MODE_LECTURE);
    return result == -1 ? nullptr : file;
}

// The marker, alone or with a blank behind it: there may be a longer one.
bool is_marker(std::string_view line, std::string_view zone) {
    if (line.substr(0, zone.size()) != zone) return false;
    return line.size() == zone.size() || grx::is_blank(line[zone.size()]);
}

} // namespace

namespace grx {

void forget_menu_zone() {
    Debut_Menu = false;
}

MenuFile::MenuFile() : file_(open_menu_file(menu_file_name())), line_(empty_line()) {}

MenuFile::~MenuFile() {
    if (file_ != nullptr) ftext_close(file_);
}

bool MenuFile::next() {
    while (ftext_lec(file_, text_) != 0) {
        if (decode_line(view(text_), kMenuZone, line_, in_zone_, depth_) == kTaken) return true;
    }
    Debut_Menu = false; // the next file of the application starts outside its zone
    return false;
}

MenuZone::MenuZone(const char* file, const char* zone)
    : file_(open_menu_file(view(file).empty() ? menu_file_name() : file)), zone_(trimmed(view(zone))),
      line_(empty_line()) {}

MenuZone::~MenuZone() {
    if (file_ != nullptr) ftext_close(file_);
}

bool MenuZone::find_marker() {
    while (!in_zone_ && ftext_lec(file_, text_) != 0) in_zone_ = is_marker(view(text_), zone_);
    return in_zone_;
}

bool MenuZone::next() {
    if (!find_marker()) return false;
    while (ftext_lec(file_, text_) != 0) {
        const INT before = depth_;
        if (before == 0 && view(text_).substr(0, 2) == "#:") return false; // the marker of another zone
        if (decode_line(view(text_), {}, line_, in_zone_, depth_) == kTaken) return depth_ > 0 || before == 0;
    }
    return false;
}

} // namespace grx

extern "C" {

INT decode_ligne_ressource_menu(char* debut, char* ligne, LI_MENU* ligne_menu, INT* ind_para) {
    if (ligne_menu == nullptr || ind_para == nullptr) return kSkipped;
    return decode_line(grx::view(ligne), grx::view(debut), *ligne_menu, Debut_Menu, *ind_para);
}

INT decode_chaine_ressource_menu(char* chaine, LI_MENU* ligne_menu) {
    return ligne_menu != nullptr ? decode_content(*ligne_menu, grx::menu_content(grx::view(chaine))) : kNoKeyword;
}

INT copie_li_menu(LI_MENU* li1, LI_MENU li2) {
    if (li1 != nullptr) *li1 = li2;
    return 0;
}
}
