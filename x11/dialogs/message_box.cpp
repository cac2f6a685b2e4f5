// Messages and questions of the application: those that are waited for, and those that are answered by a record.
#include <Xm/Xm.h>

#include <algorithm>
#include <array>
#include <cstddef>

#include "pure/sized_record.h"
#include "events/added_records.h"
#include "dialogs/box_parts.h"
#include "dialogs/box_place.h"
#include "dialogs/box_texts.h"
#include "dialogs/boxes.h"
#include "grx_plus_erreurs.h"
#include "grx_plus_evenements.h"
#include "grx_plus_messages.h"
#include "system/trace.h"
#include "xt_ini_t.h"

namespace {

static_assert(grx::kMostButtons == GRX_BOITE_BOUTONS_MAX);

using Labels = std::array<grx::Block<char>, grx::kMostButtons>;
using grx::UsualLabel;

bool has_kind(const GRX_BOITE_MESSAGE& message) {
    return message.genre >= GRX_BOITE_INFORMATION && message.genre <= GRX_BOITE_QUESTION;
}

INT number_of_buttons(const GRX_BOITE_MESSAGE& message) {
    if (message.nb_boutons != 0) return message.nb_boutons;
    return message.genre == GRX_BOITE_QUESTION ? 2 : 1;
}

bool is_usable(const GRX_BOITE_MESSAGE& message) {
    const INT count = number_of_buttons(message);
    const auto named = [count](INT button) { return button >= 0 && button <= count; };
    return has_kind(message) && count >= 1 && count <= GRX_BOITE_BOUTONS_MAX && named(message.bouton_defaut)
           && named(message.bouton_abandon);
}

UsualLabel usual_label(const GRX_BOITE_MESSAGE& message, std::size_t button) {
    constexpr std::array<UsualLabel, 3> three{UsualLabel::Yes, UsualLabel::No, UsualLabel::Cancel};
    const INT count = number_of_buttons(message);
    const bool yes_or_no = count == 3 || (count == 2 && message.genre == GRX_BOITE_QUESTION);
    if (yes_or_no) return three[button];
    return button == 0 ? UsualLabel::Ok : UsualLabel::Cancel;
}

bool add_buttons(grx::Box& box, const GRX_BOITE_MESSAGE& message) {
    const auto count = static_cast<std::size_t>(number_of_buttons(message));
    Labels labels;
    for (std::size_t i = 0; i < count; ++i) labels[i] = grx::button_text(message.boutons[i], usual_label(message, i));
    box.escape = message.bouton_abandon != 0 ? message.bouton_abandon : static_cast<INT>(count);
    return grx::add_box_buttons(box, std::span(labels).first(count), std::max(message.bouton_defaut, 1));
}

bool build(grx::Box& box, const GRX_BOITE_MESSAGE& message, const grx::BoxParent& parent) {
    const auto picture = static_cast<grx::MessageKind>(message.genre);
    Widget frame = grx::make_box_frame(box, {parent.widget, message.titre, message.texte, picture});
    if (frame == nullptr || !add_buttons(box, message)) return false;
    grx::centre_when_mapped(frame, parent.centred_on_it);
    XtManageChild(frame);
    return true;
}

// Makes and shows a message; gives its number or a code.
INT show(const GRX_BOITE_MESSAGE* given, grx::Box*& box) {
    if (x11_disp == nullptr) return grx::refused(GRX_ECHEC_AFFICHAGE, "boite");
    GRX_BOITE_MESSAGE message{};
    if (!grx::read_sized(given, message) || !is_usable(message)) return grx::refused(GRX_ECHEC_PARAMETRE, "boite");
    const auto parent = grx::box_parent(message.nofen_mere);
    if (!parent) return grx::refused(GRX_ECHEC_NUMERO, "nofen_mere", message.nofen_mere);
    box = grx::take_box();
    if (box == nullptr) return grx::refused(GRX_ECHEC_PLEIN, "boite");
    if (build(*box, message, *parent)) return box->number;
    grx::remove_box(*box);
    box = nullptr;
    return GRX_ECHEC_MEMOIRE;
}

bool post_answer(const grx::Box& box, INT button) {
    GRX_EVENEMENT record{};
    record.reponse_question = {GRX_EVT_MESSAGE, box.number, button};
    return grx::post_added(record);
}

struct Sought {
    INT number;
    bool& found;
};

bool is_answer_of(const GRX_EVENEMENT& record, const void* what) {
    const auto& sought = *static_cast<const Sought*>(what);
    const bool of_box = record.type_evenement == GRX_EVT_MESSAGE || record.type_evenement == GRX_EVT_SAISIE;
    const bool its_own = of_box && record.reponse_question.nofen == sought.number;
    sought.found = sought.found || its_own;
    return its_own;
}

} // namespace

extern "C" {

INT grx_init_boite_message(GRX_BOITE_MESSAGE* boite) {
    if (boite == nullptr) return grx::refused(GRX_ECHEC_PARAMETRE, "boite");
    *boite = GRX_BOITE_MESSAGE{};
    boite->taille = static_cast<INT>(sizeof *boite);
    boite->nofen_mere = GRX_AUCUN;
    return 1;
}

INT grx_attend_boite_message(const GRX_BOITE_MESSAGE* boite) {
    grx::Box* box = nullptr;
    const INT shown = show(boite, box);
    return box != nullptr ? grx::wait_for_box(*box) : shown;
}

INT grx_affiche_boite_message(const GRX_BOITE_MESSAGE* boite) {
    grx::Box* box = nullptr;
    const INT shown = show(boite, box);
    if (box != nullptr) box->tell = post_answer;
    return shown;
}

INT grx_detruit_boite(INT numero) {
    bool found = false;
    const Sought sought{numero, found};
    grx::drop_added(is_answer_of, &sought);
    if (grx::Box* const box = grx::shown_box(numero)) {
        grx::remove_box(*box);
        found = true;
    }
    return found ? 1 : grx::refused(GRX_ECHEC_NUMERO, "numero", numero);
}
}
