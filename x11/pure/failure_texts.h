// The texts of the codes that additions answer with.
#pragma once

#include <array>

#include "grx_plus_erreurs.h"

namespace grx {

struct FailureText {
    INT code;
    const char* text;
};

inline constexpr std::array<FailureText, 13> kFailureTexts{{
    {1, "done"},
    {GRX_ECHEC_NUMERO, "the number names nothing"},
    {GRX_ECHEC_GENRE, "the function is not for things of this kind"},
    {GRX_ECHEC_PARAMETRE, "a null pointer, or a value out of range"},
    {GRX_ECHEC_MEMOIRE, "no memory"},
    {GRX_ECHEC_PLEIN, "the table is full"},
    {GRX_ECHEC_AFFICHAGE, "the library is not started, or the display is gone"},
    {GRX_ECHEC_FICHIER, "the file cannot be read or written"},
    {GRX_ECHEC_FORMAT, "the content is not what it should be"},
    {GRX_ECHEC_ABSENT, "nothing there to give"},
    {GRX_ECHEC_DELAI, "no answer in time"},
    {GRX_ECHEC_OCCUPE, "not now, it is going on already"},
    {GRX_ECHEC_COMMANDE, "a command of the system is not there or has failed"},
}};

constexpr const char* failure_text(INT code) {
    for (const auto& entry : kFailureTexts)
        if (entry.code == code) return entry.text;
    return "unknown code";
}

} // namespace grx
