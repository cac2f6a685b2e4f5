#include "journal.h"

#include <X11/Intrinsic.h>

#include <cstdlib>
#include <utility>

#include "xt_f.h"

namespace atelier {

Journal::Journal() {
    if (const char* const nom = std::getenv("ATELIER_JOURNAL"); nom != nullptr && *nom != '\0') fichier_.open(nom);
}

void Journal::ecrit(const std::string& ligne) {
    if (tenu()) fichier_ << ligne << std::endl; // read while atelier runs
}

void Journal::action(INT fonction) {
    ecrit("action " + std::to_string(fonction));
}

void Journal::note(const GRX_EVENEMENT& e, bool dans_une_annexe, bool dans_un_champ) {
    const GRX_EXEC_FONCTION& f = e.exec_fonction;
    const GRX_ELEMENT_CLIQUE& c = e.element_clique;
    switch (e.type_evenement) {
    case GRX_EVT_CARAC_APPUI:
        ecrit("touche " + std::to_string(e.carac_appui.carac) + (dans_une_annexe ? " panneau" : " fenetre")
              + (dans_un_champ ? " champ" : ""));
        break;
    case GRX_EVT_EXEC_FONCTION:
    case GRX_EVT_ECHELLE:
        ecrit("controle " + std::to_string(f.no_fo) + " " + std::to_string(f.valeur) + " " + f.chaine);
        break;
    case GRX_EVT_ELEMENT_CLIQUE:
        ecrit(std::string("element ") + c.chaine + (c.double_click != 0 ? " double" : ""));
        break;
    default: break;
    }
}

void Journal::etat(const std::string& nom, const std::string& valeur) {
    const auto [connu, neuf] = connus_.try_emplace(nom, valeur);
    if (!neuf && connu->second == valeur) return;
    connu->second = valeur;
    ecrit(nom + "=" + valeur);
}

void Journal::suit(INT nofen, std::function<void()> regarde_etat) {
    nofen_ = nofen;
    regarde_ = std::move(regarde_etat);
    if (tenu()) regarde();
}

void Journal::regarde() {
    constexpr unsigned long kPeriode = 40; // milliseconds
    Widget const fenetre = grx_recup_objet_fen(nofen_);
    if (fenetre == nullptr) return;
    regarde_();
    const XtTimerCallbackProc encore = [](XtPointer journal, XtIntervalId*) {
        static_cast<Journal*>(journal)->regarde();
    };
    XtAppAddTimeOut(XtWidgetToApplicationContext(fenetre), kPeriode, encore, this);
}

} // namespace atelier
