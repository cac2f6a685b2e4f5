#include "texte.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <optional>

#include "police.h"

namespace atelier {

namespace {

constexpr char32_t kDegre = U'\u00B0', kDiametre = U'\u00D8', kPlusMoins = U'\u00B1';

// Western code page, 0x80 to 0x9F.
constexpr std::array<char32_t, 32> kHauts{U'€', U'?', U'‚', U'ƒ', U'„', U'…', U'†', U'‡', U'ˆ', U'‰', U'Š', U'‹', U'Œ',
    U'?', U'Ž', U'?', U'?', U'‘', U'’', U'“', U'”', U'•', U'–', U'—', U'˜', U'™', U'š', U'›', U'œ', U'?', U'ž', U'Ÿ'};

bool suite(unsigned char c) {
    return (c & 0xC0) == 0x80;
}

// Length of the UTF-8 sequence at the start, 0 when it is none.
std::size_t longueur_utf8(std::string_view s) {
    const auto c = static_cast<unsigned char>(s[0]);
    const std::size_t n = c < 0x80                ? 1
                          : c >= 0xC2 && c < 0xE0 ? 2
                          : c >= 0xE0 && c < 0xF0 ? 3
                          : c >= 0xF0 && c < 0xF5 ? 4
                                                  : 0;
    if (n > s.size()) return 0;
    for (std::size_t i = 1; i < n; ++i)
        if (!suite(static_cast<unsigned char>(s[i]))) return 0;
    return n;
}

std::optional<std::u32string> utf8(std::string_view s) {
    std::u32string r;
    while (!s.empty()) {
        const std::size_t n = longueur_utf8(s);
        if (n == 0) return std::nullopt;
        auto c = static_cast<char32_t>(static_cast<unsigned char>(s[0]));
        if (n > 1) c &= (0x7FU >> n);
        for (std::size_t i = 1; i < n; ++i) c = (c << 6) | (static_cast<unsigned char>(s[i]) & 0x3FU);
        r += c;
        s.remove_prefix(n);
    }
    return r;
}

std::u32string latin(std::string_view s) {
    std::u32string r;
    for (const char octet : s) {
        const auto c = static_cast<unsigned char>(octet);
        r += c >= 0x80 && c < 0xA0 ? kHauts[c - 0x80U] : static_cast<char32_t>(c);
    }
    return r;
}

int chiffre(char32_t c, int base) {
    const int v = c >= U'0' && c <= U'9'   ? static_cast<int>(c - U'0')
                  : c >= U'A' && c <= U'F' ? static_cast<int>(c - U'A') + 10
                  : c >= U'a' && c <= U'f' ? static_cast<int>(c - U'a') + 10
                                           : base;
    return v < base ? v : -1;
}

// nb figures at position i.
std::optional<char32_t> nombre(const std::u32string& s, std::size_t i, std::size_t nb, int base) {
    if (i + nb > s.size()) return std::nullopt;
    char32_t v = 0;
    for (std::size_t k = i; k < i + nb; ++k) {
        const int c = chiffre(s[k], base);
        if (c < 0) return std::nullopt;
        v = v * static_cast<char32_t>(base) + static_cast<char32_t>(c);
    }
    return v;
}

// %% codes: adds what stands at i to the text and returns how many characters were used, 0 when it is no code.
std::size_t code_pourcent(const std::u32string& s, std::size_t i, TexteSimple& t) {
    if (i + 2 >= s.size() || s[i] != U'%' || s[i + 1] != U'%') return 0;
    switch (s[i + 2]) {
    case U'd':
    case U'D': t.texte += kDegre; return 3;
    case U'c':
    case U'C': t.texte += kDiametre; return 3;
    case U'p':
    case U'P': t.texte += kPlusMoins; return 3;
    case U'%': t.texte += U'%'; return 3;
    case U'u':
    case U'U': t.souligne = true; return 3;
    case U'o':
    case U'O': t.surligne = true; return 3;
    case U'k':
    case U'K': return 3;
    default: break;
    }
    const auto octet = nombre(s, i + 2, 3, 10);
    if (!octet || *octet < 32 || *octet > 255) return 0;
    t.texte += *octet;
    return 5;
}

// \U+XXXX
std::size_t code_unicode(const std::u32string& s, std::size_t i, TexteSimple& t) {
    if (s.compare(i, 3, U"\\U+") != 0) return 0;
    const auto c = nombre(s, i + 3, 4, 16);
    if (!c) return 0;
    t.texte += *c;
    return 7;
}

// Reads the inline codes of paragraph texts.
class Paragraphe {
  public:
    explicit Paragraphe(std::u32string s) : s_(std::move(s)) {}

    std::vector<TexteSimple> lignes() {
        while (i_ < s_.size()) pas();
        return std::move(lignes_);
    }

