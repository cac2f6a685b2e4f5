// Every exported function with hostile arguments: extreme and negative numbers, null pointers, over-long and unterminated
// texts; without a display, after start-up, and with a live window of each kind. A table names every function; a new
// export without a row fails.
#include "tests/display/window_kit.h"
#include "tests/support/stdout_capture.h"

#include <algorithm>
#include <climits>
#include <cmath>
#include <fstream>
#include <functional>
#include <limits>
#include <set>
#include <tuple>

namespace {

using namespace grxtest;

// Globals among the exports.
const std::set<std::string> globals{"Bleu", "Bou_h", "Bou_l", "Bou_reset", "Bou_s", "Couleur_active", "Liste_btn",
    "MAXOBJETFEN", "Nb_item", "Nb_pan", "No_fen_mod_coul", "Rouge", "Tab_liste", "Tab_pan", "Vert", "adr_icones",
    "chnListBaud", "chnListDataBits", "chnListPortParallele", "chnListPortSerie", "chnListQueueReseau",
    "chnListStopBits", "contexte", "dec_blue", "dec_green", "dec_red", "evt_global", "fontlist", "fontstruct", "g_c",
    "gc", "hau_ecran", "hau_ecran_mm", "hls_glob", "lar_ecran", "lar_ecran_mm", "memo_filename", "memo_rvb", "nbQueue",
    "nbr_xpel_crt", "nbr_ypel_crt", "palette_icone", "palette_reserve", "palette_trace", "prof_24", "profondeur_ecran",
    "rvb_glob", "trace_pix", "vtemp", "x11_cmap", "x11_disp", "x11_screen", "x11_vis"};

// --- arguments ------------------------------------------------------------------------------------------------------------

constexpr std::array numbers{INT_MIN, -1, 0, 1, 2, 3, 4, 5, 6, 7, 50, 99, 100, 999, 1000, 65536, INT_MAX};
constexpr std::size_t text_room = 16384;
constexpr unsigned rounds = 31; // as many mixtures of values per function

// What arguments are made of; each place in a parameter list has buffers of its own.
struct Bench {
    std::array<std::array<char, text_room>, 12> texts;
    std::array<std::array<INT, 4096>, 12> integers;
    std::array<double, 64> doubles{};
    std::array<UNSIGNED_INT4, 12> counts{};
    std::array<GRX_POINT_POLY, 64> points{};
    GRX_EVENEMENT event{};
    GRX_FENETRE window{};
    GRX_BOUTON button{};
    GRX_MSG message{};
    LI_MENU menu_line{};
    STRUCTURE_BOUTON* button_record = nullptr;
    STRUCTURE_FENETRE* window_record = nullptr;
    ENRICON* icon = nullptr;
    SFICHIER file{};
    std::string folder;
};

INT number(unsigned n) {
    return numbers[n % numbers.size()];
}

// A form of a live window, where controls may be put.
Widget live_form() {
    for (INT n = 1; n < 10; ++n)
        if (Widget w = grx_recup_objet_fen(n); w && XmIsForm(w)) return w;
    return nullptr;
}

Window live_window() {
    Widget form = live_form();
    return form ? XtWindow(form) : None;
}

char* text(Bench& bench, std::size_t place, unsigned n) {
    auto& room = bench.texts[place];
    room.fill('z');
    const auto put = [&room](const std::string& value) {
        std::copy(value.begin(), value.end(), room.begin());
        room[value.size()] = 0;
        return room.data();
    };
    switch (n % 7) {
    case 0: return nullptr;
    case 1: return put("");
    case 2: return put("no/such/thing");
    case 3: return put(std::string(5000, 'x'));
    case 4: return put("%s%n%d|#&'\"");
    case 5: return put(std::string(255, '\xE9'));
    default: return put("ITEM|1|a\tb\r\n|Ctrl+\\|9999999999999|");
    }
}

// Records of plain numbers: all bytes the same, or each number an extreme one.
template <class Record>
Record filled(unsigned n) {
    Record record{};
    constexpr std::array bytes{0x00, 0x5A, 0xFF, 0x80, 0x7F};
    std::memset(static_cast<void*>(&record), bytes[n % bytes.size()], sizeof record);
    return record;
}

template <class Record>
Record primitive(unsigned n) {
    Record record = filled<Record>(n);
    record.nofen = number(n + 3);
    return record;
}

GRX_FENETRE hostile_window(unsigned n) {
    GRX_FENETRE window{};
    std::memset(static_cast<void*>(&window), 'x', sizeof window); // no text ends
    constexpr std::array kinds{1, 2, 3, 4, 5, 7, 0, -1, 6, INT_MAX};
    constexpr std::array attributes{
        16, 0, 0x1000 | 16, 0x2000 | 16, 0x4000 | 16, 0x3010, 0x5010, 0x7FFFFFFF & ~0x4000, -1, INT_MIN};
    constexpr std::array sizes{-1, 0, 1, 200, INT_MIN};
    window.type = kinds[n % kinds.size()];
    window.attrib = attributes[n / 2 % attributes.size()];
    window.x = number(n + 1);
    window.y = number(n + 5);
    window.droite = sizes[n % sizes.size()];
    window.haut = n % 13 == 5 ? INT_MAX : sizes[n / 3 % sizes.size()]; // one of the two at most: the server has limits
    window.coul_fond = number(n + 7);
    window.coul_trace = number(n + 9);
    window.curseur = number(n + 11);
    window.fen_mere = n % 3 ? -1 : number(n + 2);
    window.attache = number(n);
    for (INT& value : window.tabi) value = number(n + 4);
    return window;
}

GRX_BOUTON hostile_button(unsigned n) {
    GRX_BOUTON button{};
    std::memset(static_cast<void*>(&button), 'x', sizeof button);
    constexpr std::array types{1, 2, 4, 8, 16, 32, 64, 128, 256, 512, 768, 1024, 4096, 0, -1, INT_MAX};
    constexpr std::array sizes{-1, 0, 1, 200, INT_MIN};
    button.type = types[n % types.size()];
    button.attrib = n % 4 ? number(n) : 0x3F11;
    button.x = number(n + 1);
    button.y = number(n + 5);
    button.largeur = sizes[n % sizes.size()];
    button.hauteur = n % 13 == 5 ? INT_MAX : sizes[n / 3 % sizes.size()];
    button.coul_fond = number(n + 7);
    button.coul_trace = number(n + 9);
    button.fen_mere = number(n + 2);
    button.attache = number(n);
    for (INT& value : button.tabi) value = number(n + 4);
    button.ref_fen_mere = n % 2 ? live_form() : nullptr;
    std::fill(std::begin(button.icone), std::end(button.icone), 'i');
    return button;
}

// Value of one parameter: the n-th of its type.
template <class T>
struct Argument {
    static T make(Bench&, std::size_t, unsigned n) { return filled<T>(n); } // records of numbers and texts
};

template <class T>
struct Pointer {
    static T* make(T& target, unsigned n) { return n % 3 ? &target : nullptr; }
};

template <>
struct Argument<INT> {
    static INT make(Bench&, std::size_t, unsigned n) { return number(n); }
};
template <>
struct Argument<UNSIGNED_INT> {
    static UNSIGNED_INT make(Bench&, std::size_t, unsigned n) { return static_cast<UNSIGNED_INT>(number(n)); }
};
template <>
struct Argument<unsigned long> { // masks and ids of windows
    static unsigned long make(Bench&, std::size_t, unsigned n) {
        const std::array values{0UL, static_cast<unsigned long>(live_window()), 1UL, ~0UL, 0x7FFFFFF1UL};
        return values[n % values.size()];
    }
};
template <>
struct Argument<uchar> {
    static uchar make(Bench&, std::size_t, unsigned n) { return static_cast<uchar>(number(n)); }
};
template <>
struct Argument<char> {
    static char make(Bench&, std::size_t, unsigned n) { return static_cast<char>(number(n)); }
};
template <>
struct Argument<DOUBLE> {
    static DOUBLE make(Bench&, std::size_t, unsigned n) {
        constexpr std::array values{0.0, -1.0, 1e308, -1e308, std::numeric_limits<double>::quiet_NaN(),
            std::numeric_limits<double>::infinity(), 0.001};
        return values[n % values.size()];
    }
};
template <>
struct Argument<char*> {
    static char* make(Bench& bench, std::size_t place, unsigned n) { return text(bench, place, n); }
};
template <>
struct Argument<uchar*> {
    static uchar* make(Bench&, std::size_t, unsigned) { return nullptr; }
};
template <>
struct Argument<INT*> {
    static INT* make(Bench& bench, std::size_t place, unsigned n) {
        bench.integers[place].fill(number(n));
        return n % 3 ? bench.integers[place].data() : nullptr;
    }
};
template <>
struct Argument<UNSIGNED_INT4*> {
    static UNSIGNED_INT4* make(Bench& bench, std::size_t place, unsigned n) {
        return Pointer<UNSIGNED_INT4>::make(bench.counts[place], n);
    }
};
template <>
struct Argument<DOUBLE*> {
    static DOUBLE* make(Bench& bench, std::size_t, unsigned n) { return n % 3 ? bench.doubles.data() : nullptr; }
};
template <>
struct Argument<Widget> {
    static Widget make(Bench&, std::size_t, unsigned n) { return n % 3 ? live_form() : nullptr; }
};
template <>
struct Argument<GRX_EVENEMENT*> {
    static GRX_EVENEMENT* make(Bench& bench, std::size_t, unsigned n) {
        return Pointer<GRX_EVENEMENT>::make(bench.event, n);
    }
};
template <>
struct Argument<GRX_FENETRE*> {
    static GRX_FENETRE* make(Bench& bench, std::size_t, unsigned n) {
        bench.window = hostile_window(n);
        return n % 11 == 10 ? nullptr : &bench.window;
    }
};
template <>
struct Argument<GRX_FENETRE> {
    static GRX_FENETRE make(Bench&, std::size_t, unsigned n) { return hostile_window(n); }
};
template <>
struct Argument<GRX_BOUTON*> {
    static GRX_BOUTON* make(Bench& bench, std::size_t, unsigned n) {
        bench.button = hostile_button(n);
        return n % 11 == 10 ? nullptr : &bench.button;
    }
};
template <>
struct Argument<GRX_MSG> {
    static GRX_MSG make(Bench&, std::size_t, unsigned n) {
        GRX_MSG message{};
        std::fill(std::begin(message.titre), std::end(message.titre), 't');
        std::fill(std::begin(message.cval), std::end(message.cval), 'c');
        message.clef = number(n);
        message.type = number(n + 1);
        message.ival = number(n + 2);
        message.attribut = number(n + 3);
        message.couleur = number(n + 4);
        message.nb_cara = number(n + 5);
        message.fen_mere = number(n + 6);
        message.nobou = number(n + 7);
        message.prebou = number(n + 8);
        message.largeur = message.hauteur = message.x = message.y = n % 2 ? -1 : 20;
        message.prec = message.suiv = -1;
        return message;
    }
};
template <>
struct Argument<GRX_MSG*> {
    static GRX_MSG* make(Bench& bench, std::size_t place, unsigned n) {
        bench.message = Argument<GRX_MSG>::make(bench, place, n);
        return n % 5 == 4 ? nullptr : &bench.message;
    }
};
template <>
struct Argument<LI_MENU*> {
    static LI_MENU* make(Bench& bench, std::size_t, unsigned n) {
        bench.menu_line = filled<LI_MENU>(n);
        return n % 3 ? &bench.menu_line : nullptr;
    }
};
template <>
struct Argument<STRUCTURE_BOUTON**> {
    static STRUCTURE_BOUTON** make(Bench& bench, std::size_t, unsigned n) {
        return n % 3 ? &bench.button_record : nullptr;
    }
};
template <>
struct Argument<STRUCTURE_FENETRE**> {
    static STRUCTURE_FENETRE** make(Bench& bench, std::size_t, unsigned n) {
        return n % 3 ? &bench.window_record : nullptr;
    }
};
template <>
struct Argument<ENRICON**> {
    static ENRICON** make(Bench& bench, std::size_t, unsigned n) { return n % 3 ? &bench.icon : nullptr; }
};
template <>
struct Argument<SFICHIER*> {
    static SFICHIER* make(Bench& bench, std::size_t, unsigned n) { return n % 3 ? &bench.file : nullptr; }
};
template <>
struct Argument<SCATAL> {
    static SCATAL make(Bench&, std::size_t, unsigned) { return {}; }
};
template <>
struct Argument<SFICHIER> {
    static SFICHIER make(Bench&, std::size_t, unsigned) { return {}; }
};
template <>
struct Argument<SFILTRE> {
    static SFILTRE make(Bench&, std::size_t, unsigned) { return {}; }
};
template <>
struct Argument<GRX_ZONE_INFO> {
    static GRX_ZONE_INFO make(Bench&, std::size_t, unsigned) { return {}; }
};
template <>
struct Argument<GRX_POINT> {
    static GRX_POINT make(Bench&, std::size_t, unsigned n) { return primitive<GRX_POINT>(n); }
};
template <>
struct Argument<GRX_SEGMENT> {
    static GRX_SEGMENT make(Bench&, std::size_t, unsigned n) { return primitive<GRX_SEGMENT>(n); }
};
template <>
struct Argument<GRX_RECTANGLE> {
    static GRX_RECTANGLE make(Bench&, std::size_t, unsigned n) { return primitive<GRX_RECTANGLE>(n); }
};
template <>
struct Argument<GRX_ARC> {
    static GRX_ARC make(Bench&, std::size_t, unsigned n) { return primitive<GRX_ARC>(n); }
};
template <>
struct Argument<GRX_TEXTE> {
    static GRX_TEXTE make(Bench&, std::size_t, unsigned n) {
        auto result = primitive<GRX_TEXTE>(n);
        if (n % 2) std::fill(std::begin(result.chaine), std::end(result.chaine), 'w'); // does not end
        return result;
    }
};
template <>
struct Argument<GRX_POLY> {
    static GRX_POLY make(Bench& bench, std::size_t, unsigned n) {
        auto poly = primitive<GRX_POLY>(n);
        constexpr std::array counts{0, 1, 2, 5, 64, -1, INT_MIN};
        for (std::size_t i = 0; i < bench.points.size(); ++i)
            bench.points[i] = {static_cast<short>(number(n + static_cast<unsigned>(i)) % 40000),
                static_cast<short>(number(n + static_cast<unsigned>(2 * i)))};
        poly.points = n % 4 ? bench.points.data() : nullptr;
        poly.npoints = n % 4 ? counts[n % counts.size()] : number(n);
        return poly;
    }
};
template <>
struct Argument<GRX_POINT_POLY> {
    static GRX_POINT_POLY make(Bench&, std::size_t, unsigned n) {
        constexpr std::array values{-32768, 32767, 0, 1, 1499, 1500, -1};
        return {static_cast<short>(values[n % values.size()]), static_cast<short>(values[n / 2 % values.size()])};
    }
};

// --- the table --------------------------------------------------------------------------------------------------------------

using Answer = std::optional<long long>; // nothing when the function gives nothing, or no number

struct Row {
    std::string name;
    std::function<Answer(Bench&, unsigned)> call;
    std::set<long long> answers; // what it may give
    unsigned times = rounds;
};

constexpr long long anything = LLONG_MIN; // every answer is right: it depends on what was set before

template <class Result, class Call>
Answer answer_of(Call call) {
    if constexpr (std::is_integral_v<Result>) {
        return static_cast<long long>(call());
    } else {
        call();
        return std::nullopt;
    }
}

template <class Result, class... Parameters, std::size_t... Place>
Answer call_mixed(Result (*function)(Parameters...), Bench& bench, unsigned n, std::index_sequence<Place...>) {
    return answer_of<Result>([&] {
        return function(Argument<Parameters>::make(
            bench, Place, n * (2 * static_cast<unsigned>(Place) + 1) + 7 * static_cast<unsigned>(Place))...);
    });
}

template <class Result, class... Parameters>
Row row(const char* name, Result (*function)(Parameters...), std::set<long long> answers) {
    const auto call = [function](Bench& bench, unsigned n) {
        return call_mixed(function, bench, n, std::index_sequence_for<Parameters...>());
    };
    return {name, call, std::move(answers), sizeof...(Parameters) == 0 ? 2 : rounds};
}

// Any arguments, none of which is read.
template <class Result>
Row row(const char* name, Result (*function)(...), std::set<long long> answers) {
    const auto call = [function](Bench& bench, unsigned n) {
        return answer_of<Result>([&] {
            return n % 2 ? function() : function(INT_MIN, static_cast<void*>(nullptr), bench.texts.data(), 1e308);
        });
    };
    return {name, call, std::move(answers), 2};
}

std::set<long long> answers_or_zero(std::set<long long> answers) {
    return answers.empty() ? std::set<long long>{0} : std::move(answers);
}

// The function by itself, with the answers that it may give; 0 unless said otherwise.
#define ROW(name, ...) row(#name, name, answers_or_zero({__VA_ARGS__}))

// By a call of the test's own: arguments that must fit each other, or that would block.
Row own(
    const char* name, unsigned times, std::function<Answer(Bench&, unsigned)> call, std::set<long long> answers = {0}) {
    return {name, std::move(call), std::move(answers), times};
}

#define NAMED(name) #name

// Functions that any mixture of values may be given to.
std::vector<Row> plain_rows() {
    return {
        // xt_ini_f.h
        ROW(grx_init_param_graphique),
        ROW(grx_init_sauvegarde_fenetre),
        ROW(grx_affecte_carac_fenetre_systeme),
        ROW(grx_is_objet_valide, 0, 1),
        ROW(grx_recup_taille_ecran),
        ROW(grx_recup_taille_ecran_mm),
        ROW(grx_recup_lar_ecran, anything),
        ROW(grx_recup_hau_ecran, anything),
        ROW(grx_recup_lar_ecran_mm, anything),
        ROW(grx_recup_hau_ecran_mm, anything),
        ROW(grx_recup_profondeur_ecran, anything),
        ROW(grx_put_nbr_xpel_crt),
        ROW(grx_put_nbr_ypel_crt),
        ROW(grx_get_nbr_xpel_crt, anything),
        ROW(grx_get_nbr_ypel_crt, anything),
        ROW(grx_charge_icones, 1),
        ROW(grx_selection_fonte_dialogue),
        ROW(grx_selection_fonte_status),
        ROW(grx_init_repertoire_icones),
        ROW(grx_recup_repertoire_icones),
        ROW(grx_decompose_adresse_fichier_message),
        ROW(grx_recup_repertoire_message),
        ROW(init_path, 0, 1, 2),
        ROW(grx_initialise_globales, 0, -1),
        ROW(grx_initialise_globales_systeme),
        ROW(grx_recup_font),
        ROW(grx_affecte_font),
        ROW(grx_recup_lar_carac_alpha, anything),
        ROW(grx_affecte_lar_carac_alpha),
        ROW(grx_recup_hau_carac_alpha, anything),
        ROW(grx_affecte_hau_carac_alpha),
        ROW(grx_recup_hau_exact_carac_alpha, anything),
        ROW(grx_affecte_hau_exact_carac_alpha),
        ROW(grx_recup_lar_sup_alpha, anything),
        ROW(grx_affecte_lar_sup_alpha),
        ROW(grx_recup_largeur_scrollbar, anything),
        ROW(grx_affecte_largeur_scrollbar),
        ROW(grx_get_tabord, anything),
        ROW(grx_set_tabord),
        ROW(grx_get_tabord_sans_resize, anything),
        ROW(grx_set_tabord_sans_resize),
        ROW(grx_get_tabord_sans_titre, anything),
        ROW(grx_set_tabord_sans_titre),
        ROW(grx_get_tabord_sans_decor, anything),
        ROW(grx_set_tabord_sans_decor),
        ROW(grx_get_tatitre, anything),
        ROW(grx_set_tatitre),
        ROW(grx_recup_max_couleur_trace, anything),
        ROW(grx_affecte_max_couleur_trace),
        ROW(grx_recup_max_couleur_rendu, anything),
        ROW(grx_affecte_max_couleur_rendu),
        ROW(grx_recup_max_couleur_reserve, 8),
        ROW(grx_recup_max_couleur_icone, 16),
        ROW(grx_recup_couleur_application, anything),
        ROW(grx_affecte_couleur_application),
        ROW(grx_recup_couleur_fond, anything),
        ROW(grx_affecte_couleur_fond),
        ROW(grx_get_pos_appli_x, anything),
        ROW(grx_set_pos_appli_x),
        ROW(grx_get_pos_appli_y, anything),
        ROW(grx_set_pos_appli_y),
        ROW(grx_recup_cst_dc, anything),
        ROW(grx_affecte_cst_dc),
        ROW(grx_recup_zone_sensible_icone, anything),
        ROW(grx_affecte_zone_sensible_icone),
        ROW(grx_recup_taille_icone_x, anything),
        ROW(grx_recup_taille_icone_y, anything),
        ROW(grx_affecte_taille_icone),
        ROW(grx_recup_format_icone, anything),
        ROW(grx_affecte_format_icone),
        ROW(grx_get_menu_fixe, anything),
        ROW(grx_set_menu_fixe),
        ROW(affecte_couleur_mires),
        ROW(affecte_couleur_mire2),
        ROW(affecte_couleur_neutre),
        ROW(affecte_couleur_contrastee),
        ROW(recup_couleur_mire, 1),
        ROW(recup_couleur_mire2, 6),
        ROW(recup_couleur_neutre, 4, 5),
        ROW(recup_couleur_contrastee, 2, 5),
        ROW(grx_configure_clavier_munerique),
        ROW(grx_restitue_clavier_munerique),
        ROW(grx_determine_palette_icone),
        ROW(grx_determine_palette_trace),
        ROW(grx_determine_palette_reserve),
        ROW(grx_affecte_palette_reserve),
        ROW(grx_affecte_palette_trace),
        ROW(grx_maj_palette_reserve),
        ROW(grx_maj_palette_trace),
        ROW(grx_modif_rgb),
        ROW(grx_recup_rgb),
        ROW(grx_recup_rgb_icone),
        ROW(grx_recup_couleur, anything),
        ROW(grx_recup_couleur_icone, anything),
        ROW(grx_recup_index_image, 0, 1),
        ROW(grx_init_palette_icone, 16),
        ROW(grx_change_couleur_8_icone),
        ROW(grx_restore_couleur_8_icone),
        ROW(grx_premier_index_rendu, anything),
        ROW(grx_dernier_index_rendu, anything),
        ROW(grx_recup_epaisseur, 0, 2, 3, 4, 5, 6, 7, 8),
        ROW(decode_decalage, 0, anything),
        ROW(grx_init_gc),
        ROW(grx_recup_taille_scrollbar, anything),
        ROW(traite_entier_chaine, anything),
        ROW(traite_chaine_chaine, 0, 1),
        ROW(traite_taille_icone, 0, 1),
        // xt_err_f.h
        ROW(grx_erreur),
        ROW(grx_affiche_chaine),
        ROW(grx_affiche_entier),
        ROW(grx_affiche_reel),
        // xt_loc_f.h
        // xt_fen_f.h
        ROW(grx_recup_objet_fen),
        ROW(grx_recup_indice_fen, anything),
        ROW(grx_recup_indice_objet_fen_libre, anything),
        ROW(grx_affecte_structure_fenetre),
        ROW(grx_recup_structure_fenetre),
        ROW(grx_libere_indice_objet_fen, 0, 1),
        ROW(grx_recup_max_objet, anything),
        ROW(grx_init_fenetre),
        ROW(grx_cree_fenetre, 0, -1, -2),
        ROW(supprime_gestion_expose_pour_fenetre),
        ROW(ajoute_gestion_expose_pour_fenetre),
        ROW(grx_is_fenetre_avec_scroll, 0, 1),
        ROW(grx_affecte_fenetre_avec_scroll),
        ROW(grx_is_fenetre_avec_bgi, 0, 1),
        ROW(grx_affecte_fenetre_avec_bgi),
        ROW(grx_cache_scrollbars_fenetre_graphique),
        ROW(grx_reaffiche_scrollbars_fenetre_graphique),
        ROW(grx_active_modifications_shell),
        ROW(grx_supprime_titre_fenetre),
        ROW(grx_affiche_titre_fenetre),
        ROW(grx_supprime_bord_fenetre),
        ROW(grx_affiche_bord_fenetre),
        ROW(grx_definit_tous_curseurs),
        ROW(grx_affecte_curseur),
        ROW(grx_change_curseur),
        ROW(grx_change_couleur_curseur),
        ROW(grx_recup_curseur_graphique, 1),
        ROW(grx_affecte_nofen_principale),
        ROW(grx_recup_nofen_principale, anything),
        ROW(grx_affecte_nofen_active),
        ROW(grx_recup_nofen_active, anything),
        ROW(grx_recherche_shell),
        ROW(grx_recherche_form),
        ROW(grx_recup_parent),
        ROW(grx_affiche_fenetre),
        ROW(grx_cache_fenetre),
        ROW(grx_affiche_fenetre_fille),
        ROW(grx_cache_fenetre_fille),
        ROW(grx_detruit_fenetre),
        ROW(grx_detruit_fenetre_fille),
        ROW(grx_reaffiche_fenetre),
        ROW(grx_deplace_fenetre),
        ROW(grx_change_taille_fenetre_fille),
        ROW(grx_recup_taille_fenetre),
        ROW(grx_recup_taille_fenetre_fille),
        ROW(grx_recup_position_fenetre),
        ROW(grx_recup_position_fenetre_fille),
        ROW(grx_iconifie_fenetre),
        ROW(grx_desiconifie_fenetre),
        ROW(grx_restack_fenetre),
        ROW(grx_change_titre_fenetre),
        ROW(grx_recup_titre_fenetre),
        ROW(grx_coord_relative_to_absolues),
        ROW(grx_affecte_increment_scrollbar),
        ROW(grx_recup_carac_scroll_fenetre),
        ROW(grx_affecte_carac_scroll_fenetre),
        ROW(grx_recup_taille_scrollbars_fenetre),
        ROW(grx_autorise_sauvegarde_auto),
        ROW(grx_supprime_sauvegarde_auto),
        ROW(grx_affecte_largeur_fenetre),
        ROW(grx_affecte_hauteur_fenetre),
        ROW(grx_recup_largeur_fenetre, anything),
        ROW(grx_recup_hauteur_fenetre, anything),
        ROW(grx_affiche_texte_dans_fenetre),
        ROW(grx_ajoute_texte_dans_fenetre),
        ROW(grx_recup_tamenubar, anything),
        ROW(grx_reactive_topmost),
        ROW(grx_desactive_topmost),
        ROW(grx_flush_fenetres_graphiques),
        ROW(grx_ote_mire_si_necessaire),
        ROW(grx_met_mire_si_necessaire),
        ROW(test_fenetre_principale),
        ROW(grx_iconifie_application),
        ROW(test_client_fenetre_graphique, 1),
        ROW(decode_ligne_ressource_menu, 0, 1, -1, -2),
        ROW(decode_chaine_ressource_menu, 0, -1),
        ROW(copie_li_menu),
        ROW(grx_cree_menu_bar),
        ROW(grx_detruit_menu_bar),
        ROW(grx_recree_menu_bar),
        ROW(grx_debut_menu_bar),
        ROW(grx_debut_sous_menu_bar),
        ROW(grx_fin_sous_menu_bar),
        ROW(grx_cree_atome),
        ROW(grx_fin_menu_bar),
        ROW(grx_get_Glob_menu_bar),
        ROW(grx_recup_taille_menu_bar),
        ROW(grx_envoie_dernier_evenement_a_fenetre_menu),
        // xt_ent_f.h
        ROW(grx_affecte_fenetre_a_digitaliser),
        ROW(grx_recup_fenetre_a_digitaliser, anything),
        ROW(grx_init_evenement),
        ROW(grx_supprime_tous_evenement_pour_fenetre),
        ROW(grx_flush_tous_evenements),
        ROW(grx_recup_etat_clavier, 0, 1, 2, 3),
        ROW(grx_init_double_clic),
        ROW(grx_reinit_double_clic),
        ROW(grx_recup_position_absolue_souris, anything),
        ROW(grx_envoie_dernier_evenement_a_bouton),
        // xt_bou_f.h
        ROW(grx_recup_indice_objet_bout_libre, anything),
        ROW(grx_recup_objet_bout),
        ROW(grx_recup_indice_bout, -1),
        ROW(grx_libere_indice_objet_bout, 0, 1),
        ROW(grx_affecte_structure_bouton),
        ROW(grx_recup_structure_bouton),
        ROW(grx_affecte_nobou_actif),
        ROW(grx_recup_nobou_actif, anything),
        ROW(grx_init_bouton),
        ROW(grx_cree_bouton, 0, -1, -2, -3),
        ROW(grx_cree_gadget, 0, -1),
        ROW(affecte_carac_font),
        ROW(grx_recup_couleur_init_fond_bouton, anything),
        ROW(grx_recup_couleur_init_trace_bouton, anything),
        ROW(grx_affiche_bouton),
        ROW(grx_cache_bouton),
        ROW(grx_efface_bouton),
        ROW(grx_detruit_bouton),
        ROW(grx_desactive_bouton),
        ROW(grx_force_focus_sur_bouton),
        ROW(grx_flush_dessin_bouton),
        ROW(grx_change_texte),
        ROW(grx_affecte_champ_bouton),
        ROW(grx_affecte_champ_texte),
        ROW(grx_ajoute_texte),
        ROW(grx_recup_texte_bouton),
        ROW(grx_selectionne_champ),
        ROW(grx_selectionne_champ_focus),
        ROW(grx_calc_larg_saisie, anything),
        ROW(grx_ajoute_element_dans_liste),
        ROW(grx_recup_nombre_elements_dans_list, 0, -1),
        ROW(grx_recup_element_dans_liste, 0, 1, -1),
        ROW(grx_change_couleur_bouton),
        ROW(grx_change_couleur_trace_bouton),
        ROW(grx_change_couleur_bouton_indice_direct),
        ROW(grx_change_couleur_trace_bouton_indice_direct),
        ROW(grx_remet_couleur_initiale_bouton),
        ROW(grx_recup_couleur_bouton, anything),
        ROW(grx_recup_couleur_trace_bouton, anything),
        ROW(grx_change_taille_bouton),
        ROW(grx_recup_taille_bouton),
        ROW(grx_change_position_bouton),
        ROW(grx_recup_position_bouton),
        ROW(grx_enfonce_bouton),
        ROW(grx_relache_bouton),
        ROW(grx_souligne_bouton),
        ROW(grx_relache_bouton_ras),
        ROW(grx_bouton_est_il_enfonce),
        ROW(grx_change_icone_bouton),
        ROW(grx_change_couleur_fond_icone_bouton),
        ROW(grx_affecte_icone_bouton1_bouton2),
        ROW(grx_change_valeur_echelle),
        ROW(grx_change_bornes_echelle),
        // xt_gfx_f.h
        ROW(grx_affecte_gc),
        ROW(grx_reinit_gc),
        ROW(grx_init_memo_attrib),
        ROW(grx_trace_point),
        ROW(grx_trace_segment),
        ROW(grx_trace_segment_bouton),
        ROW(grx_trace_rectangle),
        ROW(grx_trace_rectangle_bouton),
        ROW(grx_remplit_rectangle),
        ROW(grx_remplit_rectangle_bouton),
        ROW(grx_trace_arc),
        ROW(grx_remplit_arc),
        ROW(grx_trace_polyline),
        ROW(grx_remplit_polygone),
        ROW(grx_remplit_polygone_bouton),
        ROW(grx_remplit_triangle),
        ROW(grx_trace_texte_bouton),
        ROW(grx_trace_texte),
        ROW(grx_ecrit_fenetre),
        ROW(grx_recup_taille_chaine),
        ROW(grx_efface_chaine),
        ROW(grx_efface_zone_graphique),
        ROW(grx_efface_zone_graphique_bouton),
        ROW(dessine_rect),
        ROW(remplit_tableau_triangles),
        ROW(grx_cree_bitmap_backingstore, 0, 1),
        ROW(grx_supprime_bitmap_backingstore),
        ROW(grx_recree_bitmap_backingstore),
        ROW(grx_affiche_bitmap_backingstore, 0, 1),
        ROW(grx_memorise_bitmap_backingstore),
        ROW(grx_interdit_backingstore),
        ROW(grx_enable_backingstore),
        ROW(grx_backingstore_deja_cours, 0, 1),
        ROW(grx_redess_necessaire),
        ROW(grx_alloue_image),
        ROW(grx_desalloue_image),
        ROW(grx_trace_image),
        ROW(grx_alloue_image_bouton),
        ROW(grx_desalloue_image_bouton),
        ROW(grx_trace_image_bouton),
        ROW(grx_detruit_bitmap_backingstore_bouton),
        ROW(grx_affiche_bitmap_backingstore_bouton, 0, 1),
        ROW(grx_memorise_bitmap_backingstore_bouton),
        ROW(grx_sauve_fenetre, 0, 1),
        ROW(grx_restore_fenetre, 0, 1),
        ROW(grx_alloue_image_reel),
        ROW(grx_desalloue_image_reel),
        ROW(grx_noir_systeme, anything),
        ROW(grx_blanc_systeme, anything),
        ROW(grx_select_font_truetype, -1),
        ROW(grx_verifie_truetype),
        ROW(grx_installe_bitmap),
        ROW(grx_desinstalle_bitmap),
        ROW(init_tab_icon),
        ROW(cherche_icon),
        ROW(desalloue_tab_icon),
        ROW(pixel_size_image, anything),
        ROW(test_trace_memoire),
        ROW(test_trace_memoire_bouton),
        // xt_uti_f.h
        ROW(getcurrentdir, 0, 1),
        ROW(gettimedate),
        ROW(gettime),
        ROW(chrono_top),
        ROW(chrono_delai, 0, 1),
        ROW(osname, 3),
        ROW(getvarsystem, 0, 1),
        ROW(grx_bipbip),
        ROW(grx_flush_server),
        ROW(grx_sync_server),
        ROW(grx_arrete_alarme),
        ROW(grx_selectionne_curseur_attente),
        ROW(grx_deselectionne_curseur_attente),
        ROW(grx_contenu_aide),
        ROW(grx_aide_sur),
        ROW(grx_utilisation_aide),
        ROW(grx_aide_f1),
        // xt_dir_f.h
        ROW(taille_fichier, 0, 1),
        ROW(date_sys_fic, 0, 1),
        ROW(verif_si_dir, 0, 1),
        ROW(verif_si_fic, 0, 1),
        ROW(ouvre_sysdir, 0, 1),
        ROW(lect_dir_premier, 0, 1),
        ROW(lect_dir_suivant, 0, 1),
        ROW(ferme_sysdir),
        ROW(ouvre_sysfic),
        ROW(ferme_sysfic),
        ROW(verif_drive, 1),
        ROW(set_umask_rw),
        ROW(set_old_umask),
        ROW(disk_free_spc, anything),
        ROW(verif_repertoire, 0, -1),
        ROW(test_directorie, 0, -1),
        ROW(test_directorie_w, 0, -1),
        ROW(test_fichier_r, 0, -1),
        ROW(test_fichier_w, 0, -1),
        // xt_fme_f.h
        ROW(grx_recup_taille_position_fenetre_message_plein_ecran),
        ROW(grx_cree_fenetre_info),
        ROW(grx_agrandit_fenetre_info),
        ROW(grx_reduit_fenetre_info),
        ROW(grx_affiche_cache_xy),
        // xt_msg_f.h
        ROW(grx_init_message),
        ROW(grx_cree_support_message),
        ROW(grx_cree_fenetre_message_alpha),
        ROW(grx_relache_bascule),
        ROW(grx_enfonce_bascule),
        ROW(grx_cree_support_bascule_liste),
        // xt_pan_f.h
        ROW(grx_desalloue_base_items_panels),
        ROW(grx_memorise_bouton_item, 0, 105),
        ROW(grx_supprime_items),
        ROW(grx_recup_type_bstate, 0, 1, 2),
        ROW(grx_recup_type_istate, 0, 1, 2),
        ROW(grx_change_titre_item),
        ROW(grx_change_icone_item),
        ROW(grx_change_couleur_item),
        ROW(grx_change_champ_label),
        ROW(grx_change_etat_fonction),
        ROW(grx_recup_position_taille_item, 0, 1),
        ROW(grx_demande_taille_optimale_panel),
        ROW(grx_cree_item, 0, 105),
        ROW(grx_cree_istate1, 0, 105),
        ROW(grx_cree_bstate1, 0, 105),
        ROW(grx_desalloue_base_liste_panels),
        ROW(test_liste_deja_affichee, -1),
        ROW(grx_cree_item_liste),
        ROW(grx_cree_item_liste_general),
        ROW(grx_recup_objet_item_liste),
        ROW(grx_supprime_item_liste),
        ROW(grx_test_liste_ouverte),
        ROW(grx_modif_items_liste),
        ROW(grx_modif_un_item_liste),
        ROW(grx_change_type_liste),
        ROW(grx_affiche_panel_selection_g),
        ROW(grx_affiche_panel_selection),
        ROW(grx_recup_position_taille_panel_selection),
        ROW(RVB_to_HLS, 1),
        ROW(HLS_to_RVB, 0, 1),
        ROW(grx_affiche_fenetre_modif_palette_couleurs),
        ROW(grx_detruit_fenetre_modif_palette_couleurs, 0, 1),
        ROW(grx_cache_retrace_fenetre_modif_palette_couleurs),
        ROW(grx_retrace_fenetre_modif_palette_couleurs),
        ROW(grx_affecte_couleur_active, 1),
        ROW(grx_recup_couleur_active, anything),
        ROW(grx_recup_no_fenetre_modif_palette, anything),
        ROW(grx_is_fenetre_modif_palette_ouverte, 0, 1),
        ROW(grx_affecte_palette_rvb),
        ROW(grx_affecte_palette_hls),
        ROW(grx_affecte_palette, 0, 1),
        ROW(grx_gere_action_modif_palette, 0, 1),
        ROW(grx_change_attribut_item),
        // xt_f.h
        ROW(recup_bitmap_fichier),
        ROW(grx_debut_editeur, 0, 1),
        ROW(grx_editeur),
        ROW(grx_file_editeur),
        ROW(grx_fin_editeur, 0, 1),
        ROW(getimpdim, 1),
        ROW(getimpstepx),
        ROW(getimpstepy),
        ROW(getimpnbpen, anything),
        ROW(getimppalette, 1),
        ROW(getimpwidth, 1),
        ROW(InitDeviceOutput, 1),
        ROW(ModifyDeviceOutput, 1),
        ROW(StartDocumentOutput, 1),
        ROW(EndDocumentOutput, 1),
        ROW(ReleaseDeviceOutput, 1),
        ROW(ActualiseQueueReseau),
        ROW(imp_trace_point),
        ROW(imp_trace_segment),
        ROW(imp_trace_polyline),
        ROW(imp_trace_rectangle),
        ROW(imp_trace_arc),
        ROW(imp_remplit_rectangle),
        ROW(imp_remplit_arc),
        ROW(imp_remplit_polygone),
        ROW(imp_remplit_triangle),
        ROW(imp_trace_texte),
        ROW(LoadAbortPlotterComm),
        ROW(getDevMessOrChn),
        ROW(remplace_blancs),
        ROW(grx_tbl_init_boutons_choix),
        ROW(grx_tbl_init_bouton_choix),
        ROW(grx_tbl_detruit_boutons_choix),
        ROW(reconnait_fichier_domoplanix, 1),
        ROW(ReadOldDaoDomoplanix),
        ROW(ReadOldHuiDomoplanix),
        ROW(ReadOldAccDomoplanix),
        ROW(ReadOldFtvDomoplanix),
        ROW(ReadOldNivDomoplanix),
        ROW(ReadOldB3DDomoplanix),
    };
}

XEvent hostile_event(unsigned n) {
    XEvent event{};
    std::memset(static_cast<void*>(&event), n % 2 ? 0xFF : 0, sizeof event);
    event.type = static_cast<int>(n);
    event.xany.display = x11_disp;
    event.xany.window = live_window();
    event.xkey.keycode = 8 + n;
    if (event.type == MappingNotify || event.type == GenericEvent) event.type = INT_MAX;
    return event;
}

using Callback = void (*)(Widget, XtPointer, XtPointer);
using Handler = void (*)(Widget, XtPointer, XEvent*, Boolean*);

// A callback with every combination of nothing and something.
Answer call_back(Callback function, unsigned n) {
    INT window = number(n);
    XmAnyCallbackStruct call{static_cast<int>(n), nullptr};
    XmScrollBarCallbackStruct bigger{};
    (void)call;
    bigger.reason = static_cast<int>(n);
    function(n & 1U ? live_form() : nullptr, n & 2U ? &window : nullptr, n & 4U ? &bigger : nullptr);
    return std::nullopt;
}

Answer handle(Handler function, XtPointer client, unsigned n) {
    XEvent event = hostile_event(n);
    Boolean go_on = True;
    function(n % 3 ? live_form() : nullptr, client, n % 7 ? &event : nullptr, n % 5 ? &go_on : nullptr);
    return std::nullopt;
}

XtPointer window_client(unsigned n) {
    STRUCTURE_FENETRE* record = nullptr;
    grx_recup_structure_fenetre(n % 2 ? 1 : 57, &record);
    return n % 11 ? record : nullptr;
}

XtPointer button_client(unsigned n) {
    STRUCTURE_BOUTON* record = nullptr;
    grx_recup_structure_bouton(n % 2 ? 0 : 577, &record);
    return n % 11 ? record : nullptr;
}

// Pictures of 20 x 10 bytes and less, whatever the place.
constexpr INT picture_width = 20, picture_height = 10;
constexpr std::array picture_sides{0, 1, 7, 10, -1, INT_MIN};

uchar* picture(Bench& bench, std::size_t place, unsigned n) {
    bench.texts[place].fill(static_cast<char>(n));
    return n % 5 == 4 ? nullptr : reinterpret_cast<uchar*>(bench.texts[place].data());
}

INT side(unsigned n) {
    return picture_sides[n % picture_sides.size()];
}

template <class Function>
Answer convert(Function function, Bench& bench, unsigned n) {
    return function(side(n), side(n / 2), picture(bench, 0, n));
}

// A choice control of any table in any window, its texts of all sorts.
Answer table_choices(decltype(grx_tbl_cree_boutons_choix) function, Bench& bench, unsigned n) {
    std::array<char*, 8> texts{};
    for (std::size_t i = 0; i < texts.size(); ++i) texts[i] = text(bench, i, n + static_cast<unsigned>(i));
    Itbl = n % 3 ? static_cast<INT>(n % 10) : number(n);
    const INT count = n % 4 ? std::min(number(n + 3), static_cast<INT>(texts.size())) : number(n);
    return function(n % 2 ? number(n) : static_cast<INT>(n % 9), number(n + 1), number(n + 2), number(n + 3), count,
        n % 4 ? texts.data() : nullptr, number(n + 4));
}

// Functions whose arguments must fit each other.
std::vector<Row> own_rows() {
    return {
        own(NAMED(grx_malloc), 3,
            [](Bench&, unsigned n) -> Answer {
                char* block = grx_malloc(n + 1);
                grx_free(block, n + 1);
                return std::nullopt;
            }),
        own(NAMED(grx_free), 1, [](Bench&, unsigned) -> Answer { return grx_free(nullptr, 0); }),
        own(NAMED(grx_realloc), 1,
            [](Bench&, unsigned) -> Answer {
                char* block = grx_realloc(grx_malloc(5), 5, 50);
                grx_free(block, 50);
                return std::nullopt;
            }),
        own(NAMED(grx_memcpy), 3,
            [](Bench& bench, unsigned n) -> Answer {
                grx_memcpy(bench.texts[0].data(), bench.texts[1].data(), static_cast<INT>(n));
                return std::nullopt;
            }),
        own(NAMED(temporisation), 3,
            [](Bench&, unsigned n) -> Answer {
                constexpr std::array values{-1e308, 0.0, std::numeric_limits<double>::quiet_NaN()};
                temporisation(values[n]);
                return std::nullopt;
            }),
        own(NAMED(grx_demarre_alarme), 3,
            [](Bench&, unsigned n) -> Answer {
                constexpr std::array values{INT_MAX, -1, 0};
                grx_demarre_alarme(values[n], [] {});
                grx_demarre_alarme(values[n], nullptr);
                grx_arrete_alarme();
                return std::nullopt;
            }),
        own(NAMED(encode_double_en_caractere), rounds,
            [](Bench& bench, unsigned n) -> Answer {
                constexpr std::array totals{-1, 0, 1, 20, 1000, INT_MIN};
                return encode_double_en_caractere(Argument<DOUBLE>::make(bench, 0, n), totals[n % totals.size()],
                    number(n), n % 9 ? bench.texts[0].data() : nullptr);
            }),
        own(NAMED(suppfic), 3, [](Bench& bench, unsigned n) -> Answer { return suppfic(text(bench, 0, n)); }, {-1}),
        own(NAMED(grx_change_taille_fenetre), rounds,
            [](Bench&, unsigned n) -> Answer {
                return grx_change_taille_fenetre(number(n), number(n + 5), n % 2 ? 50 : -1); // one side may be huge
            }),
        own(NAMED(grx_cree_bitmap_backingstore_bouton), rounds,
            [](Bench&, unsigned n) -> Answer {
                grx_cree_bitmap_backingstore_bouton(number(n), number(n + 5), 20, number(n + 1), number(n + 2));
                return std::nullopt;
            }),
        own(NAMED(grx_affecte_profondeur_ecran), rounds,
            [](Bench&, unsigned n) -> Answer {
                const INT depth = grx_recup_profondeur_ecran();
                grx_affecte_profondeur_ecran(number(n));
                return grx_affecte_profondeur_ecran(depth);
            }),
        own(NAMED(grx_synchronise), 3,
            [](Bench&, unsigned n) -> Answer {
                grx_synchronise(number(n));
                grx_synchronise(0);
                return std::nullopt;
            }),
        own(NAMED(grx_change_visual_fenetre), rounds,
            [](Bench&, unsigned n) -> Answer {
                return grx_change_visual_fenetre(number(n), n % 2 ? x11_vis : nullptr);
            }),
        own(NAMED(grx_digitaliseur), 4,
            [](Bench& bench, unsigned n) -> Answer { return grx_digitaliseur(n % 2 ? &bench.event : nullptr, 0); },
            {0, 1}),
        own(NAMED(grx_digitaliseur_fenetre), 4,
            [](Bench& bench, unsigned n) -> Answer {
                return grx_digitaliseur_fenetre(n % 2 ? &bench.event : nullptr, 0);
            },
            {0, 1}),
        own(NAMED(grx_cherche_evenement), rounds,
            [](Bench& bench, unsigned n) -> Answer {
                const INT type = number(n);
                const bool would_wait = type == GRX_EVT_BOUTON_APPUI || type == GRX_EVT_CARAC_APPUI;
                return grx_cherche_evenement(type, n % 4 ? &bench.event : nullptr, would_wait ? 0 : number(n + 1));
            },
            {0, 1, 2}),
        own(NAMED(grx_attend_creation_fenetre), 2,
            [](Bench&, unsigned n) -> Answer { return grx_attend_creation_fenetre(n ? INT_MAX : -1); }),
        own(NAMED(grx_double_clic), rounds,
            [](Bench&, unsigned n) -> Answer {
                grx_affecte_cst_dc(n % 2 ? 0 : -1);
                grx_reinit_double_clic();
                return grx_double_clic(number(n), number(n + 1), number(n + 2), number(n + 3));
            },
            {0, 1, 2, 3, 4, 5}),
        own(NAMED(grx_translate_touche), rounds,
            [](Bench& bench, unsigned n) -> Answer {
                XEvent event = hostile_event(n);
                return grx_translate_touche(n % 4 ? &event : nullptr, n % 3 ? bench.integers[0].data() : nullptr);
            },
            {0, 1}),
        own(NAMED(grx_gere_evenements_fenetre), 40,
            [](Bench&, unsigned n) -> Answer { return handle(grx_gere_evenements_fenetre, window_client(n), n); }),
        own(NAMED(grx_gere_evenements_bouton), 40,
            [](Bench&, unsigned n) -> Answer { return handle(grx_gere_evenements_bouton, button_client(n), n); }),
        own(NAMED(grx_menu_est_appuie), 3,
            [](Bench&, unsigned n) -> Answer {
                XEvent event = hostile_event(n);
                grx_menu_est_appuie(n ? live_form() : nullptr, nullptr, n ? &event : nullptr, nullptr);
                return std::nullopt;
            }),
        own(NAMED(grx_menu_est_active), 2,
            [](Bench&, unsigned n) -> Answer {
                grx_menu_est_active(n ? live_form() : nullptr, nullptr, nullptr);
                return std::nullopt;
            }),
        own(NAMED(grx_scroll_change), 8, [](Bench&, unsigned n) -> Answer { return call_back(grx_scroll_change, n); }),
        own(NAMED(grx_shell_est_detruit), 8,
            [](Bench&, unsigned n) -> Answer { return call_back(grx_shell_est_detruit, n); }),
        own(NAMED(grx_reponse_a_message), 8,
            [](Bench&, unsigned n) -> Answer { return call_back(grx_reponse_a_message, n); }),
        own(NAMED(grx_commande_entree), 4,
            [](Bench&, unsigned n) -> Answer {
                INT window = number(n);
                XmCommandCallbackStruct call{};
                grx_commande_entree(n % 2 ? live_form() : nullptr, n & 2U ? &window : nullptr, n % 3 ? &call : nullptr);
                return std::nullopt;
            }),
        own(NAMED(grx_gere_evenement_scroll_menu), 8,
            [](Bench&, unsigned n) -> Answer { return call_back(grx_gere_evenement_scroll_menu, n); }),
        own(NAMED(grx_bouton_est_affiche), 2,
            [](Bench&, unsigned n) -> Answer {
                grx_bouton_est_affiche(live_form(), button_client(11 * n), nullptr);
                return std::nullopt;
            }),
        own(NAMED(grx_bouton_est_enfonce), 2,
            [](Bench&, unsigned n) -> Answer {
                grx_bouton_est_enfonce(live_form(), button_client(11 * n), nullptr);
                return std::nullopt;
            }),
        own(NAMED(grx_echelle_bouge), 2,
            [](Bench&, unsigned n) -> Answer {
                grx_echelle_bouge(live_form(), button_client(11 * n), nullptr);
                return std::nullopt;
            }),
        own(NAMED(grx_element_liste_clique), 2,
            [](Bench&, unsigned n) -> Answer {
                grx_element_liste_clique(live_form(), button_client(11 * n), nullptr);
                return std::nullopt;
            }),
        own(NAMED(grx_focus_quitte_bouton), 2,
            [](Bench&, unsigned n) -> Answer {
                grx_focus_quitte_bouton(live_form(), button_client(11 * n), nullptr);
                return std::nullopt;
            }),
        own(NAMED(grx_editeur_est_detruit), 1,
            [](Bench&, unsigned) -> Answer {
                grx_editeur_est_detruit(nullptr, nullptr, nullptr);
                return std::nullopt;
            }),
        own(NAMED(grx_element_fileliste_clique), 1,
            [](Bench&, unsigned) -> Answer {
                grx_element_fileliste_clique(nullptr, nullptr, nullptr);
                return std::nullopt;
            }),
        own(NAMED(grx_icone_oxa_to_system), rounds,
            [](Bench& bench, unsigned n) -> Answer { return convert(grx_icone_oxa_to_system, bench, n); }),
        own(NAMED(grx_icone_system_to_oxa), rounds,
            [](Bench& bench, unsigned n) -> Answer { return convert(grx_icone_system_to_oxa, bench, n); }),
        own(NAMED(grx_image_oxa_to_system), rounds,
            [](Bench& bench, unsigned n) -> Answer { return convert(grx_image_oxa_to_system, bench, n); }),
        own(NAMED(grx_image_system_to_oxa), rounds,
            [](Bench& bench, unsigned n) -> Answer { return convert(grx_image_system_to_oxa, bench, n); }),
        own(NAMED(remplit_tableau_polygone), rounds,
            [](Bench& bench, unsigned n) -> Answer {
                const GRX_POLY poly = Argument<GRX_POLY>::make(bench, 0, n);
                return remplit_tableau_polygone(poly.points, poly.npoints, static_cast<uchar>(n));
            }),
        own(NAMED(remplit_tableau_polygone_reel), rounds,
            [](Bench& bench, unsigned n) -> Answer {
                const GRX_POLY poly = Argument<GRX_POLY>::make(bench, 0, n);
                return remplit_tableau_polygone_reel(
                    picture(bench, 1, n), side(n), side(n + 3), poly.points, poly.npoints, static_cast<uchar>(n));
            }),
        own(NAMED(remplit_tableau_triangles_reel), rounds,
            [](Bench& bench, unsigned n) -> Answer {
                const auto point = [&](unsigned i) { return Argument<GRX_POINT_POLY>::make(bench, 0, i); };
                return remplit_tableau_triangles_reel(picture(bench, 1, n), side(n), side(n + 3), point(n),
                    point(3 * n + 1), point(5 * n + 2), static_cast<uchar>(n));
            }),
        own(NAMED(grx_recup_image), rounds,
            [](Bench& bench, unsigned n) -> Answer {
                grx_recup_image(number(n), number(n + 1), side(n), side(n + 2), picture(bench, 0, n));
                return std::nullopt;
            }),
        own(NAMED(grx_trace_image_dans_widget), rounds,
            [](Bench& bench, unsigned n) -> Answer {
                grx_trace_image_dans_widget(static_cast<INT>(n % 2), number(n), picture(bench, 0, n), side(n),
                    side(n + 2), number(n + 3), number(n + 4));
                return std::nullopt;
            }),
        own(NAMED(grx_trace_image_reel_xy), rounds,
            [](Bench& bench, unsigned n) -> Answer {
                grx_trace_image_reel_xy(static_cast<INT>(n % 2), number(n), picture(bench, 0, n),
                    picture(bench, 1, n + 1), side(n), side(n + 2), number(n + 3), number(n + 4));
                return std::nullopt;
            }),
        own(NAMED(grx_stretch_image), rounds,
            [](Bench& bench, unsigned n) -> Answer {
                grx_stretch_image(static_cast<INT>(n % 2), number(n), picture(bench, 0, n), picture(bench, 1, n + 1),
                    side(n), side(n + 2), number(n + 3), number(n + 4), side(n + 1), side(n / 3));
                return std::nullopt;
            }),
        own(NAMED(imp_stretch_image), 2,
            [](Bench& bench, unsigned n) -> Answer {
                imp_stretch_image(picture(bench, 0, n), nullptr, INT_MAX, INT_MIN, 0, 0, INT_MAX, -1);
                return std::nullopt;
            }),
        own(NAMED(grx_affiche_boutons), rounds,
            [](Bench& bench, unsigned n) -> Answer {
                bench.integers[0].fill(number(n));
                return grx_affiche_boutons(n % 4 ? bench.integers[0].data() : nullptr, n % 3 ? side(n) : INT_MIN);
            }),
        own(NAMED(grx_texte_extent_truetype), 2,
            [](Bench& bench, unsigned n) -> Answer {
                grx_texte_extent_truetype(
                    n ? INT_MAX : -1, text(bench, 0, n), 1e308, -1, text(bench, 1, n), bench.doubles.data());
                return std::nullopt;
            }),
        own(NAMED(get_contours_texte_truetype), 2,
            [](Bench& bench, unsigned n) -> Answer {
                DEF_CONTOURS* outlines = nullptr;
                return get_contours_texte_truetype(Argument<GRX_TEXTE>::make(bench, 0, n), n ? &outlines : nullptr);
            }),
        own(NAMED(affiche_bitmap_fichier), 7,
            [](Bench& bench, unsigned n) -> Answer {
                affiche_bitmap_fichier(text(bench, 0, n), nullptr);
                return std::nullopt;
            }),
        own(NAMED(lit_fichier_bitmap), 7,
            [](Bench& bench, unsigned n) -> Answer {
                uchar* pixels = nullptr;
                auto& counts = bench.counts;
                return lit_fichier_bitmap(
                    text(bench, 0, n), text(bench, 1, n), &pixels, &counts[0], &counts[1], &counts[2], nullptr);
            },
            {1}),
        own(NAMED(ecrit_fichier_bitmap), rounds,
            [](Bench& bench, unsigned n) -> Answer {
                return ecrit_fichier_bitmap(
                    bench.folder.data(), const_cast<char*>("a.bmp"), picture(bench, 0, n), side(n), side(n + 1));
            },
            {0, 1}),
        own(NAMED(ecrit_fichier_bitmap_256), rounds,
            [](Bench& bench, unsigned n) -> Answer {
                return ecrit_fichier_bitmap_256(
                    bench.folder.data(), const_cast<char*>("a.bmp"), picture(bench, 0, n), side(n), side(n + 1));
            },
            {0, 1}),
        own(NAMED(ecrit_fichier_bitmap_mono), rounds,
            [](Bench& bench, unsigned n) -> Answer {
                return ecrit_fichier_bitmap_mono(
                    bench.folder.data(), const_cast<char*>("a.bmp"), picture(bench, 0, n), side(n), side(n + 1));
            },
            {0, 1}),
        own(NAMED(append_icon), 2,
            [](Bench&, unsigned) -> Answer {
                ENRICON icon{};
                std::fill(std::begin(icon.nom_icon), std::end(icon.nom_icon), 'n');
                return append_icon(icon);
            },
            {0, 1}),
        own(NAMED(OutputFileOnPort), 4,
            [](Bench& bench, unsigned n) -> Answer {
                return OutputFileOnPort(number(n), nullptr, text(bench, 0, n), nullptr, text(bench, 1, n), INT_MAX,
                    INT_MIN, -1, -1, -1, -1);
            },
            {anything}),
        own(NAMED(decode_message), 7,
            [](Bench& bench, unsigned n) -> Answer {
                static std::array<std::array<char, GRX_ITEM_LIGNE_MAX>, 64> lines;
                INT count = n % 3 ? 60 : 0;
                return decode_message(text(bench, 0, n), number(n), n % 5 ? &count : nullptr,
                    reinterpret_cast<char(*)[GRX_ITEM_LIGNE_MAX]>(lines.data()));
            },
            {anything}),
        own(NAMED(grx_alloue_base_items_panels), 2,
            [](Bench&, unsigned n) -> Answer { return grx_alloue_base_items_panels(n ? -1 : 0, nullptr); }, {anything}),
        own(NAMED(grx_alloue_base_liste_panels), 1,
            [](Bench&, unsigned) -> Answer { return grx_alloue_base_liste_panels(); }, {anything}),
        own(NAMED(test_realloue_Tab_liste), 1, [](Bench&, unsigned) -> Answer { return test_realloue_Tab_liste(); },
            {anything}),
        own(NAMED(recup_boutons_item), rounds,
            [](Bench& bench, unsigned n) -> Answer {
                INT count = 100;
                return recup_boutons_item(number(n), number(n + 1), n % 5 ? &count : nullptr, bench.integers[0].data());
            },
            {anything}),
        own(NAMED(grx_detruit_bascule_complexe), rounds,
            [](Bench& bench, unsigned n) -> Answer {
                GRX_MSG message = Argument<GRX_MSG>::make(bench, 0, n);
                if (n % 2) message.type = GRX_MSG_TYPE_BASCULES;
                const INT window = 1 + static_cast<INT>(n % 9);
                const std::array values{static_cast<Widget>(nullptr), live_form(), grx_recup_objet_fen(window),
                    grx_recherche_shell(grx_recup_objet_fen(window)), grx_recup_objet_bout(static_cast<INT>(n % 2)),
                    grx_cree_support_message(window, message)};
                message.ref_fen_mere = values[n % values.size()];
                grx_detruit_bascule_complexe(message);
                return grx_detruit_bascule_complexe(message);
            }),
        own(NAMED(grx_cree_titre_bascule_liste), rounds,
            [](Bench& bench, unsigned n) -> Answer {
                const std::array supports{live_form(), static_cast<Widget>(nullptr), grx_recup_objet_bout(0)};
                const std::array menus{grx_cree_support_bascule_liste(live_form()), static_cast<Widget>(nullptr),
                    live_form(), grx_recup_objet_bout(0)};
                const std::array choices{static_cast<Widget>(nullptr), grx_recup_objet_bout(1), live_form()};
                grx_cree_titre_bascule_liste(supports[n % supports.size()], menus[n % menus.size()],
                    choices[n / 2 % choices.size()], text(bench, 0, n));
                return std::nullopt;
            }),
        own(NAMED(grx_cree_liste), rounds,
            [](Bench& bench, unsigned n) -> Answer {
                GRX_MSG message = Argument<GRX_MSG>::make(bench, 0, n);
                std::array<char*, 50> texts{};
                for (std::size_t i = 0; i < texts.size(); ++i) texts[i] = text(bench, 1, n + static_cast<unsigned>(i));
                message.choix = n % 5 ? texts.data() : nullptr;
                message.nb_deci = n % 5 ? std::min(number(n), static_cast<INT>(texts.size())) : number(n);
                message.nb_cara = n % 3 ? static_cast<INT>(n % 10) : number(n);
                message.fen_mere = n % 2 ? message.fen_mere : static_cast<INT>(n % 9);
                message.x = number(n + 4);
                message.y = number(n + 9);
                grx_cree_liste(n == 30 ? nullptr : &message);
                return std::nullopt;
            }),
        own(NAMED(grx_lit_liste), rounds,
            [](Bench& bench, unsigned n) -> Answer {
                const std::array lists{static_cast<Widget>(nullptr), live_form(), grx_recup_objet_bout(0),
                    grx_recherche_shell(live_form())};
                return grx_lit_liste(n % 2 ? number(n) : static_cast<INT>(n % 10), lists[n % lists.size()],
                    n % 3 ? bench.integers[0].data() : nullptr, n % 5 ? bench.integers[1].data() : nullptr);
            }),
        own(NAMED(grx_detruit_liste), rounds,
            [](Bench&, unsigned n) -> Answer {
                const std::array lists{static_cast<Widget>(nullptr), live_form(), grx_recup_objet_bout(0)};
                return grx_detruit_liste(n % 2 ? number(n) : static_cast<INT>(n % 10), lists[n % lists.size()]);
            }),
        own(NAMED(grx_cree_boutons_fenetre_info), 1,
            [](Bench&, unsigned) -> Answer {
                grx_cree_boutons_fenetre_info(nullptr, nullptr);
                return std::nullopt;
            }),
        own(NAMED(grx_tbl_cree_boutons_choix), rounds,
            [](Bench& bench, unsigned n) { return table_choices(grx_tbl_cree_boutons_choix, bench, n); }),
        own(NAMED(grx_tbl_change_boutons_choix), rounds,
            [](Bench& bench, unsigned n) { return table_choices(grx_tbl_change_boutons_choix, bench, n); }),
        own(NAMED(grx_affecte_position_taille_panel_selection), rounds,
            [](Bench&, unsigned n) -> Answer {
                grx_affecte_position_taille_panel_selection(number(n), number(n + 1), number(n + 2), 50);
                return std::nullopt;
            }),
    };
}

// Functions that wait for the user, or that a program calls once: only without a display.
std::vector<Row> early_rows() {
    return {
        row("grx_init_application", grx_init_application, {0}),
        row("grx_init_graphique", grx_init_graphique, {0}),
        row("grx_init_colormap_8_plans", grx_init_colormap_8_plans, {0, 1}),
        row("grx_init_colormap_24_plans", grx_init_colormap_24_plans, {0, 1}),
        row("grx_gere_application", grx_gere_application, {0}),
        row("select_fichier_x11", select_fichier_x11, {0}),
        row("select_repertoire_x11", select_repertoire_x11, {0}),
        row("question_suppression", question_suppression, {0, 2, 3}),
        row("grx_file_editeur_bloquant", grx_file_editeur_bloquant, {0}),
    };
}

// Functions that take the tables away from under everything: last, and put back.
std::vector<Row> last_rows() {
    return {
        own(NAMED(grx_affecte_objet_fen), rounds,
            [](Bench&, unsigned n) -> Answer {
                const INT window = number(n);
                Widget before = grx_recup_objet_fen(window);
                grx_affecte_objet_fen(window, nullptr);
                return window == 0 ? 1 : grx_affecte_objet_fen(window, before);
            },
            {0, 1}),
        own(NAMED(grx_affecte_objet_bout), rounds,
            [](Bench&, unsigned n) -> Answer {
                Widget before = grx_recup_objet_bout(number(n));
                grx_affecte_objet_bout(number(n), nullptr);
                return grx_affecte_objet_bout(number(n), before);
            },
            {0, 1}),
        own(NAMED(grx_init_objet_fen), 1, [](Bench&, unsigned) -> Answer { return grx_init_objet_fen(); }),
        own(NAMED(grx_desalloue_tab_image_boutons), 2,
            [](Bench&, unsigned) -> Answer {
                grx_desalloue_tab_image_boutons(GRX_NB_BOUTONS);
                return std::nullopt;
            }),
        own(NAMED(grx_alloue_tab_image_boutons), 1,
            [](Bench&, unsigned) -> Answer { return grx_alloue_tab_image_boutons(GRX_NB_BOUTONS); }),
        own(NAMED(grx_desalloue_base_boutons), 2,
            [](Bench&, unsigned) -> Answer { return grx_desalloue_base_boutons(); }),
        own(NAMED(grx_alloue_base_boutons), 1, [](Bench&, unsigned) -> Answer { return grx_alloue_base_boutons(); }),
        own(NAMED(grx_desalloue_base_fenetres), 2,
            [](Bench&, unsigned) -> Answer { return grx_desalloue_base_fenetres(); }),
        own(NAMED(grx_alloue_base_fenetres), 1, [](Bench&, unsigned) -> Answer { return grx_alloue_base_fenetres(); }),
    };
}

std::vector<Row> joined(std::vector<std::vector<Row>> tables) {
    std::vector<Row> all;
    for (auto& table : tables) all.insert(all.end(), table.begin(), table.end());
    return all;
}

// --- the table is whole -------------------------------------------------------------------------------------------------------

std::set<std::string> names_of(const std::string& file) {
    std::ifstream in(std::string(GRX_TEST_DATA) + "/../abi/" + file);
    std::set<std::string> names;
    for (std::string name; in >> name;) names.insert(name);
    return names;
}

TEST(HostileTableOn24, NamesEveryExport) {
    const auto exported = names_of("exports.txt");
    ASSERT_GT(exported.size(), 500U);
    std::set<std::string> named;
    for (const Row& row : joined({plain_rows(), own_rows(), early_rows(), last_rows()})) {
        EXPECT_TRUE(named.insert(row.name).second) << row.name << " twice";
        EXPECT_TRUE(exported.contains(row.name)) << row.name << " is not exported";
    }
    for (const std::string& name : exported)
        EXPECT_TRUE(named.contains(name) || globals.contains(name)) << name << " has no row";
}

// --- the calls ------------------------------------------------------------------------------------------------------------------

class Hostile : public XTest {
  protected:
    void SetUp() override {
        XTest::SetUp();
        permit_x_errors(); // the library swallows them; what is asked for here is often impossible
        write_menu("");
        bench_->folder = home().text() + "/";
    }

