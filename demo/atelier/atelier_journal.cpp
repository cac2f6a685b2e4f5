// The part of the application that tells programs what it does.
#include "atelier.h"

#include <X11/Intrinsic.h>

#include <algorithm>
#include <string>

#include "xt_f.h"

namespace atelier {

// Fields are looked at while the user types, also where typing brings no event.
void Atelier::tient_journal() {
    constexpr unsigned long kPeriode = 40; // milliseconds
    Widget const fenetre = grx_recup_objet_fen(principale_);
    if (!journal_.tenu() || fini_ || fenetre == nullptr) return;
    note_etat();
    const XtTimerCallbackProc encore = [](XtPointer atelier, XtIntervalId*) {
        static_cast<Atelier*>(atelier)->tient_journal();
    };
    XtAppAddTimeOut(XtWidgetToApplicationContext(fenetre), kPeriode, encore, this);
}

void Atelier::note(const GRX_EVENEMENT& e) {
    if (!journal_.tenu()) return;
    const GRX_CARAC_APPUI& t = e.carac_appui;
    const GRX_EXEC_FONCTION& f = e.exec_fonction;
    const GRX_ELEMENT_CLIQUE& c = e.element_clique;
    switch (e.type_evenement) {
    case GRX_EVT_CARAC_APPUI:
        journal_.note(std::string("touche ") + std::to_string(t.carac)
                      + (panneau_tient(t.nofen) || bande_.tient(t.nofen) ? " panneau" : " fenetre")
                      + (outils_.est_champ(t.nobou) ? " champ" : ""));
        break;
    case GRX_EVT_EXEC_FONCTION:
    case GRX_EVT_ECHELLE:
        journal_.note("controle " + std::to_string(f.no_fo) + " " + std::to_string(f.valeur) + " " + f.chaine);
        break;
    case GRX_EVT_ELEMENT_CLIQUE:
        journal_.note(std::string("element ") + c.chaine + (c.double_click != 0 ? " double" : ""));
        break;
    default: break;
    }
}

void Atelier::note_etat() {
    journal_.etat("x", texte_de(outils_.champ_x()));
    journal_.etat("y", texte_de(outils_.champ_y()));
    journal_.etat("saisie", bande_.saisie());
    journal_.etat("pas", panneau_reglages_.pas_ecrit());
    journal_.etat("grille", reglages_.grille ? "oui" : "non");
    journal_.etat("polaire", polaire_ ? "oui" : "non");
    journal_.etat("module", std::to_string(module_));
    journal_.etat("message", message_);
    journal_.etat("echelle", std::to_string(vue_.echelle()));
    journal_.etat("centre", std::to_string(vue_.centre().x) + " " + std::to_string(vue_.centre().y));
    journal_.etat("pointeur", pointeur_ ? std::to_string(static_cast<int>(pointeur_->x)) + " "
                                              + std::to_string(static_cast<int>(pointeur_->y))
                                        : "");
    const auto vus = std::ranges::count_if(dessin_.calques, [](const CalqueVu& c) { return c.visible; });
    journal_.etat("couches", std::to_string(vus) + " " + std::to_string(dessin_.calques.size()));
}

} // namespace atelier