  private:
    void pas() {
        if (const std::size_t n = code_pourcent(s_, i_, ligne()))
            i_ += n;
        else if (const std::size_t m = code_unicode(s_, i_, ligne()))
            i_ += m;
        else if (s_[i_] == U'\\' && i_ + 1 < s_.size())
            commande();
        else if (s_[i_] == U'{' || s_[i_] == U'}')
            ++i_;
        else
            ligne().texte += s_[i_++];
    }

    void commande() {
        const char32_t c = s_[i_ + 1];
        i_ += 2;
        switch (c) {
        case U'P':
        case U'X': lignes_.emplace_back(); break;
        case U'~': ligne().texte += U' '; break;
        case U'\\':
        case U'{':
        case U'}': ligne().texte += c; break;
        case U'L': ligne().souligne = true; break;
        case U'O': ligne().surligne = true; break;
        case U'l':
        case U'o':
        case U'K':
        case U'k': break;
        case U'S': empile(); break;
        default: saute(); break;
        }
    }

    // What \f, \H, \A, \C, \W, \T, \Q, \p ... set ends at a semicolon.
    void saute() {
        const std::size_t fin = s_.find(U';', i_);
        i_ = fin == std::u32string::npos ? s_.size() : fin + 1;
    }

    void empile() {
        const std::size_t fin = std::min(s_.find(U';', i_), s_.size());
        for (; i_ < fin; ++i_) ligne().texte += s_[i_] == U'^' || s_[i_] == U'#' ? U'/' : s_[i_];
        if (i_ < s_.size()) ++i_;
    }

    TexteSimple& ligne() { return lignes_.back(); }

    std::u32string s_;
    std::size_t i_ = 0;
    std::vector<TexteSimple> lignes_{1};
};

void ajoute_mot(std::vector<TexteSimple>& lignes, const TexteSimple& modele, std::u32string mot, double largeur) {
    std::u32string& ligne = lignes.back().texte;
    const std::u32string ensemble = ligne.empty() ? mot : ligne + U' ' + mot;
    if (ligne.empty() || police::largeur(ensemble) <= largeur) {
        ligne = ensemble;
        return;
    }
    lignes.push_back({std::move(mot), modele.souligne, modele.surligne});
}

} // namespace

std::u32string en_unicode(std::string_view octets) {
    if (auto r = utf8(octets)) return *std::move(r);
    return latin(octets);
}

std::string en_utf8(std::string_view octets) {
    return en_utf8(en_unicode(octets));
}

std::string en_utf8(std::u32string_view caracteres) {
    std::string r;
    for (const char32_t c : caracteres) {
        constexpr char32_t kUnOctet = 0x80, kDeuxOctets = 0x800, kTroisOctets = 0x10000;
        const auto suite = [&](int decale) { r += static_cast<char>(0x80 | (c >> decale & 0x3F)); };
        if (c < kUnOctet) {
            r += static_cast<char>(c);
        } else if (c < kDeuxOctets) {
            r += static_cast<char>(0xC0 | c >> 6);
            suite(0);
        } else if (c < kTroisOctets) {
            r += static_cast<char>(0xE0 | c >> 12);
            suite(6), suite(0);
        } else {
            r += static_cast<char>(0xF0 | c >> 18);
            suite(12), suite(6), suite(0);
        }
    }
    return r;
}

TexteSimple decode_texte(std::string_view octets) {
    const std::u32string s = en_unicode(octets);
    TexteSimple t;
    for (std::size_t i = 0; i < s.size();) {
        if (const std::size_t n = code_pourcent(s, i, t))
            i += n;
        else if (const std::size_t m = code_unicode(s, i, t))
            i += m;
        else
            t.texte += s[i++];
    }
    return t;
}

std::vector<TexteSimple> decode_paragraphe(std::string_view octets) {
    return Paragraphe(en_unicode(octets)).lignes();
}

std::vector<TexteSimple> coupe(const std::vector<TexteSimple>& lignes, double largeur) {
    std::vector<TexteSimple> r;
    for (const TexteSimple& ligne : lignes) {
        r.push_back({{}, ligne.souligne, ligne.surligne});
        for (std::size_t i = 0; i <= ligne.texte.size();) {
            const std::size_t fin = std::min(ligne.texte.find(U' ', i), ligne.texte.size());
            ajoute_mot(r, ligne, ligne.texte.substr(i, fin - i), largeur);
            i = fin + 1;
        }
    }
    return r;
}

Chemin traits(const TexteSimple& t) {
    Chemin chemin = police::ecrit(t.texte);
    const double longueur = police::largeur(t.texte);
    for (const auto& [voulu, y] : {std::pair{t.souligne, -2.5}, std::pair{t.surligne, 13.0}}) {
        if (!voulu || longueur <= 0) continue;
        chemin.aller({0, y});
        chemin.ligne({longueur, y});
    }
    return chemin;
}

} // namespace atelier
