// Arguments of the additions that nobody should give: records of wrong sizes, tables of texts, constant texts.
#pragma once

#include "tests/display/hostile/hostile_arguments.h"

#include "grx_plus.h"

#include <array>
#include <climits>
#include <cstddef>

namespace grxtest::hostile {

// A record of each size that is none, and of some that are; null now and then. `of_release` is the right size.
template <class Record>
Record* sized(unsigned n, INT of_release = static_cast<INT>(sizeof(Record))) {
    alignas(std::max_align_t) static std::array<std::byte, 2 * sizeof(Record) + 64> room;
    const std::array sizes{of_release, 0, 1, -1, INT_MIN, of_release - 1, of_release + 1, INT_MAX, of_release + 64};
    room.fill(static_cast<std::byte>(n % 3 == 0 ? 0 : 0xA5));
    auto* record = reinterpret_cast<Record*>(room.data());
    record->taille = sizes[n % sizes.size()];
    return n % 11 == 10 ? nullptr : record;
}

// The size of a record that was filled otherwise.
template <class Record>
const Record* with_size(Record& record, unsigned n) {
    const std::array sizes{record.taille, record.taille, record.taille, 0, -1, INT_MIN, record.taille - 1};
    record.taille = sizes[n % sizes.size()];
    return n % 13 == 12 ? nullptr : &record;
}

// Eight texts, some of them null; or no table.
inline const char* const* texts(Bench& bench, unsigned n) {
    static std::array<const char*, 8> table;
    for (std::size_t i = 0; i < table.size(); ++i) table[i] = text(bench, i, n + static_cast<unsigned>(i));
    return n % 5 == 4 ? nullptr : table.data();
}

// As many things as a table of this room holds, or a number that no table has.
inline INT count_within(INT room, unsigned n) {
    return std::min(number(n), room);
}

inline const INT* positions(Bench& bench, unsigned n) {
    auto& table = bench.integers[0];
    for (std::size_t i = 0; i < table.size(); ++i) table[i] = number(n + static_cast<unsigned>(i));
    return n % 5 == 4 ? nullptr : table.data();
}

struct Sides {
    INT width, height;
};

// Of pictures of 3 x 32767 values at most, or of none.
inline Sides sides_of(unsigned n) {
    constexpr std::array<Sides, 12> all{{{1, 1}, {7, 3}, {32767, 3}, {3, 2048}, {0, 5}, {-1, 5}, {INT_MIN, INT_MIN},
        {INT_MAX, INT_MAX}, {32768, 1}, {32767, 32767}, {65536, 65536}, {64, 64}}};
    return all[n % all.size()];
}

// A list of each kind, and what is none.
inline INT list_number(unsigned n) {
    constexpr std::array values{2, 2, 0, 1, 3, GRX_LISTE_PANNEAU, GRX_LISTE_DIALOGUE, GRX_LISTE_DIALOGUE + 9,
        GRX_LISTE_DIALOGUE + 10, GRX_LISTE_PANNEAU - 1, INT_MIN, -1, INT_MAX, 2};
    return values[n % values.size()];
}

inline GRX_CASE hostile_box(Bench& bench, unsigned n) {
    GRX_CASE box{};
    grx_init_case(&box);
    box.nofen = number(n + 3);
    box.x = number(n + 1);
    box.y = number(n + 5);
    box.no_fo = number(n + 2);
    box.etat = number(n);
    box.sensible = number(n + 4);
    box.ipan = n % 2 ? -1 : number(n + 6);
    box.item = n % 2 ? -1 : number(n + 7);
    box.texte = text(bench, 0, n);
    return box;
}

inline GRX_GROUPE hostile_group(Bench& bench, unsigned n) {
    GRX_GROUPE group{};
    grx_init_groupe(&group);
    group.nofen = number(n + 3);
    group.x = number(n + 1);
    group.y = number(n + 5);
    group.no_fo = number(n + 2);
    group.nb = n % 2 ? 1 + static_cast<INT>(n % 8) : count_within(8, n);
    group.choix = n % 2 ? static_cast<INT>(n % 9) - 1 : number(n);
    group.horizontal = number(n);
    group.sensible = number(n + 4);
    group.titre = text(bench, 8, n);
    group.textes = texts(bench, n);
    if (group.textes == nullptr && n % 2) group.nb = INT_MAX;
    return group;
}

inline GRX_BOITE_MESSAGE hostile_message(Bench& bench, unsigned n, INT parent) {
    GRX_BOITE_MESSAGE message{};
    grx_init_boite_message(&message);
    message.genre = n % 2 ? static_cast<INT>(n % 4) : number(n);
    message.nofen_mere = parent;
    message.nb_boutons = n % 3 ? static_cast<INT>(n % 4) : number(n + 1);
    message.titre = text(bench, 0, n);
    message.texte = text(bench, 1, n + 1);
    for (unsigned i = 0; i < GRX_BOITE_BOUTONS_MAX; ++i) message.boutons[i] = text(bench, 2 + i, n + 2 + i);
    message.bouton_defaut = n % 3 ? 0 : number(n + 2);
    message.bouton_abandon = n % 5 ? 0 : number(n + 3);
    return message;
}

inline GRX_BOITE_SAISIE hostile_prompt(Bench& bench, unsigned n, INT parent) {
    GRX_BOITE_SAISIE prompt{};
    grx_init_boite_saisie(&prompt);
    prompt.genre = n % 4 ? static_cast<INT>(n % 3) : number(n);
    prompt.nofen_mere = parent;
    prompt.longueur_max = number(n + 1);
    prompt.titre = text(bench, 0, n);
    prompt.etiquette = text(bench, 1, n + 1);
    prompt.texte = text(bench, 2, n + 2);
    prompt.bouton_accord = text(bench, 3, n + 3);
    prompt.bouton_abandon = text(bench, 4, n + 4);
    if (n % 2) {
        prompt.valeur = Argument<DOUBLE>::make(bench, 0, n);
        prompt.minimum = Argument<DOUBLE>::make(bench, 0, n / 2);
        prompt.maximum = Argument<DOUBLE>::make(bench, 0, n / 3);
    }
    prompt.nb_decimales = number(n + 5);
    prompt.sans_valeur = number(n + 6);
    return prompt;
}

inline GRX_AVANCEMENT hostile_progress(Bench& bench, unsigned n) {
    GRX_AVANCEMENT told{};
    grx_init_avancement(&told);
    told.nofen_mere = n % 2 ? GRX_AUCUN : number(n);
    told.abandon = number(n + 1);
    told.delai = n % 2 ? 0 : number(n + 2);
    told.titre = text(bench, 0, n);
    told.texte = text(bench, 1, n + 1);
    told.etiquette_abandon = text(bench, 2, n + 2);
    told.maximum = Argument<DOUBLE>::make(bench, 0, n);
    told.part = Argument<DOUBLE>::make(bench, 0, n / 2);
    return told;
}

template <>
struct Argument<const char*> {
    static const char* make(Bench& bench, std::size_t place, unsigned n) { return text(bench, place, n); }
};
template <>
struct Argument<const INT*> {
    static const INT* make(Bench& bench, std::size_t, unsigned n) { return positions(bench, n); }
};

} // namespace grxtest::hostile
