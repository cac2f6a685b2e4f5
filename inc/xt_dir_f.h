/* xt_dir_f.h - files and directories. Names are paths of the system; null reads as "". */
#ifndef XT_DIR_F_H
#define XT_DIR_F_H

#include "grx_api.h"
#include "host_t.h"

/* Access modes of verif_repertoire, to be added up. */
#define GRX_ACCES_EXISTE 0
#define GRX_ACCES_EXECUTION 1
#define GRX_ACCES_ECRITURE 2
#define GRX_ACCES_LECTURE 4

/* Filter of ouvre_sysdir that lets every name through. */
#define GRX_TOUS_FICHIERS "*"

GRX_DEBUT_C

/* Size of a file in bytes, in *taille. Returns 0, or 1 with *taille untouched when there is none. */
GRX_API INT taille_fichier(char* filename, DOUBLE* taille);

/* Local time of a file's last change: year with 4 digits, month 1..12, day 1..31, hour, minute.
 * Returns 0, or 1 with nothing written when there is no such file. */
GRX_API INT date_sys_fic(char* filename, INT* a, INT* m, INT* j, INT* he, INT* mn);

/* 1 when the path is a directory, or a regular file; else 0. Links are followed. */
GRX_API INT verif_si_dir(char* filename);
GRX_API INT verif_si_fic(char* filename);

/* Starts reading the names of a directory, one at a time in the program; a reading left open is
 * closed. extension: only names that end in "." and exactly this text, without the dot; "*" or ""
 * = every name, "." and ".." included. Returns 0, or 1 when it cannot be opened. */
GRX_API INT ouvre_sysdir(char* dir, char* extension);

/* Both give the next name, in the order of the directory; the first does not start again.
 * file: 256 bytes. Return 0, or 1 with file "" at the end or when none is open. */
GRX_API INT lect_dir_premier(char* file);
GRX_API INT lect_dir_suivant(char* file);

/* Ends the reading. Returns 0. */
GRX_API INT ferme_sysdir(void);

/* Do nothing. Return 0. */
GRX_API INT ouvre_sysfic(char* filename);
GRX_API INT ferme_sysfic(void);

/* Returns 1: every drive exists. */
GRX_API INT verif_drive(char* drive);

/* Sets the file-creation mask to 0111, remembering the one before, and brings that back.
 * The second does nothing before the first. Return 0. */
GRX_API INT set_umask_rw(void);
GRX_API INT set_old_umask(void);

/* Free bytes of the file system that holds the path d, in 32 bits: beyond 2 GB the value wraps.
 * Returns 0 for an empty path and -1 when it cannot be examined. */
GRX_API LONG disk_free_spc(char* d);

/* Checks access to a directory; mode: GRX_ACCES_... . Returns 0 when it is granted, and for an
 * empty path; -1 when not or when the path is no directory. */
GRX_API INT verif_repertoire(char* adr, INT mode);

/* The same for reading and for writing. */
GRX_API INT test_directorie(char* adr);
GRX_API INT test_directorie_w(char* adr);

/* 0 when the file can be read, or written; -1 when not. */
GRX_API int test_fichier_r(char* fic);
GRX_API int test_fichier_w(char* adr);

/* Removes a file. Returns 0, or -1 when it cannot be. */
GRX_API INT suppfic(char* fic);

GRX_FIN_C

#endif
