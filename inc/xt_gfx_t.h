/* xt_gfx_t.h - drawing: attributes, primitives' records, outlines, bitmap files, icons.
 * Coordinates are pixels of the target, origin top left, y downwards. */
#ifndef XT_GFX_T_H
#define XT_GFX_T_H

#include <X11/Xlib.h>

#include "host_t.h"

/* Drawing modes (GRX_ATTRIBUTS_TRACER.mode); any other value draws as GRX_MODE_NORMAL. */
#define GRX_MODE_NORMAL 0
#define GRX_MODE_EFFACE (-1) /* in the window background colour */
#define GRX_MODE_XOR 2048    /* exclusive or: drawing twice restores the picture */

/* Line styles (type_trait); any other value is solid. The gaps are drawn in coul_fond. */
#define GRX_TRAIT_CONTINU 0
#define GRX_TRAIT_MIXTE 1           /* 16, 6, 6, 6 pixels drawn and skipped */
#define GRX_TRAIT_POINTILLE 2       /* 8, 8 */
#define GRX_TRAIT_POINTILLE_COURT 3 /* 4, 4 */
#define GRX_TRAIT_POINTILLE_LONG 4  /* 16, 16 */
#define GRX_TRAIT_MIXTE_1_POINT 5   /* 16, 4, 1, 4 */
#define GRX_TRAIT_MIXTE_2_POINTS 6  /* 16, 4, 1, 4, 1, 4 */
#define GRX_TRAIT_MIXTE_2_TIRETS 7  /* 16, 8, 4, 8, 4, 8 */

/* Target of a picture (type): any value but 1 means a button number. */
#define GRX_CIBLE_BOUTON 0
#define GRX_CIBLE_FENETRE 1

/* Sizes. */
#define GRX_TEXTE_CHAINE_MAX 255
#define GRX_TEXTE_EXTENTS_MAX 256
#define GRX_TRIANGLE_LIGNES 1500 /* rows of the triangle fill; caller stays in 1..1499 */

/* How to draw: what a primitive hands to grx_affecte_gc. Note coul_fond before coul_trace. */
typedef struct GRX_ATTRIBUTS_TRACER {
    INT coul_fond;  /* background colour index */
    INT coul_trace; /* drawing colour index */
    INT mode;       /* GRX_MODE_... */
    INT intensite;  /* carried, never read */
    INT type_trait; /* GRX_TRAIT_... */
    INT epaisseur;  /* line-width index 0..7 (grx_recup_epaisseur) */
} GRX_ATTRIBUTS_TRACER;

/* In the records below the primitives draw with attrib; coul_trace, coul_fond and type_trait
 * are carried for the application. nofen is a button number for the ..._bouton primitives. */
typedef struct GRX_POINT {
    INT nofen;
    INT x;
    INT y;
    INT coul_trace;
    INT coul_fond;
    INT type_trait;
    GRX_ATTRIBUTS_TRACER attrib;
} GRX_POINT;

typedef struct GRX_SEGMENT {
    INT nofen;
    INT x1;
    INT y1;
    INT x2;
    INT y2;
    INT coul_trace;
    INT coul_fond;
    INT type_trait;
    GRX_ATTRIBUTS_TRACER attrib;
} GRX_SEGMENT;

/* Two opposite corners, in any order; both belong to the rectangle. */
typedef struct GRX_RECTANGLE {
    INT nofen;
    INT x1;
    INT y1;
    INT x2;
    INT y2;
    INT coul_trace;
    INT coul_fond;
    INT type_trait;
    GRX_ATTRIBUTS_TRACER attrib;
} GRX_RECTANGLE;

/* Arc of the ellipse in a box; angles in whole degrees, counter-clockwise from 3 o'clock. */
typedef struct GRX_ARC {
    INT nofen;
    INT x; /* top left of the box */
    INT y;
    UNSIGNED_INT lar; /* size of the box */
    UNSIGNED_INT hau;
    INT angle_dep; /* start angle */
    INT angle_arr; /* end angle; smaller than the start = clockwise */
    INT coul_trace;
    INT coul_fond;
    INT type_trait;
    GRX_ATTRIBUTS_TRACER attrib;
} GRX_ARC;

/* Same layout as XPoint: arrays go to the server as they are. */
typedef struct GRX_POINT_POLY {
    short x;
    short y;
} GRX_POINT_POLY;

typedef struct GRX_POLY {
    INT nofen;
    GRX_POINT_POLY* points; /* the caller's */
    INT npoints;
    INT coul_trace;
    INT coul_fond;
    INT type_trait;
    GRX_ATTRIBUTS_TRACER attrib;
} GRX_POLY;

/* The ...label fields describe scalable text; the text primitives do not read them. */
typedef struct GRX_TEXTE {
    INT nofen;
    INT x;
    INT y;
    char chaine[GRX_TEXTE_CHAINE_MAX];
    CH80 fontlabel;      /* font name */
    DOUBLE hauteurlabel; /* height, width, direction and slant */
    DOUBLE largeurlabel;
    DOUBLE cosinuslabel;
    DOUBLE sinuslabel;
    DOUBLE slantlabel;
    INT mirorlabel;                             /* non-zero: mirrored */
    INT filllabel;                              /* non-zero: filled outlines */
    DOUBLE extentslabel[GRX_TEXTE_EXTENTS_MAX]; /* advance of each character */
    INT coul_trace;
    INT coul_fond;
    GRX_ATTRIBUTS_TRACER attrib;
} GRX_TEXTE;

/* Outlines of a text. */
typedef struct DEF_POLYGONE {
    GRX_POINT_POLY* pts; /* one closed outline */
    int nbpts;
} DEF_POLYGONE;

typedef struct DEF_CONTOURS {
    DEF_POLYGONE* cnt;
    int nbcnt;
} DEF_CONTOURS;

/* Bitmap files: the two headers as values. In the file they are packed, little-endian, at the
 * offsets given here. */
typedef struct XTBITMAPINFOHEADER {
    UNSIGNED_INT2 bftype;      /* 0, "BM" */
    UNSIGNED_INT4 bfsize;      /* 2 */
    UNSIGNED_INT2 bfreserved1; /* 6 */
    UNSIGNED_INT2 bfreserved2; /* 8 */
    UNSIGNED_INT4 bfoffbits;   /* 10 */
} XTBITMAPINFOHEADER;

typedef struct XTBITMAPINFO {
    UNSIGNED_INT4 bisize;          /* 14 */
    UNSIGNED_INT4 biwidth;         /* 18 */
    UNSIGNED_INT4 biheight;        /* 22 */
    UNSIGNED_INT2 biplanes;        /* 26 */
    UNSIGNED_INT2 bibitcount;      /* 28 */
    UNSIGNED_INT4 bicompression;   /* 30 */
    UNSIGNED_INT4 bisizeimage;     /* 34 */
    UNSIGNED_INT4 bixpelspermeter; /* 38 */
    UNSIGNED_INT4 biypelspermeter; /* 42 */
    UNSIGNED_INT4 biclrused;       /* 46 */
    UNSIGNED_INT4 biclrimportant;  /* 50 */
} XTBITMAPINFO;

typedef XImage* P_XIMAGE;

#define GRX_ICONE_NOM_MAX 80

/* One named icon kept in memory, a chain through suiv. */
typedef struct SICON {
    char nom_icon[GRX_ICONE_NOM_MAX]; /* name of the icon file */
    int lar;                          /* size in pixels */
    int hau;
    uchar* tab_pix;             /* its pixels */
    unsigned int taille_buffer; /* bytes of tab_pix */
    struct SICON* suiv;
} SICON, ENRICON;

#endif
