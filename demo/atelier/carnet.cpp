#include "carnet.h"

#include <array>

#include "grx_plus_messages.h"
#include "texte.h"

namespace atelier {

std::string Carnet::note(Feuille& feuille, Point place, INT mere) {
    std::array<char, 256> texte{};
    GRX_BOITE_SAISIE saisie;
    grx_init_boite_saisie(&saisie);
    saisie.nofen_mere = mere;
    saisie.titre = "Note";
    saisie.etiquette = "Texte de la note";
    saisie.longueur_max = 60;
    const INT accord = grx_attend_boite_saisie(&saisie, texte.data(), texte.size(), nullptr);
    if (!reprend_() || accord != 1) return {};
    plan_.notes.ajoute(place, en_utf8(texte.data()));
    feuille.perime();
    return plan_.notes.modifiees() ? "Note pos\u00e9e" : "";
}

std::string Carnet::enregistre() {
    const std::string fichier = Notes::fichier_de(plan_.chemin).string();
    return plan_.notes.ecrit(plan_.chemin) ? "Notes : " + fichier : "Notes pas \u00e9crites : " + fichier;
}

bool Carnet::peut_partir(INT mere) {
    enum { kEnregistrer = 1, kSansEnregistrer = 2, kAnnuler = 3 };
    if (!plan_.notes.modifiees()) return true;
    const std::string texte = "Les notes sur " + plan_.nom() + " ne sont pas enregistr\u00e9es.";
    GRX_BOITE_MESSAGE question;
    grx_init_boite_message(&question);
    question.genre = GRX_BOITE_QUESTION;
    question.nofen_mere = mere;
    question.titre = "Quitter le plan";
    question.texte = texte.c_str();
    question.nb_boutons = kAnnuler;
    question.boutons[0] = "&Enregistrer";
    question.boutons[1] = "&Ne pas enregistrer";
    question.boutons[2] = "&Annuler";
    const INT reponse = grx_attend_boite_message(&question);
    if (!reprend_()) return false;
    if (reponse == kEnregistrer) enregistre();
    return reponse == kSansEnregistrer || !plan_.notes.modifiees();
}

} // namespace atelier
