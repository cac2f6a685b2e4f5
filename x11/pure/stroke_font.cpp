// The built-in font of single strokes, for pens and thin lines: finds a letter, or what it is made of, and reads its
// strokes.
#include "pure/stroke_font.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "pure/stroke_letters.h"

namespace grx {

namespace {

constexpr double kUnits = 10; // of a capital
constexpr double kSpacing = 2;
constexpr double kSmallHeight = 7;
constexpr double kReduction = 0.55; // of characters set high
constexpr DrawnLetter kUnknown{0, 5, "M0 0L0 10L5 10L5 0L0 0"};

template <class Letters>
auto find(const Letters& letters, char32_t character) {
    const auto found = std::find_if(
        letters.begin(), letters.end(), [character](const auto& letter) { return letter.character == character; });
    return found != letters.end() ? &*found : nullptr;
}

const DrawnLetter* drawn(char32_t character) {
    constexpr char32_t first = U' ', last = U'~';
    if (character >= first && character <= last) return &kDrawnLetters[character - first];
    return find(kDrawnLetters, character);
}

// A letter and how it is made, in units.
struct Composed {
    const DrawnLetter* base = nullptr;
    const DrawnLetter* accent = nullptr;
    double width = 0;
    double size = 1, lift = 0; // of the base
    double accent_lift = 0;
    double base_shift() const { return accent != nullptr ? (width - base->width) / 2 : 0; }
};

// Accents are wider than an i: the letter gets room for them.
Composed with_accent(const AccentedLetter& letter) {
    const DrawnLetter *const base = drawn(letter.base), *const accent = find(kAccents, letter.accent);
    if (base == nullptr || accent == nullptr) return {&kUnknown, nullptr, kUnknown.width};
    Composed c{base, accent, std::max(base->width, accent->width)};
    const bool capital = letter.base <= U'Z';
    c.accent_lift = letter.accent == U',' || !capital ? 0 : kUnits - kSmallHeight;
    return c;
}

Composed compose(char32_t character) {
    if (const auto* like = find(kLikeLetters, character)) character = like->base;
    if (const auto* letter = drawn(character)) return {letter, nullptr, letter->width};
    if (const auto* letter = find(kAccentedLetters, character)) return with_accent(*letter);
    if (const auto* high = find(kHighLetters, character)) {
        const DrawnLetter* base = drawn(high->base);
        return {base, nullptr, base->width * kReduction, kReduction, kUnits * (1 - kReduction)};
    }
    return {&kUnknown, nullptr, kUnknown.width};
}

// Reads what a stroke is written with: numbers of at most a few digits, whatever the locale.
class StrokeReader {
  public:
    explicit StrokeReader(const char* text) : at_(text) {}
    char step() { return *at_ != '\0' ? *at_++ : '\0'; }
    double number() {
        while (*at_ == ' ') ++at_;
        const bool negative = *at_ == '-';
        if (negative) ++at_;
        double value = 0;
        for (; is_digit(); ++at_) value = value * 10 + (*at_ - '0');
        if (*at_ == '.') value += fraction();
        return negative ? -value : value;
    }
    Vertex point() {
        const double x = number();
        return {x, number()};
    }

  private:
    bool is_digit() const { return *at_ >= '0' && *at_ <= '9'; }
    double fraction() {
        double value = 0, place = 1;
        for (++at_; is_digit(); ++at_) value += (*at_ - '0') * (place /= 10);
        return value;
    }

    const char* at_;
};

struct Pen {
    Affine place;
    double tolerance; // in units
    PathSink& sink;

    void arc(StrokeReader& reader, bool lifted) const {
        const Vertex centre = reader.point(), radii = reader.point(), degrees = reader.point();
        constexpr double radian = std::numbers::pi / 180;
        const double from = degrees.x * radian, turn = (degrees.y - degrees.x) * radian;
        const double step = 2 * std::acos(std::clamp(1 - tolerance / std::max(radii.x, radii.y), 0.0, 0.9999));
        const int steps = static_cast<int>(std::ceil(std::abs(turn) / step));
        for (int i = 0; i <= steps; ++i) {
            const double angle = from + turn * i / std::max(steps, 1);
            const Vertex p = place({centre.x + radii.x * std::cos(angle), centre.y + radii.y * std::sin(angle)});
            if (i == 0 && lifted)
                sink.move(p);
            else
                sink.line(p);
        }
    }

    void draw(const char* strokes) const {
        StrokeReader reader(strokes);
        while (const char step = reader.step()) {
            if (step == 'M') sink.move(place(reader.point()));
            if (step == 'L') sink.line(place(reader.point()));
            if (step == 'A' || step == 'F') arc(reader, step == 'F');
        }
    }
};

} // namespace

bool has_strokes(uint32_t character) {
    return compose(character).base != &kUnknown;
}

double stroke_advance(uint32_t character) {
    return (compose(character).width + kSpacing) / kUnits;
}

void walk_strokes(uint32_t character, const Affine& place, double tolerance, PathSink& sink) {
    const Composed letter = compose(character);
    const Affine units = place.scaled(1 / kUnits);
    const double unit = std::hypot(units.xx, units.yx) + std::hypot(units.xy, units.yy); // at least a unit's length
    const double loose = tolerance / std::max(unit, 1e-9);
    const auto at = [&units](double x, double y) {
        Affine moved = units;
        const Vertex origin = units({x, y});
        moved.dx = origin.x;
        moved.dy = origin.y;
        return moved;
    };
    Pen{at(letter.base_shift(), letter.lift).scaled(letter.size), loose / letter.size, sink}.draw(letter.base->strokes);
    if (letter.accent != nullptr)
        Pen{at(letter.width / 2, letter.accent_lift), loose, sink}.draw(letter.accent->strokes);
}

} // namespace grx
