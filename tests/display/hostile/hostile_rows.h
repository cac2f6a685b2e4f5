// The table of every exported function: how it is called with hostile arguments, and what it may give.
#pragma once

#include "tests/display/hostile/hostile_arguments.h"

#include <array>
#include <climits>
#include <cstddef>
#include <initializer_list>
#include <optional>
#include <span>
#include <type_traits>
#include <utility>

namespace grxtest::hostile {

using Answer = std::optional<long long>; // nothing when the function gives nothing, or no number

inline constexpr long long anything = LLONG_MIN;     // every answer is right: it depends on what was set before
inline constexpr long long a_number = LLONG_MIN + 1; // 0 or more: a count, a length, the number of a thing

// What a function may give; 0 unless said otherwise.
class Answers {
  public:
    constexpr Answers(std::initializer_list<long long> list = {}) : count_(std::max<std::size_t>(list.size(), 1)) {
        std::ranges::copy(list, values_.begin());
    }
    constexpr bool permit(long long answer) const {
        return std::any_of(values_.begin(), values_.begin() + count_, [=](long long value) {
            return value == answer || value == anything || (value == a_number && answer >= 0);
        });
    }

  private:
    std::array<long long, 8> values_{};
    std::size_t count_;
};

using Call = Answer (*)(Bench&, unsigned);

struct Row {
    const char* name;
    Call call;
    Answers answers;
    unsigned times;
};

template <class Result, class Function>
Answer answer_of(Function function) {
    if constexpr (std::is_integral_v<Result>) {
        return static_cast<long long>(function());
    } else {
        function();
        return std::nullopt;
    }
}

// A function called with any mixture of values.
template <auto function, class Type = std::remove_pointer_t<decltype(function)>>
struct Mixed;

template <auto function, class Result, class... Parameters>
struct Mixed<function, Result(Parameters...)> {
    static constexpr unsigned times = sizeof...(Parameters) == 0 ? 2 : rounds;

    template <std::size_t... Place>
    static Answer call_with(Bench& bench, unsigned n, std::index_sequence<Place...>) {
        return answer_of<Result>([&] {
            return function(Argument<Parameters>::make(
                bench, Place, n * (2 * static_cast<unsigned>(Place) + 1) + 7 * static_cast<unsigned>(Place))...);
        });
    }

    static Answer call(Bench& bench, unsigned n) {
        return call_with(bench, n, std::index_sequence_for<Parameters...>());
    }
};

// Any arguments, none of which is read.
template <auto function, class Result>
struct Mixed<function, Result(...)> {
    static constexpr unsigned times = 2;

    static Answer call(Bench& bench, unsigned n) {
        return answer_of<Result>([&] {
            return n % 2 ? function() : function(INT_MIN, static_cast<void*>(nullptr), bench.texts.data(), 1e308);
        });
    }
};

// The function by itself, with the answers that it may give.
#define ROW(name, ...)                                                                                                 \
    Row {                                                                                                              \
#name, Mixed < name> ::call, Answers{__VA_ARGS__ }, Mixed < name> ::times                                      \
    }

// By a call of the test's own: arguments that must fit each other, or that would block.
#define NAMED(name) #name
constexpr Row own(const char* name, unsigned times, Call call, Answers answers = {}) {
    return {name, call, answers, times};
}

std::span<const Row> plain_rows(); // any mixture of values may be given to them
std::span<const Row> own_rows();   // their arguments must fit each other
std::span<const Row> early_rows(); // wait for the user, or are called once: only without a display
std::span<const Row> last_rows();  // take the tables away from under everything: last, and put back

// The functions of the additions.
std::span<const Row> addition_rows();
std::span<const Row> share_rows(); // lists, the clipboard, drops
std::span<const Row> text_rows();  // texts in drawings
std::span<const Row> font_rows();  // the font of the interface
std::span<const Row> image_rows(); // pictures
std::span<const Row> layer_rows(); // layers, scrolling, limits
std::span<const Row> receiver_rows();
std::span<const Row> paper_rows();  // of the library of the paper
std::span<const Row> ending_rows(); // end the library's work: last of all

// All of the library but the last.
inline auto rows_of_additions() {
    return std::array{
        addition_rows(), share_rows(), text_rows(), font_rows(), image_rows(), layer_rows(), receiver_rows()};
}

} // namespace grxtest::hostile
