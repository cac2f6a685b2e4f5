// Messages of the default host.
//
// Messages of the dialogs (litmess, f_me_lire): the file MSG_COMM.DAT of the system directory, sstate[SST_REP_SYSTEME],
// overrides the table below. Messages of the menus (f_mess_menu_lire): the file MSG_MENU.DAT of the menu directory,
// sstate[SST_REP_MENU]. Both hold lines "number|text"; other lines say nothing, the first line of a number wins, and a text
// is cut at 255 characters. The files are read anew at each call: a number is asked for when a dialog or a menu is built.
#include "host_prive.h"

#include <array>
#include <cstdlib>

using namespace grx_host;

namespace {

constexpr const char* dialog_messages = "MSG_COMM.DAT";
constexpr const char* menu_messages = "MSG_MENU.DAT";

struct Message {
    INT number;
    const char* text;
};

// In ISO 8859-1. 83 is a question and the labels of its two buttons.
constexpr std::array<Message, 9> default_messages{{
    {83, "Remplacer le fichier ? -Oui -Non"},
    {1066, "Fichiers"},
    {1245, "Enregistrer"},
    {1246, "Annuler"},
    {1250, "OK"},
    {1251, "Filtre"},
    {1315, "Ouvrir"},
    {1335, "S\351lection"},
    {1336, "R\351pertoires"},
}};

// The text behind "number|" at the start of a line; null when the line is not about number.
const char* text_of(const char* line, INT number) {
    char* end = nullptr;
    const auto found = std::strtol(line, &end, 10);
    if (end == line || found != number) return nullptr;
    while (*end == ' ' || *end == '\t') ++end;
    return *end == '|' ? end + 1 : nullptr;
}

bool find_in_file(const char* directory, const char* name, INT number, char* text) {
    std::FILE* const file = open_text(directory, name, HOST_MODE_LECTURE);
    if (!file) return false;
    std::array<char, line_size> line{};
    const char* found = nullptr;
    while (!found && read_line(file, line.data())) found = text_of(line.data(), number);
    std::fclose(file);
    if (found) store(text, message_size, found);
    return found != nullptr;
}

INT find_dialog_message(INT number, char* text) {
    if (!text) return 0;
    text[0] = '\0';
    if (find_in_file(sstate[SST_REP_SYSTEME], dialog_messages, number, text)) return 1;
    for (const auto& message : default_messages) {
        if (message.number != number) continue;
        store(text, message_size, message.text);
        return 1;
    }
    return 0;
}

} // namespace

HOST_DEFAULT INT litmess(INT nummess, char* texte) {
    return find_dialog_message(nummess, texte);
}

HOST_DEFAULT INT f_me_lire(INT nummess, char* texte) {
    return find_dialog_message(nummess, texte);
}

// The library knows one module, 0; another one has no messages here.
HOST_DEFAULT INT f_mess_menu_lire(INT module, INT nummess, char* texte) {
    if (!texte) return 0;
    texte[0] = '\0';
    return module == 0 && find_in_file(sstate[SST_REP_MENU], menu_messages, nummess, texte) ? 1 : 0;
}
