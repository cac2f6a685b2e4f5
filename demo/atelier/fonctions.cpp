#include "fonctions.h"

namespace atelier {

namespace {

struct Nom {
    int fonction;
    const char* nom;
};
constexpr Nom kNoms[]{{kFonctionToutVoir, "Tout voir"}, {kFonctionAgrandir, "Agrandir"},
    {kFonctionReduire, "R\351duire"}, {kFonctionOuvrir, "Ouvrir"}, {kFonctionImage, "Enregistrer l'image"},
    {kFonctionPieces, "Liste des pi\350ces"}, {kFonctionTracer, "Tracer"}, {kFonctionNote, "Note"},
    {kFonctionNoteIci, "Note"}, {kFonctionPapier, "Exporter en PDF"}, {kFonctionMesurer, "Mesurer"},
    {kFonctionNotesEnregistrer, "Enregistrer les notes"}, {kFonctionCopierPieces, "Copier la liste"},
    {kFonctionCouleurs, "Couleurs"}, {kFonctionReglages, "R\351glages"}, {kFonctionCouchesPanneau, "Couches"},
    {kFonctionNomenclature, "Nomenclature"}, {kFonctionBande, "Bande d'information"}, {kFonctionTitre, "Titre"},
    {kFonctionBord, "Bord"}};

} // namespace

const char* nom_de(int fonction) {
    for (const Nom& n : kNoms)
        if (n.fonction == fonction) return n.nom;
    return "Navigation";
}

} // namespace atelier
