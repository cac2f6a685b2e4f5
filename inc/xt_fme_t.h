/* xt_fme_t.h - the message and information strip. */
#ifndef XT_FME_T_H
#define XT_FME_T_H

#include "xt_bou_t.h"

/* The controls of the strip, described by their button records. */
typedef struct GRX_ZONE_INFO {
    GRX_BOUTON Bou_fleche_haut; /* arrow: one line more */
    GRX_BOUTON Bou_fonction;    /* name of the function at work */
    GRX_BOUTON Bou_mess;        /* message */
    GRX_BOUTON Bou_saisie;      /* entry field */
    GRX_BOUTON Bou_aff_x;       /* coordinates */
    GRX_BOUTON Bou_aff_y;
    GRX_BOUTON Bou_fleche_bas; /* arrow: one line less */
    GRX_BOUTON Bou_plan;       /* labels and fields of the settings */
    GRX_BOUTON Bou_saisie_plan;
    GRX_BOUTON Bou_fen;
    GRX_BOUTON Bou_saisie_fen;
    GRX_BOUTON Bou_couche;
    GRX_BOUTON Bou_saisie_couche;
    GRX_BOUTON Bou_alt;
    GRX_BOUTON Bou_saisie_alt;
    GRX_BOUTON Bou_force;
    GRX_BOUTON Bou_saisie_force;
    GRX_BOUTON Bou_grille;
    GRX_BOUTON Bou_polaire;
} GRX_ZONE_INFO;

#endif