    void start() { ASSERT_TRUE(start_up()); }

    // A window of each kind, a main window, a child, a nested one, and two controls.
    void ensure_windows() {
        if (!windows_) return;
        for (INT kind : all_kinds) ensure_kind(kind);
        if (!live_form()) return;
        for (INT type : {GRX_BOU_LABEL, GRX_BOU_TEXTE}) {
            if (grx_recup_objet_bout(type == GRX_BOU_LABEL ? 0 : 1)) continue;
            GRX_BOUTON button{};
            grx_init_bouton(&button);
            button.type = type;
            button.ref_fen_mere = live_form();
            grx_cree_bouton(&button);
        }
    }

    void call_all(const std::vector<Row>& table) {
        for (const Row& row : table) {
            ensure_windows();
            if (windows_ && !all_kinds_live()) without_windows_.push_back(row.name);
            call(row);
            settle();
        }
    }

    static bool all_kinds_live() {
        std::set<INT> kinds;
        for (INT n = 1; n < 30; ++n)
            if (grx_recup_objet_fen(n)) kinds.insert(record_of(n).type);
        return std::ranges::all_of(all_kinds, [&](INT kind) { return kinds.contains(kind); });
    }

    bool windows_ = false;
    std::vector<std::string> without_windows_; // rows that were to run beside live windows and did not

