// MNU_*.DAT line by line, with the same reading as grx_cree_menu_bar.
#pragma once

#include <array>
#include <istream>
#include <map>
#include <string>
#include <string_view>
#include <utility>

#include "host_t.h"
#include "pure/menu_line.h"
#include "pure/number.h"
#include "tools/verif/finding.h"
#include "tools/verif/lines.h"

namespace verif {

class MenuCheck {
  public:
    static Findings check(std::istream& file) {
        MenuCheck check;
        for (std::string line; std::getline(file, line);) check.take(line);
        check.end();
        return check.findings_;
    }

  private:
    static constexpr std::size_t longest_label = 79;
    static constexpr std::size_t longest_accelerator = 39;
    static constexpr int most_menus = 100;

    void say(Verdict verdict, std::string text) { findings_.push_back({line_, verdict, std::move(text)}); }

    void take(std::string& line) {
        ++line_;
        if (cut_line(line)) say(Verdict::skipped, what_is_cut());
        switch (grx::menu_line(line, grx::kMenuZone, in_zone_, depth_)) {
        case grx::MenuLine::comment: return say(Verdict::skipped, "comment");
        case grx::MenuLine::skip_word: return take_skip_word(line);
        case grx::MenuLine::zone: return take_zone();
        case grx::MenuLine::before_zone: return say(Verdict::skipped, "before the line " + in_quotes(grx::kMenuZone));
        case grx::MenuLine::opening: return take_brace("opens", ++depth_);
        case grx::MenuLine::closing: return take_brace("closes", depth_--);
        case grx::MenuLine::unbalanced: return say(Verdict::refused, "} closes nothing");
        case grx::MenuLine::content: return take_content(line);
        }
    }

    // An entry whose text holds one of the words is hardly meant to be left out.
    void take_skip_word(std::string_view line) {
        const bool entry = in_zone_ && grx::menu_content(line).fields.has_value();
        const std::string word = line.find("DEBUT") != line.npos ? "DEBUT" : "FIN";
        say(entry ? Verdict::refused : Verdict::skipped, "holds the word " + word + (entry ? ": no entry" : ""));
    }

    void take_zone() {
        in_zone_ = true;
        in_menu();
        say(Verdict::taken, "the menu bar begins");
    }

    void take_brace(const char* what, int level) {
        in_menu();
        say(Verdict::taken, what + (" level " + std::to_string(level)));
    }

    // Whatever stands directly in a menu ends the submenu before it.
    void in_menu() {
        if (depth_ == 2) sub_open_ = false;
    }

    void take_content(std::string_view line) {
        const auto content = grx::menu_content(line);
        if (!content.keyword) {
            const bool blank = grx::trimmed(line).empty();
            return say(blank ? Verdict::skipped : Verdict::refused, blank ? "blank line" : "neither POPUP nor ITEM");
        }
        const std::string word(content.keyword->word);
        if (!content.fields)
            return say(Verdict::refused,
                word + ": a field without its closing |, there must be " + std::to_string(content.keyword->fields));
        if (word == "POPUP") return take_menu(*content.fields);
        take_entry(*content.fields);
    }

    using Fields = std::array<std::string_view, grx::kMostMenuFields>;

    void take_menu(const Fields& fields) {
        in_menu();
        const bool sub = depth_ == 2;
        if (depth_ < 1 || depth_ > 2) return say(Verdict::refused, "POPUP" + nowhere());
        if (sub && !top_open_) return say(Verdict::refused, "POPUP in no menu");
        if (!sub) top_open_ = sub_open_ = false;
        if (menus_ == most_menus)
            return say(Verdict::refused, "POPUP: the bar has its " + std::to_string(most_menus) + " menus");
        ++menus_;
        (sub ? sub_open_ : top_open_) = true;
        say(Verdict::taken, (sub ? "submenu " : "menu ") + label_of(fields));
        note_mnemonic(fields, sub ? top_menu : bar);
        mnemonics_[sub ? sub_menu : top_menu].clear();
    }

