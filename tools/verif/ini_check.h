// INI_SYST.DAT line by line, with the same reading as grx_initialise_globales.
#pragma once

#include <algorithm>
#include <istream>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "pure/font_name.h"
#include "pure/ini_line.h"
#include "pure/number.h"
#include "pure/text.h"
#include "tools/verif/finding.h"
#include "tools/verif/lines.h"

namespace verif {

class IniCheck {
  public:
    static Findings check(std::istream& file) {
        IniCheck check;
        for (std::string line; std::getline(file, line);) check.take(line);
        return check.findings_;
    }

  private:
    static constexpr std::size_t longest_font = 39;

    static std::string trimmed(std::string_view text) { return std::string(grx::trimmed(text)); }

    void say(Verdict verdict, std::string text) { findings_.push_back({line_, verdict, std::move(text)}); }

    void take(std::string line) {
        ++line_;
        if (cut_line(line)) say(Verdict::skipped, what_is_cut());
        if (take_font(line) || take_numbers(line)) return;
        if (trimmed(line).empty()) return say(Verdict::skipped, "blank line");
        say(Verdict::skipped, line.front() == '#' ? "comment" : "no known key");
    }

    bool take_font(const std::string& line) {
        const auto value = grx::ini_value(line, grx::kIniFontKey);
        if (!value) return false;
        const auto font = trimmed(*value);
        const bool cut = font.size() > longest_font && !grx::names_outline_font(font);
        auto text = std::string(grx::kIniFontKey) + " \"" + (cut ? font.substr(0, longest_font) : font) + '"';
        if (font.empty()) text += ", no font name";
        say(Verdict::taken, text + replaced(grx::kIniFontKey));
        if (cut) say(Verdict::refused, what_is_cut_of(font));
        return true;
    }

    // What is left of a name is hardly a font's: the toolkit would take another one.
    static std::string what_is_cut_of(std::string_view font) {
        return std::string(grx::kIniFontKey) + ": the name has " + std::to_string(font.size()) + " characters, only "
               + std::to_string(longest_font) + " are kept: shorten it with *";
    }

    // A line goes on to the next key while its value is refused. False when it holds no key at all.
    bool take_numbers(const std::string& line) {
        const auto before = findings_.size();
        const char* refused_value = nullptr; // a key inside a refused longer one has the same value: told once
        for (const auto& key : grx::kIniNumberKeys) {
            const auto value = grx::ini_value(line, key.name);
            if (!value) continue;
            const auto text = trimmed(*value);
            const auto number = grx::number_of(text);
            const auto reason = refusal(key, text, number);
            if (!reason) {
                say(Verdict::taken,
                    std::string(key.name) + ' ' + std::to_string(number) + number_note(text) + replaced(key.name));
                if (key.rule == grx::IniRule::application_colour && number != 0) colour_line_ = line_;
                return true;
            }
            if (value->data() != refused_value) say(Verdict::refused, std::string(key.name) + ' ' + *reason);
            refused_value = value->data();
        }
        return findings_.size() > before;
    }

    std::optional<std::string> refusal(const grx::IniKey& key, const std::string& text, int number) const {
        if (text.empty()) return "has no value";
        const auto shown = in_quotes(text) + ": ";
        const bool has_digit_in_front = text.find_first_of("0123456789") <= text.find_first_not_of("+-");
        if (number == 0 && !has_digit_in_front) return shown + "not a number";
        if (!grx::ini_accepts(key.rule, number)) return shown + demand(key.rule);
        if (key.rule == grx::IniRule::application_colour && colour_line_ > 0)
            return shown + "the first one, of line " + std::to_string(colour_line_) + ", stays";
        return std::nullopt;
    }

    static std::string demand(grx::IniRule rule) {
        switch (rule) {
        case grx::IniRule::positive: return "must be greater than 0";
        case grx::IniRule::drawing_count: return "must be one of" + drawing_counts();
        case grx::IniRule::rendering_count: return "must be at least " + std::to_string(grx::kIniRenderingMinimum);
        case grx::IniRule::application_colour: return "must be 0 or more";
        }
        return "";
    }

    static std::string drawing_counts() {
        std::string list;
        for (const auto count : grx::kIniDrawingCounts) list += (list.empty() ? " " : ", ") + std::to_string(count);
        return list;
    }

    // Tells when an earlier line had set the same key.
    std::string replaced(const std::string& key) {
        const auto earlier = std::exchange(line_of_key_[key], line_);
        return earlier == 0 ? "" : ", instead of line " + std::to_string(earlier);
    }

    int line_ = 0;
    int colour_line_ = 0;
    std::map<std::string, int> line_of_key_;
    Findings findings_;
};

} // namespace verif