  private:
    static void ensure_kind(INT kind) {
        for (INT n = 1; n < 30; ++n)
            if (grx_recup_objet_fen(n) && record_of(n).type == kind) return;
        GRX_FENETRE window = described(kind, GRX_FEN_ATT_VISIBLE, 120, 90);
        if (kind == GRX_FEN_BOUTONS) window.attrib |= GRX_FEN_ATT_PRINCIPALE;
        if (kind == GRX_FEN_MENU) window.attrib |= GRX_FEN_ATT_SCROLL;
        grx_cree_fenetre(&window);
    }

    void call(const Row& row) {
        std::set<long long> wrong;
        {
            const StdoutCapture silence;
            for (unsigned n = 0; n < row.times; ++n) {
                const Answer answer = row.call(*bench_, n);
                if (answer && !row.answers.contains(*answer) && !row.answers.contains(anything)) wrong.insert(*answer);
                remove_new_windows();
            }
        }
        EXPECT_TRUE(wrong.empty()) << row.name << " gives " << testing::PrintToString(wrong);
    }

    // Rows that make windows do not fill the base.
    static void remove_new_windows() {
        for (INT n = 10; n < MAXOBJETFEN; ++n)
            if (grx_recup_objet_fen(n)) grx_detruit_fenetre(n);
    }

