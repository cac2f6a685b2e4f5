/* host_t.h - base types of the interface, and the records that the application owns. */
#ifndef HOST_T_H
#define HOST_T_H

#include <stdint.h>

typedef int32_t INT;
typedef int16_t INT2;
typedef int32_t LONG; /* 32 bits on every machine */
typedef double DOUBLE;
typedef uint32_t UNSIGNED_INT;
typedef uint16_t UNSIGNED_INT2;
typedef uint32_t UNSIGNED_INT4;
typedef unsigned char uchar;
typedef char CH20[20];
typedef char CH40[40];
typedef char CH80[80];

/* Sizes, the final zero included. */
#define HOST_LIGNE_MAX 1024  /* line of a text file: buffers given to ftext_lec and text_lec */
#define HOST_CHEMIN_MAX 1024 /* path: buffer given to compose_adresse_fichier */
#define HOST_MESSAGE_MAX 256 /* text of a message: buffer given to litmess and its like */
#define HOST_NOMBRE_MAX 1024 /* number as text: buffer given to str_ftoa */
#define HOST_NB_TABLES 10    /* places of Taffiche */

/* A text with its bookkeeping; all zero = empty. The library reads str only. */
typedef struct STRING {
    char* str;
    INT lg;     /* length */
    INT taille; /* allocated size */
} STRING;

/* What a file dialog is for. */
#define HOST_CATAL_ECRITURE 1 /* type_operation: write; every other value reads */
#define HOST_CATAL_LECTURE 2

typedef struct STRUCT_CATAL {
    STRING adr_icon;
    STRING titre; /* dialog title */
    STRING msg;
    INT2 flag_multi;
    INT2 flag_fic_present;
    INT2 type_operation; /* HOST_CATAL_... */
} STRUCT_CATAL, SCATAL;

/* A directory and file names in it; all zero = empty. */
typedef struct STRUCT_FICHIER {
    STRING adrs;  /* directory */
    STRING* fics; /* names */
    INT2 nb_fics;
} STRUCT_FICHIER, SFICHIER;

/* The file kinds that a file dialog offers. */
typedef struct STRUCT_SFILTRE {
    STRING* filtres_msg; /* what the user reads */
    STRING* filtres_ext; /* extensions without the dot */
    INT2 nb_filtres;
} STRUCT_SFILTRE, SFILTRE;

/* One table of the application's table display. The library writes nb_choix and tbou_choix. */
typedef struct TBL_TABLEUR_AFF {
    INT nofen;
    INT nb_col;
    INT nb_lig;
    INT nb_fonc;
    INT nb_choix; /* choices of the table's choice control */
    INT nb_val_choix;
    INT ichoix;
    INT* tbou_col;
    INT* tbou_lig;
    INT* tbou_fonc;
    INT* tbou_choix; /* their button numbers */
    INT* tbou_champ;
    CH20 mchoix[20];
    INT nobou_scroll;
    INT* ibdd_col;
    INT* ibdd_lig;
    INT* ibdd_fonc;
    INT (*tproc)(void);
} TBL_TABLEUR_AFF;

#endif
