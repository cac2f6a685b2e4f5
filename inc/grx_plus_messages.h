/* grx_plus_messages.h - additions: messages, questions, prompts, and the progress of long work.
 *
 * Boxes (messages, questions and prompts) are modal for the application: its other windows take no input
 * while one is on show, but are redrawn. Each is described by a record, emptied by its init function
 * first, and comes in two ways: grx_attend_... shows it and returns with the answer; grx_affiche_... shows
 * it and returns at once, and the answer comes as an event record. Several may be on show, the one shown last
 * on top; the answer that is waited for innermost is the first to return.
 *
 * Texts are bytes in the application's encoding, which may be Latin-1 or UTF-8, whatever the locale; they
 * are copied. Labels of buttons: a letter after & is underlined and chosen by Alt and that letter; && is
 * one &, and an & before a blank or at the end stands for itself. Null or "" is the usual label in French,
 * or what the application's messages 1250 (OK), 1246 (Annuler) and 83 (Oui, Non) say; it has no letter for Alt.
 *
 * Keys: Tab and the arrows move between the controls; Return and KP_Enter choose the button with the
 * keyboard, in a field the default; the space bar the one with the keyboard; Escape and the window manager's
 * close choose the button that is named for it. NumLock and CapsLock make no difference.
 *
 * nofen_mere, in all records: the window over which it is centred, in front of which it stays and with which
 * it goes; GRX_AUCUN or 0 for none: it is then centred on the screen's work area, in front of the main window. Where the
 * window is not on show (hidden, or minimised), the same. A number that names no window is
 * GRX_ECHEC_NUMERO. */
#ifndef GRX_PLUS_MESSAGES_H
#define GRX_PLUS_MESSAGES_H

#include "grx_api.h"
#include "host_t.h"

/* genre of a message: its picture, and its buttons where nb_boutons is 0. */
#define GRX_BOITE_INFORMATION 0   /* OK */
#define GRX_BOITE_AVERTISSEMENT 1 /* OK */
#define GRX_BOITE_ERREUR 2        /* OK */
#define GRX_BOITE_QUESTION 3      /* Oui, Non */

#define GRX_BOITE_BOUTONS_MAX 3 /* buttons of a message */
#define GRX_BOITES_MAX 16       /* boxes on show at once */

/* genre of a prompt. */
#define GRX_SAISIE_TEXTE 0  /* a line of text */
#define GRX_SAISIE_ENTIER 1 /* an integer */
#define GRX_SAISIE_REEL 2   /* a real number; decimal point or comma, exponent */

#define GRX_AVANCEMENTS_MAX 8 /* progress within progress */

/* A message or question. */
typedef struct GRX_BOITE_MESSAGE {
    INT taille;
    INT genre;         /* GRX_BOITE_...; INFORMATION by init */
    INT nofen_mere;    /* see above; GRX_AUCUN by init */
    INT nb_boutons;    /* 1 to 3; 0 (init) as the kind says */
    const char* titre; /* of the window; "" as the parent's or main window's */
    const char* texte; /* lines end with \n; long ones are wrapped; a very long text is scrolled */
    const char* boutons[GRX_BOITE_BOUTONS_MAX]; /* labels from the left; usual: OK; OK, Annuler (a question: Oui,
                                                   Non); Oui, Non, Annuler */
    INT bouton_defaut;                          /* 1 to nb_boutons: what Return chooses at first; 0 (init): the first */
    INT bouton_abandon; /* 1 to nb_boutons: what Escape and the window manager's close choose; 0 (init): the last */
} GRX_BOITE_MESSAGE;

/* A prompt for a line of text or a number. */
typedef struct GRX_BOITE_SAISIE {
    INT taille;
    INT genre;                  /* GRX_SAISIE_...; TEXTE by init */
    INT nofen_mere;             /* see above; GRX_AUCUN by init */
    INT longueur_max;           /* characters that the field takes; 0 (init) or less: any number */
    const char* titre;          /* of the window; "" as the parent's or main window's */
    const char* etiquette;      /* what is asked, above the field; as the text of a message */
    const char* texte;          /* TEXTE: what the field holds at first, selected; control characters become blanks */
    const char* bouton_accord;  /* labels; usual: OK */
    const char* bouton_abandon; /* usual: Annuler */
    DOUBLE valeur;              /* numbers: what the field holds at first, selected */
    DOUBLE minimum;             /* numbers: the bounds, which belong to what is allowed; by init all numbers */
    DOUBLE maximum;
    INT nb_decimales; /* REEL: decimals of the first value, 0 to 15; -1 (init): as many as it has */
    INT sans_valeur;  /* numbers: not 0: the field is empty at first; 0 by init */
} GRX_BOITE_SAISIE;

/* A piece of long work. */
typedef struct GRX_AVANCEMENT {
    INT taille;
    INT nofen_mere;                /* see above; GRX_AUCUN by init */
    INT abandon;                   /* not 0: the user may cancel; 1 by init */
    INT delai;                     /* milliseconds of work before the window comes; 500 by init; below 0 counts as 0 */
    const char* titre;             /* of the window; "" as the parent's or main window's */
    const char* texte;             /* above the bar, one line; what does not fit is cut */
    const char* etiquette_abandon; /* of the cancel button; usual: Annuler */
    DOUBLE maximum;                /* where the work is done, counted from 0; 0 (init), less or no number: unknown */
    DOUBLE part;                   /* within other progress: what all of this one is of it, in its units; 0 by init */
} GRX_AVANCEMENT;

GRX_DEBUT_C

/* Sets taille and the values that the record says; the rest is emptied. Give 1, or GRX_ECHEC_PARAMETRE for
 * null.
 * Depuis 1.1 */
