// The clipboard and the primary selection for the application: texts put and got, what is offered, what was lost.
#include "session/clipboard.h"

#include <X11/Xatom.h>
#include <X11/Xutil.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <utility>

#include "pure/out.h"
#include "pure/text.h"
#include "pure/utf8.h"
#include "system/never_destroyed.h"
#include "system/shut_down.h"
#include "display/quiet_errors.h"
#include "events/selection_wait.h"
#include "grx_plus_erreurs.h"
#include "grx_plus_presse_papiers.h"
#include "system/trace.h"
#include "xt_ini_t.h"

namespace {

using grx::Block;

grx::NeverDestroyed<Block<char>> given;
bool waiting = false; // one request is being waited for

// In the order in which they are asked for. What comes is told by the type of the answer.
constexpr const char* kUnnamedEncoding = "text/plain";
constexpr std::array<const char*, 6> kTextTargets{
    "UTF8_STRING", "text/plain;charset=utf-8", "STRING", "TEXT", "COMPOUND_TEXT", kUnnamedEncoding};

void forget_given() {
    given.value.reset();
}

bool is_encoding(INT encoding) {
    return encoding == GRX_CODAGE_LATIN1 || encoding == GRX_CODAGE_UTF8;
}

bool is_owned(INT selection) {
    return XGetSelectionOwner(x11_disp, grx::selection_atom(selection)) != None;
}

INT code_of(grx::SelectionFetch::End end) {
    switch (end) {
    case grx::SelectionFetch::End::Complete: return 1;
    case grx::SelectionFetch::End::Late: return GRX_ECHEC_DELAI;
    case grx::SelectionFetch::End::NoRoom: return GRX_ECHEC_MEMOIRE;
    default: return GRX_ECHEC_ABSENT;
    }
}

// -- texts

Block<char> copy_of(std::string_view bytes) {
    auto copy = Block<char>::raw(bytes.size() + 1);
    if (!copy) return copy;
    bytes.copy(copy.data(), bytes.size());
    copy[bytes.size()] = '\0';
    return copy;
}

Block<char> utf8_of(std::string_view latin1) {
    Block<char> text(grx::utf8_size(latin1) + 1);
    if (text) grx::write_utf8(latin1, text.data());
    return text;
}

Block<char> latin1_of(std::string_view utf8) {
    Block<char> text(grx::characters_of(utf8) + 1);
    if (text) grx::write_latin1(utf8, text.data());
    return text;
}

INT give(Block<char>&& made, Block<char>& text) {
    if (!made) return GRX_ECHEC_MEMOIRE;
    text = std::move(made);
    return 1;
}

INT give_utf8(std::string_view utf8, INT encoding, Block<char>& text) {
    if (!grx::is_utf8(utf8)) return GRX_ECHEC_FORMAT;
    return give(encoding == GRX_CODAGE_UTF8 ? copy_of(utf8) : latin1_of(utf8), text);
}

INT give_latin1(std::string_view latin1, INT encoding, Block<char>& text) {
    return give(encoding == GRX_CODAGE_UTF8 ? utf8_of(latin1) : copy_of(latin1), text);
}

INT give_compound(std::string_view bytes, INT encoding, Block<char>& text) {
    XTextProperty property{reinterpret_cast<unsigned char*>(const_cast<char*>(bytes.data())),
        XInternAtom(x11_disp, "COMPOUND_TEXT", False), 8, bytes.size()};
    char** list = nullptr;
    int count = 0;
    const bool read = Xutf8TextPropertyToTextList(x11_disp, &property, &list, &count) >= 0 && list != nullptr;
    const INT result = read ? give_utf8(count > 0 ? list[0] : "", encoding, text) : GRX_ECHEC_FORMAT;
    if (list != nullptr) XFreeStringList(list);
    return result;
}

std::string_view without_zeros_behind(std::string_view bytes) {
    while (!bytes.empty() && bytes.back() == '\0') bytes.remove_suffix(1);
    return bytes;
}

INT give_fetched(const grx::SelectionFetch& fetch, INT encoding, Block<char>& text) {
    constexpr int bytes_format = 8;
    const std::string_view bytes = without_zeros_behind(fetch.bytes());
    if (fetch.format() != bytes_format || bytes.find('\0') != std::string_view::npos) return GRX_ECHEC_FORMAT;
    const bool unnamed = fetch.type() == XInternAtom(x11_disp, kUnnamedEncoding, False);
    if (fetch.type() == XA_STRING || (unnamed && !grx::is_utf8(bytes))) return give_latin1(bytes, encoding, text);
    const bool compound = fetch.type() == XInternAtom(x11_disp, "COMPOUND_TEXT", False);
    return compound ? give_compound(bytes, encoding, text) : give_utf8(bytes, encoding, text);
}

// Goes on to the next target when the owner has no such text, or sends what is none.
INT ask_for_text(INT selection, INT encoding, Block<char>& text) {
    INT result = GRX_ECHEC_ABSENT;
    for (const char* const target : kTextTargets) {
        grx::SelectionFetch fetch;
        const INT got = grx::fetch_target(selection, target, fetch);
        const INT now = got == 1 ? give_fetched(fetch, encoding, text) : got;
        if (now != GRX_ECHEC_ABSENT && now != GRX_ECHEC_FORMAT) return now;
        result = std::max(result, now); // a bad text rather than none
    }
    return result;
}

// -- what is offered

INT own_content(grx::Content content) {
    return GRX_CONTENU_PROPRE + (content == grx::Content::Text ? GRX_CONTENU_TEXTE : GRX_CONTENU_PNG);
}

INT content_of_target(Atom target) {
    if (target == XInternAtom(x11_disp, "image/png", False)) return GRX_CONTENU_PNG;
    const bool text = std::any_of(kTextTargets.begin(), kTextTargets.end(),
        [target](const char* name) { return target == XInternAtom(x11_disp, name, False); });
    return text ? GRX_CONTENU_TEXTE : 0;
}

INT content_of_targets(const grx::SelectionFetch& fetch) {
    constexpr int atoms_format = 32;
    INT content = 0;
    if (fetch.format() != atoms_format) return content;
    std::string_view rest = fetch.bytes();
    for (Atom target = None; rest.size() >= sizeof target; rest.remove_prefix(sizeof target)) {
        std::memcpy(&target, rest.data(), sizeof target);
        content |= content_of_target(target);
    }
    return content;
}

} // namespace

