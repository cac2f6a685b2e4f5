// Menu files: whatever they hold, each line gives one of the stated results and a record within its bounds.
#include "host_f.h"
#include "pure/menu_line.h"
#include "xt_fen_f.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>

namespace {

void require(bool holds) {
    if (!holds) std::abort();
}

// Texts of every length that the interface permits, by their number.
INT message(INT number, char* text) {
    std::memset(text, '&', HOST_MESSAGE_MAX);
    text[static_cast<unsigned>(number) % HOST_MESSAGE_MAX] = '\0';
    return number > 0 ? 1 : 0;
}

bool is_empty(const LI_MENU& line) {
    return line.nom_fonction[0] == '\0' && line.accelerateur[0] == '\0' && line.mneumonic == GRX_MENU_SANS_MNEMO
           && line.no_fo == 0 && line.itype == GRX_MENU_AUCUN;
}

void check_record(INT result, const LI_MENU& line, std::string_view text) {
    require(std::memchr(line.nom_fonction, '\0', sizeof line.nom_fonction) != nullptr);
    require(std::memchr(line.accelerateur, '\0', sizeof line.accelerateur) != nullptr);
    if (result < 0) require(is_empty(line));
    if (line.itype == GRX_MENU_POPUP) require(text.find("POPUP") != text.npos && line.no_fo == 0);
    if (line.itype == GRX_MENU_ITEM) require(text.find("ITEM") != text.npos && text.find("POPUP") == text.npos);
    if (line.itype == GRX_MENU_AUCUN) require(is_empty(line));
    const auto parts = grx::split_accelerator(grx::first_accelerator(line.accelerateur));
    require(parts.modifiers.size() + parts.key.size() < sizeof line.accelerateur);
}

void decode(char* marker, std::string text, INT& depth) {
    const std::string before = text;
    const INT depth_before = depth;
    LI_MENU line{};
    line.mneumonic = GRX_MENU_SANS_MNEMO;
    const INT result = decode_ligne_ressource_menu(marker, text.data(), &line, &depth);
    require(text == before);
    require(result == 1 || result == 0 || result == -1 || result == -2);
    require(depth >= 0 && std::abs(depth - depth_before) <= 1);
    if (result != 0) require(depth == depth_before);
    check_record(result, line, std::string_view(text.c_str()));
}

} // namespace

extern "C" INT f_mess_menu_lire(INT, INT nummess, char* texte) {
    return message(nummess, texte);
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::string_view rest(reinterpret_cast<const char*>(data), size);
    char marker[] = "#:ZONE_MENU_BAR";
    INT depth = 0;
    while (!rest.empty()) {
        const auto end = rest.find('\n');
        decode(marker, std::string(rest.substr(0, end)), depth);
        rest.remove_prefix(end == rest.npos ? rest.size() : end + 1);
    }
    return 0;
}
