// Every exported function with hostile arguments inside the application's rescue function, after everything was made.
#include "tests/display/display/rescue_kit.h"
#include "tests/display/hostile/hostile_rows.h"

#include <cstdio>

namespace {

using namespace grxtest;
using namespace grxtest::hostile;

Bench* bench = nullptr;

void call_rows(std::span<const Row> rows) {
    for (const Row& row : rows) {
        for (unsigned n = 0; n < row.times; ++n) {
            const Answer answer = row.call(*bench, n);
            if (answer && !row.answers.permit(*answer)) {
                std::fprintf(stderr, "%s gives %lld\n", row.name, *answer);
                std::_Exit(9);
            }
        }
    }
}

void call_everything(void*) {
    freopen("/dev/null", "w", stdout); // errors are printed there, as ever
    call_rows(plain_rows());
    call_rows(own_rows());
    call_rows(early_rows());
    call_rows(last_rows());
    for (const auto rows : rows_of_additions()) call_rows(rows);
    call_rows(paper_rows());
    call_rows(ending_rows());
    std::fprintf(stderr, "done\n");
}

[[noreturn]] void meet_end(const XServer& server, const std::string& folder) {
    begin_application(server);
    grx_affecte_fonction_secours(call_everything, nullptr);
    if (!start_up()) std::_Exit(3);
    bench = new Bench;
    bench->folder = folder + "/";
    for (INT kind : all_kinds) {
        GRX_FENETRE window =
            described(kind, GRX_FEN_ATT_VISIBLE | (kind == GRX_FEN_BOUTONS ? GRX_FEN_ATT_PRINCIPALE : 0));
        grx_cree_fenetre(&window);
    }
    grx_affecte_nofen_principale(1);
    for (INT type : {GRX_BOU_LABEL, GRX_BOU_TEXTE, GRX_BOU_LISTE, GRX_BOU_DESSINE}) {
        GRX_BOUTON button = button_at(type, 1, {10, 10, 80, 30});
        grx_cree_bouton(&button);
    }
    grx_debut_editeur();
    grx_editeur();
    GRX_EVENEMENT event{};
    for (INT i = 0; i < 200; ++i) grx_digitaliseur(&event, 0);
    take_server_away();
    XSync(x11_disp, False);
    std::_Exit(4);
}

class HostileRescue : public XTest {};

TEST_F(HostileRescue, EveryFunctionAnswersAsWithoutADisplay) {
    write_menu("");
    const XServer server({.planes = test_planes(), .arguments = {}});
    EXPECT_EXIT(meet_end(server, home().text()), testing::ExitedWithCode(1), "(^|\n)done\n$");
}

} // namespace