namespace grx {

INT selection_fault(INT selection) {
    if (selection < 0 || selection >= kSelections) return grx::refused(GRX_ECHEC_PARAMETRE, "selection", selection);
    return x11_disp != nullptr ? 1 : grx::refused(GRX_ECHEC_AFFICHAGE, "selection", selection);
}

INT fetch_target(INT selection, const char* target, SelectionFetch& fetch) {
    if (waiting) return grx::refused(GRX_ECHEC_OCCUPE, "selection", selection);
    if (!is_owned(selection)) return GRX_ECHEC_ABSENT;
    waiting = true;
    fetch.ask(selection_atom(selection), XInternAtom(x11_disp, target, False), server_time());
    wait_for(fetch);
    waiting = false;
    return code_of(fetch.end());
}

const char* keep_given(Block<char>&& bytes) {
    at_shut_down(forget_given);
    given.value = std::move(bytes);
    return given.value.data();
}

INT fetch_text(INT selection, INT encoding, Block<char>& text) {
    switch (offered(selection)) {
    case Content::Text: return give_utf8(offered_bytes(selection), encoding, text);
    case Content::Png: return GRX_ECHEC_ABSENT;
    case Content::Nothing: break;
    }
    return ask_for_text(selection, encoding, text);
}

INT offer_block(INT selection, Content content, Block<char>&& bytes) {
    if (!bytes) return GRX_ECHEC_MEMOIRE;
    return offer(selection, content, std::move(bytes)) ? 1 : grx::refused(GRX_ECHEC_OCCUPE, "selection", selection);
}

INT offer_text(INT selection, INT encoding, std::string_view text) {
    const bool utf8 = encoding == GRX_CODAGE_UTF8;
    if (text.find('\0') != std::string_view::npos || (utf8 && !is_utf8(text)))
        return grx::refused(GRX_ECHEC_FORMAT, "texte");
    return offer_block(selection, Content::Text, utf8 ? copy_of(text) : utf8_of(text));
}

} // namespace grx

extern "C" {

INT grx_affecte_texte_presse_papiers(INT selection, INT codage, const char* texte, INT longueur) {
    if (const INT fault = grx::selection_fault(selection); fault != 1) return fault;
    if (!is_encoding(codage)) return grx::refused(GRX_ECHEC_PARAMETRE, "codage", codage);
    if (longueur < -1) return grx::refused(GRX_ECHEC_PARAMETRE, "longueur", longueur);
    const bool counted = texte != nullptr && longueur >= 0;
    return grx::offer_text(
        selection, codage, counted ? std::string_view(texte, static_cast<std::size_t>(longueur)) : grx::view(texte));
}

INT grx_recup_texte_presse_papiers(INT selection, INT codage, const char** texte, INT* longueur) {
    if (const INT fault = grx::selection_fault(selection); fault != 1) return fault;
    if (!is_encoding(codage)) return grx::refused(GRX_ECHEC_PARAMETRE, "codage", codage);
    if (texte == nullptr) return grx::refused(GRX_ECHEC_PARAMETRE, "texte");
    Block<char> text;
    const INT result = grx::fetch_text(selection, codage, text);
    if (result != 1) return result;
    grx::give(longueur, static_cast<INT>(text.size() - 1));
    *texte = grx::keep_given(std::move(text));
    return 1;
}

INT grx_libere_presse_papiers(void) {
    forget_given();
    return 1;
}

INT grx_recup_contenu_presse_papiers(INT selection) {
    if (const INT fault = grx::selection_fault(selection); fault != 1) return fault;
    const grx::Content own = grx::offered(selection);
    if (own != grx::Content::Nothing) return own_content(own);
    grx::SelectionFetch fetch;
    const INT result = grx::fetch_target(selection, "TARGETS", fetch);
    if (result == 1) return content_of_targets(fetch);
    return result == GRX_ECHEC_ABSENT ? 0 : result;
}

INT grx_vide_presse_papiers(INT selection) {
    if (const INT fault = grx::selection_fault(selection); fault != 1) return fault;
    grx::withdraw(selection);
    return 1;
}

INT grx_affecte_suivi_presse_papiers(INT actif) {
    if (x11_disp == nullptr) return grx::refused(GRX_ECHEC_AFFICHAGE, "actif", actif);
    grx::tell_losses(actif != 0);
    return 1;
}
}
