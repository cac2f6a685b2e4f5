// Reading of DXF drawings.
#ifndef ATELIER_DXF_LECTURE_H
#define ATELIER_DXF_LECTURE_H

#include <string>
#include <string_view>

#include "dessin.h"
#include "dxf_texte.h"
#include "suivi.h"

namespace atelier {

// Both throw ErreurLecture when there is no drawing to be had, and Suivi::Abandon when suivi gives up.
Dessin lit_dessin(const std::string& chemin, Suivi suivi = {});
Dessin lit_texte(std::string_view texte, Suivi suivi = {});

// "12 entites non dessinees: HATCH 3, IMAGE 9", or nothing when all of them are drawn.
std::string bilan(const Compte& non_dessinees);

} // namespace atelier

#endif