GRX_API INT grx_init_boite_message(GRX_BOITE_MESSAGE* boite);
GRX_API INT grx_init_boite_saisie(GRX_BOITE_SAISIE* boite);
GRX_API INT grx_init_avancement(GRX_AVANCEMENT* avancement);

/* -- messages and questions */

/* Shows a message and handles events until it is answered. Input in other windows is not taken; records that
 * events make meanwhile are dropped, ends of windows are told afterwards by grx_digitaliseur, records of types
 * from 200 up wait there. Returns the button, from 1; 0 when the message went without an answer: with its
 * parent or with the main window. Else GRX_ECHEC_AFFICHAGE, PARAMETRE (null, taille,
 * kind or a number of a button out of range), NUMERO (nofen_mere), PLEIN (GRX_BOITES_MAX are on show) or
 * MEMOIRE, with nothing shown.
 * Depuis 1.1 */
GRX_API INT grx_attend_boite_message(const GRX_BOITE_MESSAGE* boite);

/* Shows a message and returns at once with its number, 1 or more, never given twice; or a code as above.
 * The answer comes once, as GRX_EVT_MESSAGE: reponse_question.nofen is this number, reponse the button from 1,
 * or 0 when it went with its parent; no details. The message is off the screen by then.
 * Depuis 1.1 */
GRX_API INT grx_affiche_boite_message(const GRX_BOITE_MESSAGE* boite);

/* -- prompts */

/* Shows a prompt and handles events, as grx_attend_boite_message does, until the user has agreed or cancelled.
 * A number that is none, or beyond the bounds, is not agreed to: the prompt says so below the field and stays.
 * An integer has no decimals and is within 32 bits whatever the bounds. Returns 1 for agreed; 0 for cancelled,
 * or gone as above; or a code as above; PARAMETRE also for bounds that are no numbers or the wrong way round.
 * texte: out, null for none: what the field holds, for numbers as typed, in the encoding of what the record said
 * (UTF-8 where its texts were), taille_texte bytes with the final zero; what does not fit is cut between
 * characters. valeur: out, null for none: the number; 0 for a text. Neither is written unless the result is 1.
 * Depuis 1.1 */
GRX_API INT grx_attend_boite_saisie(const GRX_BOITE_SAISIE* boite, char* texte, INT taille_texte, DOUBLE* valeur);

/* Shows a prompt and returns at once with its number, from the same count as those of messages; or a code as
 * above. The answer comes once, as GRX_EVT_SAISIE: exec_fonction.nofen is this number, valeur 1 for agreed or 0
 * for cancelled or gone, nobou and no_fo GRX_AUCUN, chaine the text, cut to its room; the whole text by
 * grx_recup_texte_detail_evenement(0), the number by the detail's reel. Cancelled: empty text, 0.
 * Depuis 1.1 */
GRX_API INT grx_affiche_boite_saisie(const GRX_BOITE_SAISIE* boite);

/* Takes a message or prompt shown by grx_affiche_... off the screen without an answer; a record of it that
 * waits is dropped as well. Gives 1; GRX_ECHEC_NUMERO when there is no such box any more, nor a record of it.
 * Depuis 1.1 */
GRX_API INT grx_detruit_boite(INT numero);

/* -- work in progress
 *
 *     grx_avancement_commence(&avancement);
 *     while (work() && grx_avancement_avance(done, NULL) == 1) continue;
 *     grx_avancement_finit();
 *
 * The window comes after delai of work, seen by grx_avancement_avance, so short work shows nothing. While it is
 * on show, that function redraws it about twenty times a second, looks whether the user wants to cancel (the
 * button, Escape in any window of the application, the close box), has controls redrawn, and graphic windows
 * from their backing pictures. It delivers nothing: events of the application stay where they are for
 * grx_digitaliseur afterwards, each once, except that presses of keys and mouse buttons in other windows, their
 * releases, and movements of the pointer are dropped while the window is on show, as before a modal dialog. What was
 * typed or clicked before it came is kept. The loop may run between two calls, as for work done in idle turns
 * (grx_cree_tache_oisive): timers, idle works and requests to close windows are told then as ever. */

/* Begins work. Within work that has begun already it is a part of that: its text comes on a second line, its
 * progress moves the bar within `part`, and only abandon, texte, maximum and part are read; it can be cancelled
 * when it and all around it can. Gives 1; GRX_ECHEC_AFFICHAGE, PARAMETRE (null, taille), NUMERO (nofen_mere)
 * or PLEIN (GRX_AVANCEMENTS_MAX have begun): nothing has begun then, and no end is to be told.
 * Depuis 1.1 */
GRX_API INT grx_avancement_commence(const GRX_AVANCEMENT* avancement);

/* Moves the work begun last on. valeur: what is done, 0 to maximum, beyond either end as that end; it may go back;
 * no number leaves it where it is; with an unknown maximum it is not read, and each call keeps the bar moving.
 * texte: the new text; null leaves it as it is. Cheap enough for each turn of a loop: most calls
 * only look at the clock. Gives 1 to go on; 0 when the user has cancelled; GRX_ECHEC_ABSENT when no
 * work has begun.
 * Depuis 1.1 */
GRX_API INT grx_avancement_avance(DOUBLE valeur, const char* texte);

/* 1 when the user has cancelled the work that has begun, until the outermost ends; else 0.
 * Depuis 1.1 */
GRX_API INT grx_avancement_abandonne(void);

/* Ends the work begun last; with the outermost the window goes. Gives 1, or GRX_ECHEC_ABSENT.
 * Depuis 1.1 */
GRX_API INT grx_avancement_finit(void);

GRX_FIN_C

#endif
