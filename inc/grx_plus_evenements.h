/* grx_plus_evenements.h - additions: the types of event records from 200 up, and their details.
 *
 * They come from grx_digitaliseur and grx_digitaliseur_fenetre like all records, each after an
 * application asked for it by the function named beside it, and never without. They wait in a queue of
 * their own, so that none is lost or replaced, and come before the next event of the display is read. */
#ifndef GRX_PLUS_EVENEMENTS_H
#define GRX_PLUS_EVENEMENTS_H

#include "grx_api.h"
#include "host_t.h"

/* Record types (type_evenement), with the member of GRX_EVENEMENT that carries them. */
#define GRX_EVT_FERMETURE 200   /* destruction: the user wants to close window nofen, which stays */
#define GRX_EVT_MINUTERIE 201   /* exec_fonction: timer no_fo is due, valeur times since it was told last */
#define GRX_EVT_DESCRIPTEUR 202 /* exec_fonction: watch no_fo, valeur GRX_DESCRIPTEUR_... bits */
#define GRX_EVT_OISIF 203       /* exec_fonction: nothing else to do; idle work no_fo may go on */
#define GRX_EVT_MESSAGE 204     /* reponse_question: message nofen was answered with reponse; 0: it was not */
#define GRX_EVT_SAISIE 205      /* exec_fonction: prompt nofen, valeur, chaine; details: text 0, reel */
#define GRX_EVT_AIDE 206        /* exec_fonction: help wanted on nofen, nobou, no_fo; valeur GRX_AIDE_... */
#define GRX_EVT_DEPOT 207       /* exec_fonction: valeur says what was dropped on window nofen; details: x, y, texts */
#define GRX_EVT_PRESSE_PAPIERS 208 /* exec_fonction: another program took selection valeur from us */

/* Details of a record, whatever its type. */
typedef struct GRX_DETAIL_EVENEMENT {
    INT taille;         /* of this record in bytes */
    INT type_evenement; /* of the record told of; 0 when the record delivered last has no details */
    INT x;              /* what the type says, else 0 */
    INT y;
    DOUBLE reel;   /* what the type says, else 0 */
    INT nb_textes; /* texts that grx_recup_texte_detail_evenement gives */
} GRX_DETAIL_EVENEMENT;

GRX_DEBUT_C

/* Sets taille and empties the rest: before grx_recup_detail_evenement. Gives 1, or GRX_ECHEC_PARAMETRE
 * for null.
 * Depuis 1.1 */
GRX_API INT grx_init_detail_evenement(GRX_DETAIL_EVENEMENT* detail);

/* What the record delivered last says beyond its own members. Types below 200 have no details.
 * detail: out, its taille set before. Gives 1; GRX_ECHEC_ABSENT when there are none (type_evenement is 0
 * then); GRX_ECHEC_PARAMETRE for null or a taille that is none.
 * Depuis 1.1 */
GRX_API INT grx_recup_detail_evenement(GRX_DETAIL_EVENEMENT* detail);

/* One text of these details, rang from 0: whole, where a member of the record had to cut it. Gives a text
 * that is the library's and stays until the next record is delivered; null when there is none of this rank.
 * Depuis 1.1 */
GRX_API const char* grx_recup_texte_detail_evenement(INT rang);

GRX_FIN_C

#endif
