// The numbers and names of what atelier can do: menus, keys of menus and icons name the same action by the same number.
#ifndef ATELIER_FONCTIONS_H
#define ATELIER_FONCTIONS_H

namespace atelier {

enum Fonction {
    kFonctionOuvrir = 201,
    kFonctionImage = 202,
    kFonctionPieces = 203,
    kFonctionTracer = 204,
    kFonctionNote = 205,
    kFonctionNotesEnregistrer = 206,
    kFonctionCopierPieces = 207,
    kFonctionNoteIci = 208, // of the menu over the sheet
    kFonctionPapier = 209,
    kFonctionToutVoir = 301,
    kFonctionAgrandir = 302,
    kFonctionReduire = 303,
    kFonctionMesurer = 304,
    kFonctionCouchesToutes = 311,
    kFonctionCouchesAucune = 312,
    kFonctionReglages = 321,
    kFonctionCouchesPanneau = 322,
    kFonctionNomenclature = 323,
    kFonctionCouleurs = 324,
    kFonctionBande = 325,
    kFonctionTitre = 326,
    kFonctionBord = 327,
    // Buttons and fields of the panels: the indices of their items in the panel files.
    kFonctionReglagesFermer = 331,
    kFonctionTablePrecedents = 332,
    kFonctionTableSuivants = 333,
    kFonctionTableFermer = 334,
    kFonctionTableCritere = 335,
    kFonctionCouchesChoisies = 341,
    kFonctionCouchesFiltre = 342,
    kFonctionCouchesChoisir = 343,
    kFonctionCouchesPanneauToutes = 344,
    kFonctionCouchesPanneauAucune = 345,
    kFonctionCouchesFermer = 346,
    kFonctionBandeAgrandir = 351, // arrows and fields of the information strip
    kFonctionBandeReduire = 352,
    kFonctionBandeSaisie = 353,
    kFonctionBandeGrille = 354,
    kFonctionBandePolaire = 355,
    kFonctionModuleCommun = 401, // and the two that follow
    kFonctionModuleMeca = 402,
    kFonctionModuleArch = 403,
    kFonctionChampX = 501,
    kFonctionChampY = 502,
    kFonctionZoom = 503,
    kFonctionQuitter = 999,
};

// What the user reads of an action, in Latin-1.
const char* nom_de(int fonction);

} // namespace atelier

#endif
