// The functions of the additions with hostile arguments, and the codes that their headers state.
#include "tests/display/hostile/hostile_addition_arguments.h"
#include "tests/display/hostile/hostile_rows.h"

#include <algorithm>
#include <climits>
#include <string>

namespace grxtest::hostile {
namespace {

// Short names of the codes, for the table.
constexpr long long Numero = GRX_ECHEC_NUMERO, Genre = GRX_ECHEC_GENRE, Parametre = GRX_ECHEC_PARAMETRE,
                    Plein = GRX_ECHEC_PLEIN, Affichage = GRX_ECHEC_AFFICHAGE, Fichier = GRX_ECHEC_FICHIER,
                    Format = GRX_ECHEC_FORMAT, Absent = GRX_ECHEC_ABSENT, Occupe = GRX_ECHEC_OCCUPE;

// --- records ------------------------------------------------------------------------------------------------------------------

template <class Record, INT (*function)(Record*)>
Answer fill_record(Bench&, unsigned n) {
    return function(sized<Record>(n));
}

#define RECORD_ROW(name, Record, ...) own(#name, rounds, fill_record<Record, name>, Answers{__VA_ARGS__})

// --- files and the trace --------------------------------------------------------------------------------------------------------

// A name in the folder of the test, or what is none.
const char* file_name(Bench& bench, unsigned n) {
    static std::string name;
    const char* given = text(bench, 0, n);
    if (given == nullptr || given[0] == '\0') return given;
    name = bench.folder + given;
    return name.c_str();
}

// A trace that is open stays one, of a file that is no file.
template <class Function>
Answer beside_trace(Function function) {
    const bool open = grx_ecrit_journal("") == 1;
    const INT answer = function();
    grx_ferme_journal();
    if (open) grx_ouvre_journal("/dev/null", 0);
    return answer;
}

// --- boxes ----------------------------------------------------------------------------------------------------------------------

constexpr std::array no_parents{INT_MIN, -2, 77, INT_MAX};

INT parent_of(INT parent, unsigned n) {
    return n % 4 ? parent : no_parents[n / 4 % no_parents.size()];
}

// A box that is waited for goes with its parent, which a timer takes away.
template <class Function>
Answer waited_for(unsigned n, Function function) {
    if (x11_disp == nullptr) return function(parent_of(GRX_AUCUN, n));
    GRX_FENETRE window = described(GRX_FEN_ALPHA, GRX_FEN_ATT_VISIBLE, 120, 90);
    if (grx_cree_fenetre(&window) != 0) return std::nullopt;
    static INT parent;
    parent = window.nofen;
    static bool gone;
    gone = false;
    const XtIntervalId timer = XtAppAddTimeOut(
        contexte, 1,
        [](XtPointer, XtIntervalId*) {
            gone = true;
            grx_detruit_fenetre(parent);
        },
        nullptr);
    const INT answer = function(parent_of(parent, n));
    if (!gone) {
        XtRemoveTimeOut(timer);
        grx_detruit_fenetre(parent);
    }
    return answer;
}

// What was shown goes again; the number of a box is as good as done.
Answer taken_away(INT box) {
    if (box <= 0) return box;
    grx_detruit_boite(box);
    return 1;
}

INT shown_parent(unsigned n) {
    return n % 2 ? GRX_AUCUN : number(n);
}

// --- the loop -------------------------------------------------------------------------------------------------------------------

// A wait of any length ends with the record of a timer.
template <class Function>
Answer ended_by_timer(Bench& bench, unsigned n, Function function) {
    const INT timer = grx_cree_minuterie(0, 0);
    const INT answer = function(n % 3 ? &bench.event : nullptr, number(n));
    grx_detruit_minuterie(timer);
    return answer;
}

// --- icons ----------------------------------------------------------------------------------------------------------------------

Answer take_icon(Bench&, unsigned n) {
    static std::array<UNSIGNED_INT, std::size_t{3} * 2048 + 4096> pixels;
    const Sides sides = sides_of(n);
    return grx_ajoute_icone_fenetre(n % 2 ? number(n) : 1 + static_cast<INT>(n % 5), sides.width, sides.height,
        n % 7 == 6 ? nullptr : pixels.data());
}

// --- arguments --------------------------------------------------------------------------------------------------------------

Answer take_arguments(Bench& bench, unsigned n) {
    static std::array<std::string, 5> kept;
    constexpr std::array names{"-geometry", "-display", "-name", "-title", "-xrm", "--"};
    kept = {"host", names[n % names.size()], "", names[n / 2 % names.size()], "x"};
    const char* value = text(bench, 0, n);
    kept[2] = value != nullptr ? value : "";
    std::array<char*, 6> argv{};
    for (std::size_t i = 0; i < kept.size(); ++i) argv[i] = kept[i].data();
    if (value == nullptr) argv[2] = nullptr;
    constexpr std::array counts{5, 4, 3, 2, 1, 0, -1, INT_MIN};
    INT count = counts[n % counts.size()];
    return grx_arguments(n % 9 == 8 ? nullptr : &count, n % 10 == 9 ? nullptr : argv.data());
}

Answer take_identity(Bench& bench, unsigned n) {
    GRX_IDENTITE who{};
    grx_init_identite(&who);
    who.nom = text(bench, 0, n);
    who.classe = text(bench, 1, n + 3);
    who.zone = number(n);
    return grx_affecte_identite(with_size(who, n));
}

// --- the table --------------------------------------------------------------------------------------------------------------

constexpr Row addition_table[] = {
    // tips, help
    ROW(grx_affecte_bulle, 1, Numero, Affichage),
    ROW(grx_recup_bulle, a_number, Absent),
    ROW(grx_affecte_etat_bulles, 1),
    ROW(grx_recup_etat_bulles, 0, 1),
    ROW(grx_affecte_delais_bulles, 1),
    ROW(grx_affecte_aide_menu, 1, Parametre),
    ROW(grx_affecte_bouton_aide_menu, 1, Numero, Genre),
    ROW(grx_affecte_demande_aide, 1, Parametre, Affichage),

    // who the application is
    own(NAMED(grx_arguments), rounds, take_arguments, {1, Format, Parametre, Occupe}),
    ROW(grx_recup_texte_arguments, a_number),
    ROW(grx_recup_argument, a_number, Absent, Parametre),
    RECORD_ROW(grx_init_identite, GRX_IDENTITE, 1, Parametre),
    own(NAMED(grx_affecte_identite), rounds, take_identity, {1, Parametre, Occupe}),
    ROW(grx_recup_nom_application, a_number),
    ROW(grx_recup_classe_application, a_number),
    own(NAMED(grx_ajoute_icone_fenetre), rounds, take_icon, {1, Numero, Genre, Parametre, Plein, Affichage}),
    ROW(grx_supprime_icones_fenetre, 1, Numero, Genre, Affichage),
    ROW(grx_affecte_genre_fenetre, 1, Numero, Genre, Parametre, Affichage),
    ROW(grx_rattache_fenetre, 1, Numero, Genre, Parametre, Affichage),
    ROW(grx_marque_place_fenetre, 1, Numero, Genre, Parametre, Affichage),
    ROW(grx_centre_fenetre, 1, Numero, Genre, Affichage),
    ROW(grx_recup_zone_travail, 1, Affichage),

    // the loop
    own(
        NAMED(grx_digitaliseur_delai), rounds,
        [](Bench& bench, unsigned n) { return ended_by_timer(bench, n, grx_digitaliseur_delai); }, {0, 1, Affichage}),
    own(
        NAMED(grx_digitaliseur_fenetre_delai), rounds,
        [](Bench& bench, unsigned n) { return ended_by_timer(bench, n, grx_digitaliseur_fenetre_delai); },
        {0, 1, Affichage}),
    own(
        NAMED(grx_cree_minuterie), rounds,
        [](Bench&, unsigned n) -> Answer {
            const INT timer = grx_cree_minuterie(number(n), number(n / 2));
            if (timer > 0) grx_detruit_minuterie(timer);
            return timer;
        },
        {a_number, Parametre, Affichage}),
    ROW(grx_detruit_minuterie, 1, Numero),
    own(
        NAMED(grx_surveille_descripteur), rounds,
        [](Bench&, unsigned n) -> Answer {
            const INT watch = grx_surveille_descripteur(number(n), n % 2 ? static_cast<INT>(n % 5) : number(n));
            if (watch > 0) grx_arrete_surveillance(watch);
            return watch;
        },
        {a_number, Numero, Genre, Occupe, Parametre, Affichage}),
    ROW(grx_change_surveillance, 1, Numero, Parametre),
    ROW(grx_arrete_surveillance, 1, Numero),
    own(
        NAMED(grx_cree_tache_oisive), 3,
        [](Bench&, unsigned) -> Answer {
            const INT work = grx_cree_tache_oisive();
            if (work > 0) grx_detruit_tache_oisive(work);
            return work;
        },
        {a_number, Affichage}),
    ROW(grx_detruit_tache_oisive, 1, Numero),

    // toggles, groups, check boxes
    ROW(grx_recup_etat_bascule, 0, 1, Numero, Genre, Affichage),
    ROW(grx_affecte_etat_bascule, 1, Numero, Genre, Affichage),
    RECORD_ROW(grx_init_case, GRX_CASE, 1, Parametre),
    own(
        NAMED(grx_cree_case), rounds,
        [](Bench& bench, unsigned n) -> Answer {
            GRX_CASE box = hostile_box(bench, n);
            return grx_cree_case(with_size(box, n));
        },
        {a_number, Numero, Parametre, Plein, Genre, Affichage}),
    RECORD_ROW(grx_init_groupe, GRX_GROUPE, 1, Parametre),
    own(
        NAMED(grx_cree_groupe), rounds,
        [](Bench& bench, unsigned n) -> Answer {
            GRX_GROUPE group = hostile_group(bench, n);
            return grx_cree_groupe(with_size(group, n));
        },
        {a_number, Numero, Parametre, Plein, Genre, Affichage}),
    ROW(grx_recup_choix_groupe, a_number, Absent, Numero, Genre, Affichage),
    ROW(grx_affecte_choix_groupe, 1, Parametre, Numero, Genre, Affichage),
    ROW(grx_desactive_choix_groupe, 1, Parametre, Numero, Genre, Affichage),
    ROW(grx_recup_choix_item, a_number, Absent, Numero, Genre, Affichage),
    ROW(grx_affecte_choix_item, 1, Parametre, Numero, Genre, Affichage),

    // bad news and bookkeeping
    own(
        NAMED(grx_affecte_fonction_secours), 2,
        [](Bench& bench, unsigned n) -> Answer {
            const GRX_FONCTION_SECOURS none = nullptr;
            const INT answer = grx_affecte_fonction_secours(n ? none : [](void*) {}, n ? &bench : nullptr);
            grx_affecte_fonction_secours(nullptr, nullptr);
            return answer;
        },
        {1, Occupe}),
    RECORD_ROW(grx_init_erreur_affichage, GRX_ERREUR_AFFICHAGE, 1, Parametre),
    RECORD_ROW(grx_recup_erreur_affichage, GRX_ERREUR_AFFICHAGE, 1, Parametre, Absent),
    ROW(grx_oublie_erreur_affichage, 1),
    own(
        NAMED(grx_ouvre_journal), 7,
        [](Bench& bench, unsigned n) {
            return beside_trace([&] { return grx_ouvre_journal(file_name(bench, n), number(n + 1)); });
        },
        {1, Parametre, Fichier}),
    own(
        NAMED(grx_ferme_journal), 2, [](Bench&, unsigned) { return beside_trace(grx_ferme_journal); }, {1, Absent}),
    ROW(grx_ecrit_journal, 1, Absent, Parametre),
    RECORD_ROW(grx_init_inventaire, GRX_INVENTAIRE, 1, Parametre),
    RECORD_ROW(grx_recup_inventaire, GRX_INVENTAIRE, 1, Parametre),
    ROW(grx_recup_rang_fenetre, a_number, Numero),
    ROW(grx_recup_rang_bouton, a_number, Numero),
    own(
        NAMED(grx_ecrit_inventaire), 7,
        [](Bench& bench, unsigned n) -> Answer { return grx_ecrit_inventaire(file_name(bench, n)); },
        {1, Parametre, Fichier}),
    ROW(grx_recup_texte_erreur, a_number),

    // details of records
    RECORD_ROW(grx_init_detail_evenement, GRX_DETAIL_EVENEMENT, 1, Parametre),
    RECORD_ROW(grx_recup_detail_evenement, GRX_DETAIL_EVENEMENT, 1, Parametre, Absent),
    ROW(grx_recup_texte_detail_evenement),

    // menus
    ROW(grx_desactive_entree_menu, 1),
    ROW(grx_coche_entree_menu, 1),
    ROW(grx_change_texte_entree_menu, 1),
    ROW(grx_initialise_entrees_menu, 1),
    RECORD_ROW(grx_init_entree_menu, GRX_ENTREE_MENU, 1, Parametre),
    own(
        NAMED(grx_recup_entree_menu), rounds,
        [](Bench&, unsigned n) -> Answer { return grx_recup_entree_menu(number(n), sized<GRX_ENTREE_MENU>(n)); },
        {1, Parametre, Numero}),
    own(
        NAMED(grx_ouvre_menu_contextuel), rounds,
        [](Bench& bench, unsigned n) -> Answer {
            const INT answer = grx_ouvre_menu_contextuel(
                number(n), text(bench, 0, n), text(bench, 1, n + 1), number(n + 3), number(n + 4));
            grx_ferme_menu_contextuel();
            return answer;
        },
        {1, Affichage, Numero, Genre, Parametre, Fichier, Absent, Occupe}),
    own(
        NAMED(grx_ouvre_menu_contextuel_souris), rounds,
        [](Bench& bench, unsigned n) -> Answer {
            const INT answer =
                grx_ouvre_menu_contextuel_souris(number(n), text(bench, 0, n + 2), text(bench, 1, n + 1));
            grx_ferme_menu_contextuel();
            return answer;
        },
        {1, Affichage, Numero, Genre, Parametre, Fichier, Absent, Occupe}),
    ROW(grx_ferme_menu_contextuel, 1, Absent),
    ROW(grx_recup_fenetre_menu_contextuel, GRX_AUCUN),

    // boxes and progress
    RECORD_ROW(grx_init_boite_message, GRX_BOITE_MESSAGE, 1, Parametre),
    RECORD_ROW(grx_init_boite_saisie, GRX_BOITE_SAISIE, 1, Parametre),
    RECORD_ROW(grx_init_avancement, GRX_AVANCEMENT, 1, Parametre),
    own(
        NAMED(grx_attend_boite_message), rounds,
        [](Bench& bench, unsigned n) {
            return waited_for(n, [&](INT parent) {
                GRX_BOITE_MESSAGE message = hostile_message(bench, n, parent);
                return grx_attend_boite_message(with_size(message, n));
            });
        },
        {0, Affichage, Parametre, Numero}),
    own(
        NAMED(grx_affiche_boite_message), rounds,
        [](Bench& bench, unsigned n) {
            GRX_BOITE_MESSAGE message = hostile_message(bench, n, shown_parent(n));
            return taken_away(grx_affiche_boite_message(with_size(message, n)));
        },
        {1, Affichage, Parametre, Numero}),
    own(
        NAMED(grx_attend_boite_saisie), rounds,
        [](Bench& bench, unsigned n) {
            return waited_for(n, [&](INT parent) {
                GRX_BOITE_SAISIE prompt = hostile_prompt(bench, n, parent);
                return grx_attend_boite_saisie(with_size(prompt, n), n % 3 ? bench.texts[9].data() : nullptr,
                    number(n), n % 2 ? bench.doubles.data() : nullptr);
            });
        },
        {0, Affichage, Parametre, Numero}),
    own(
        NAMED(grx_affiche_boite_saisie), rounds,
        [](Bench& bench, unsigned n) {
            GRX_BOITE_SAISIE prompt = hostile_prompt(bench, n, shown_parent(n));
            return taken_away(grx_affiche_boite_saisie(with_size(prompt, n)));
        },
        {1, Affichage, Parametre, Numero}),
    ROW(grx_detruit_boite, Numero),
    own(
        NAMED(grx_avancement_commence), rounds,
        [](Bench& bench, unsigned n) -> Answer {
            GRX_AVANCEMENT told = hostile_progress(bench, n);
            const INT answer = grx_avancement_commence(with_size(told, n));
            for (unsigned i = 0; i < 7; ++i)
                grx_avancement_avance(Argument<DOUBLE>::make(bench, 0, i), text(bench, 3, n + i));
            if (n % 3) grx_avancement_finit(); // the rest is within others, until the table is full
            return answer;
        },
        {1, Affichage, Parametre, Numero, Plein}),
    ROW(grx_avancement_avance, 0, 1, Absent),
    ROW(grx_avancement_abandonne, 0, 1),
    own(
        NAMED(grx_avancement_finit), 10, [](Bench&, unsigned) -> Answer { return grx_avancement_finit(); },
        {1, Absent}),

    // windows that ask
    ROW(grx_affecte_demande_fermeture, 1, Numero, Genre),
    ROW(grx_recup_demande_fermeture, 0, 1, Numero),
};

} // namespace

std::span<const Row> addition_rows() {
    return addition_table;
}

} // namespace grxtest::hostile
