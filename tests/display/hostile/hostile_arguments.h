// Arguments that nobody should give: extreme and negative numbers, null pointers, over-long and unterminated texts.
#pragma once

#include "tests/support/window_kit.h"

#include <algorithm>
#include <array>
#include <climits>
#include <cstring>
#include <limits>
#include <string>
#include <type_traits>

namespace grxtest::hostile {

inline constexpr std::array numbers{INT_MIN, -1, 0, 1, 2, 3, 4, 5, 6, 7, 50, 99, 100, 999, 1000, 65536, INT_MAX};
inline constexpr std::size_t text_room = 16384;
inline constexpr unsigned rounds = 31; // as many mixtures of values per function

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

inline INT number(unsigned n) {
    return numbers[n % numbers.size()];
}

// A form of a live window, where controls may be put.
inline Widget live_form() {
    for (INT n = 1; n < 10; ++n)
        if (Widget w = grx_recup_objet_fen(n); w && XmIsForm(w)) return w;
    return nullptr;
}

inline Window live_window() {
    Widget form = live_form();
    return form ? XtWindow(form) : None;
}

inline char* text(Bench& bench, std::size_t place, unsigned n) {
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

inline GRX_FENETRE hostile_window(unsigned n) {
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

inline GRX_BOUTON hostile_button(unsigned n) {
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

} // namespace grxtest::hostile
