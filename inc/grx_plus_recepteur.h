/* grx_plus_recepteur.h - additions: what is drawn given to functions of the application instead of the screen.
 *
 * While a receiver is set, every drawing primitive is handed to it with its record as it came in, and the screen,
 * the backing pictures and the server get nothing of it: a plotter, a file, a list of what was drawn. No display
 * is needed, nor a window of that number; numbers are not looked at, coordinates neither. Polygons without
 * points and pictures without pixels or size do not come.
 * Memory drawing may go on as usual: while a receiver is set grx_alloue_image and its like empty and show
 * nothing. grx_affiche_bitmap_backingstore, grx_restore_fenetre, grx_recup_image, dessine_rect and what the
 * toolkit draws of controls stay with the screen.
 * What a function of the receiver draws itself goes to the screen. */
#ifndef GRX_PLUS_RECEPTEUR_H
#define GRX_PLUS_RECEPTEUR_H

#include "grx_api.h"
#include "host_t.h"

GRX_DEBUT_C

/* Records of xt_gfx_t.h. */
struct GRX_POINT;
struct GRX_SEGMENT;
struct GRX_RECTANGLE;
struct GRX_ARC;
struct GRX_POLY;
struct GRX_TEXTE;

/* A picture that is drawn. The tables are the application's, top row first; those that it did not give, or that
 * the function called has none of, are null. */
typedef struct GRX_IMAGE_RECUE {
    INT taille;
    INT numero;  /* of the window or button */
    INT largeur; /* of the picture */
    INT hauteur;
    INT x; /* where its top left corner lies */
    INT y;
    INT largeur_finale; /* as large as it is shown */
    INT hauteur_finale;
    const unsigned char* pixels_24;  /* three bytes each: blue, green, red */
    const unsigned char* pixels_8;   /* one byte each: colour indices */
    const UNSIGNED_INT* pixels_argb; /* 0xAARRGGBB, the colours not multiplied by alpha */
} GRX_IMAGE_RECUE;

/* A receiver. Members that are null take nothing: such primitives are drawn nowhere. cible: GRX_CIBLE_FENETRE, and
 * nofen of the record is a window, or GRX_CIBLE_BOUTON, and it is a control. Records and what they point at are good
 * until the function returns. */
typedef struct GRX_RECEPTEUR {
    INT taille;
    void* donnee; /* handed to every function */

    void (*point)(void* donnee, INT cible, const struct GRX_POINT* point);
    void (*segment)(void* donnee, INT cible, const struct GRX_SEGMENT* segment);
    void (*rectangle)(void* donnee, INT cible, const struct GRX_RECTANGLE* rectangle);
    void (*rectangle_plein)(void* donnee, INT cible, const struct GRX_RECTANGLE* rectangle);
    void (*arc)(void* donnee, INT cible, const struct GRX_ARC* arc);
    void (*arc_plein)(void* donnee, INT cible, const struct GRX_ARC* arc); /* a slice of pie */
    void (*polyline)(void* donnee, INT cible, const struct GRX_POLY* poly);
    /* Filled by the even-odd rule; of grx_remplit_triangle and remplit_tableau_triangles as well. Where a
     * function has no window number (remplit_tableau_...) nofen is the window drawn to last, else -1. */
    void (*polygone)(void* donnee, INT cible, const struct GRX_POLY* poly);
    /* grx_ecrit_fenetre: x, y begin the baseline, colours coul_trace and coul_fond. grx_trace_texte_bouton: x, y
     * are the bottom left of its box, colours those of attrib. */
    void (*texte)(void* donnee, INT cible, const struct GRX_TEXTE* texte);
    /* A text by its label fields (grx_plus_textes.h): grx_recup_contours_texte gives its outlines. The record is
     * not looked at before; grx_trace_texte_dessin gives 1. */
    void (*texte_dessin)(void* donnee, INT cible, const struct GRX_TEXTE* texte);
    void (*image)(void* donnee, INT cible, const GRX_IMAGE_RECUE* image);
    /* grx_efface_zone_graphique and its like. numero: window or control. */
    void (*efface)(void* donnee, INT cible, INT numero);

    /* The library's work ends (grx_termine_application) while the receiver is set; it is set no more. Nothing may be
     * drawn here. */
    void (*fin)(void* donnee);
} GRX_RECEPTEUR;

/* Sets taille and empties the rest. Gives 1, or GRX_ECHEC_PARAMETRE for null.
 * Depuis 1.1 */
GRX_API INT grx_init_recepteur(GRX_RECEPTEUR* recepteur);

/* Sets a receiver, of which the library takes a copy. Gives 1; GRX_ECHEC_PARAMETRE for null or another size;
 * GRX_ECHEC_OCCUPE while one is set. May be called before start-up.
 * Depuis 1.1 */
GRX_API INT grx_affecte_recepteur(const GRX_RECEPTEUR* recepteur);

/* Takes the receiver with this donnee away, so that the screen is drawn to again; fin is not called. Gives 1, or
 * GRX_ECHEC_ABSENT when none is set, or one with another donnee. One of its own functions may call it.
 * Depuis 1.1 */
GRX_API INT grx_retire_recepteur(const void* donnee);

GRX_FIN_C

#endif
