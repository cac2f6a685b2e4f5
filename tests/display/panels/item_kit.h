// Items of a panel, built from the record with changes.
#pragma once

#include "tests/display/panels/panel_kit.h"

#include <cstddef>

namespace grxtest {

class Items : public PanelsTest {
  protected:
    // The item's buttons, made from the record with changes.
    template <class Change>
    std::vector<Recorded> build(INT type, const char* title, Change change) {
        GRX_MSG message = item_of(type, title, next_item_);
        change(message);
        last = message;
        EXPECT_EQ(grx_cree_item(&last), 0);
        return recorded(1, next_item_++);
    }
    std::vector<Recorded> build(INT type, const char* title) {
        return build(type, title, [](GRX_MSG&) {});
    }

    INT last_item() const { return next_item_ - 1; }

    bool raised(INT nobou) { return grx_bouton_est_il_enfonce(nobou) == 0; }

    // An activation as it is told: only this control's numbers, the rest as it was when the turn began.
    GRX_EVENEMENT activation(INT type, INT nofen, INT nobou, INT no_fo, INT value) {
        GRX_EVENEMENT record = old_record();
        record.exec_fonction.type_evenement = type;
        record.exec_fonction.nofen = nofen;
        record.exec_fonction.nobou = nobou;
        record.exec_fonction.no_fo = no_fo;
        record.exec_fonction.valeur = value;
        return record;
    }

    GRX_MSG last{};

  private:
    INT next_item_ = 0;
};

inline constexpr std::size_t up_to_value = offsetof(GRX_EXEC_FONCTION, chaine);

inline constexpr std::array<INT, 30> every_kind{0, 10, 19, 20, 21, 22, 23, 24, 30, 31, 32, 33, 34, 40, 49, 50, 59, 60,
    69, 70, 71, 80, 81, 82, 90, 99, 100, 109, 110, 255};

} // namespace grxtest
