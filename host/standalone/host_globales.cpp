// The globals of the default host.
#include "host_prive.h"

#include <array>

namespace {

constexpr std::size_t strings = 100; // more than the library reads, for the application's own use

std::array<INT*, HOST_NB_LISTES> list_positions{};
std::array<INT, HOST_NB_LISTES> list_selected_counts{};
std::array<INT, HOST_NB_LISTES> list_counts{};
std::array<CH80*, HOST_NB_LISTES> list_texts{};

} // namespace

HOST_DEFAULT INT caracs_entree[HOST_NB_CARACS_ENTREE] = {};
HOST_DEFAULT int device_output = HOST_SORTIE_AUCUNE;
HOST_DEFAULT INT Itbl = 0;
HOST_DEFAULT TBL_TABLEUR_AFF Taffiche[HOST_NB_TABLES] = {};
HOST_DEFAULT INT istate[HOST_NB_ISTATE] = {};
HOST_DEFAULT char* sstate[strings] = {};
HOST_DEFAULT INT** lcstate = list_positions.data();
HOST_DEFAULT INT* listate = list_selected_counts.data();
HOST_DEFAULT INT* lnstate = list_counts.data();
HOST_DEFAULT CH80** lsstate = list_texts.data();