    void take_entry(const Fields& fields) {
        in_menu();
        if (depth_ < 1 || depth_ > 3) return say(Verdict::refused, "ITEM" + nowhere());
        if (depth_ == 3 ? !sub_open_ : !top_open_) return say(Verdict::refused, "ITEM in no menu");
        const auto& [number, text, accelerator, function] = fields;
        if (number.empty() && shown(text).starts_with('-')) return say(Verdict::taken, "separator");
        say(Verdict::taken, "entry " + label_of(fields) + accelerator_of(accelerator) + ", function "
                                + std::to_string(grx::number_of(function)) + number_note(function));
        note_mnemonic(fields, depth_ == 3 ? sub_menu : top_menu);
        note_key(accelerator);
        note_function(function);
    }

    // --- what two entries have in common

    enum Container : std::size_t { bar, top_menu, sub_menu };

    // Tells when an earlier line of the same map had it, and remembers the first.
    template <class Map, class Key>
    void note_second(Map& lines, const Key& key, const std::string& what) {
        const auto [earlier, first] = lines.try_emplace(key, line_);
        if (!first) say(Verdict::noted, what + " that line " + std::to_string(earlier->second) + " has");
    }

    void note_mnemonic(const Fields& fields, Container container) {
        const auto& [number, text, accelerator, function] = fields;
        const auto mnemonic = number.empty() ? grx::menu_label(text).mnemonic : std::nullopt;
        if (mnemonic) note_second(mnemonics_[container], small(*mnemonic), std::string("the mnemonic ") + *mnemonic);
    }

    // The first entry that has a key answers it.
    void note_key(std::string_view text) {
        const auto key = key_of(text);
        if (!key.empty()) note_second(keys_, key, "the accelerator " + in_quotes(accelerator_text(text)));
    }

    void note_function(std::string_view text) {
        const auto number = grx::number_of(text);
        if (!text.empty()) note_second(functions_, number, "the function " + std::to_string(number));
    }

    static char small(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

    // One text for all ways of writing a key; none for what is no key.
    static std::string key_of(std::string_view text) {
        const auto parts = grx::split_accelerator(accelerator_text(text));
        const auto held = grx::key_modifiers(parts.modifiers);
        if (!held || parts.key.empty()) return "";
        std::string key(parts.key);
        if (key.size() == 1) key[0] = small(key[0]);
        return std::string(held->control ? "c" : "") + (held->shift ? "s" : "") + (held->alt ? "a" : "") + '+' + key;
    }

    std::string nowhere() const {
        return depth_ < 1 ? " outside the braces" : " in " + std::to_string(depth_) + " braces: too deep";
    }

    // The text without the mark of its mnemonic.
    static std::string shown(std::string_view text) {
        const auto label = grx::menu_label(text);
        return std::string(label.before) + std::string(label.behind);
    }

    static std::string label_of(const Fields& fields) {
        const auto& [number, text, accelerator, function] = fields;
        if (!number.empty()) return "of message " + std::to_string(grx::number_of(number)) + number_note(number);
        const auto label = shown(text);
        const auto mnemonic = grx::menu_label(text).mnemonic;
        auto result = in_quotes(label.substr(0, longest_label));
        if (label.size() > longest_label) result += ", cut at " + std::to_string(longest_label) + " characters";
        if (mnemonic) result += std::string(", mnemonic ") + *mnemonic;
        return result;
    }

    static std::string_view accelerator_text(std::string_view text) {
        return grx::first_accelerator(text.substr(0, longest_accelerator));
    }

    static std::string accelerator_of(std::string_view text) {
        const auto first = accelerator_text(text);
        if (first.empty()) return "";
        const bool known = grx::key_modifiers(grx::split_accelerator(first).modifiers).has_value();
        return ", accelerator " + in_quotes(first) + (first.size() < text.size() ? " of " + in_quotes(text) : "")
               + (known ? "" : " shown only: it has an unknown modifier");
    }

    void end() {
        if (!in_zone_) say(Verdict::refused, "no line " + in_quotes(grx::kMenuZone) + ": the bar stays empty");
        if (depth_ > 0) say(Verdict::refused, "{ without }: " + std::to_string(depth_));
    }

    int line_ = 0;
    bool in_zone_ = false;
    int depth_ = 0;
    int menus_ = 0;
    bool top_open_ = false;
    bool sub_open_ = false;
    std::array<std::map<char, int>, 3> mnemonics_; // by Container: the line of each
    std::map<std::string, int> keys_;
    std::map<int, int> functions_;
    Findings findings_;
};

} // namespace verif
