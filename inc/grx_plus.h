/* grx_plus.h - what there is beyond the interface of xt_f.h, all of it.
 *
 * Additions never change what the functions of xt_f.h do, and do nothing until they are called. Their
 * headers name no type of X, Xt or Motif. What holds for all of them:
 * - results: 1 for done or a code of grx_plus_erreurs.h, where nothing else is said;
 * - texts that go in are const, bytes in the application's encoding; null reads as "";
 * - records that begin with taille are emptied by their own init function, which sets it, before they
 *   are filled, so that later releases can add members;
 * - "Depuis" says with which release a function came (docs/versions.md). */
#ifndef GRX_PLUS_H
#define GRX_PLUS_H

#include "grx_plus_aide.h"
#include "grx_plus_application.h"
#include "grx_plus_boucle.h"
#include "grx_plus_boutons.h"
#include "grx_plus_calques.h"
#include "grx_plus_diagnostic.h"
#include "grx_plus_erreurs.h"
#include "grx_plus_evenements.h"
#include "grx_plus_images.h"
#include "grx_plus_listes.h"
#include "grx_plus_menus.h"
#include "grx_plus_messages.h"
#include "grx_plus_papier.h"
#include "grx_plus_polices.h"
#include "grx_plus_presse_papiers.h"
#include "grx_plus_recepteur.h"
#include "grx_plus_session.h"
#include "grx_plus_textes.h"

#endif