    void settle() {
        if (!x11_disp) return;
        const StdoutCapture silence;
        XSync(x11_disp, False);
        GRX_EVENEMENT event{};
        for (int i = 0; i < 2000 && XtAppPending(contexte); ++i) grx_digitaliseur(&event, 0);
    }

    std::unique_ptr<Bench> bench_ = std::make_unique<Bench>();
};

TEST_F(Hostile, WithoutDisplay) {
    unsetenv("DISPLAY");
    call_all(joined({plain_rows(), own_rows(), early_rows()}));
    EXPECT_EQ(x11_disp, nullptr);
}

TEST_F(Hostile, WithoutDisplayWithBases) {
    unsetenv("DISPLAY");
    ASSERT_EQ(grx_alloue_base_fenetres(), 0);
    ASSERT_EQ(grx_alloue_base_boutons(), 0);
    call_all(joined({plain_rows(), own_rows(), early_rows(), last_rows()}));
    EXPECT_EQ(x11_disp, nullptr);
}

TEST_F(Hostile, AfterStartUp) {
    start();
    call_all(joined({plain_rows(), own_rows()}));
}

TEST_F(Hostile, WithLiveWindows) {
    start();
    windows_ = true;
    call_all(joined({plain_rows(), own_rows()}));
    EXPECT_TRUE(without_windows_.empty()) << testing::PrintToString(without_windows_);
    windows_ = false;
    call_all(last_rows());
}

TEST_F(Hostile, TheLibraryStillWorksAfterwards) {
    start();
    windows_ = true;
    call_all(own_rows());
    for (INT n = 1; n < MAXOBJETFEN; ++n) grx_detruit_fenetre(n);
    const INT window = make(GRX_FEN_ALPHA);
    ASSERT_GT(window, 0);
    Events events;
    events.drain();
    pointer().click_in(widget_of(window), 30, 40);
    EXPECT_TRUE(events.wait(GRX_EVT_BOUTON_APPUI)) << events.describe();
}

} // namespace
