// What this process offers to other programs: kept here, converted when one asks. The toolkit answers requests in
// several parts and for several targets at once.
#include "events/selection_offer.h"

#include <X11/Xatom.h>

#include <array>
#include <cstring>
#include <utility>

#include "pure/utf8.h"
#include "system/never_destroyed.h"
#include "system/shut_down.h"
#include "display/pixmaps.h"
#include "display/quiet_errors.h"
#include "toolkit/hidden_shell.h"
#include "events/added_records.h"
#include "xt_ini_t.h"

namespace grx {

namespace {

struct Offer {
    Content content = Content::Nothing;
    Block<char> bytes;
    bool latin1 = false; // it is a text that Latin-1 holds
    Time since = 0;
};

NeverDestroyed<std::array<Offer, kSelections>> lasting_offers;
auto& offers = lasting_offers.value;
bool telling_losses = false;
bool offering = false; // the toolkit tells of the loss of what is replaced

// -- targets

enum class Form : char { Utf8, Latin1, Either };

struct TextTarget {
    const char* target;
    const char* type; // null: that of the form
    Form form;
    bool complete_only; // only for texts that Latin-1 holds
};

// A text of Latin-1 without control characters is its own compound text.
constexpr std::array<TextTarget, 6> kTextTargets{{
    {"UTF8_STRING", "UTF8_STRING", Form::Utf8, false},
    {"text/plain;charset=utf-8", "text/plain;charset=utf-8", Form::Utf8, false},
    {"STRING", "STRING", Form::Latin1, false},
    {"text/plain", "text/plain", Form::Latin1, false},
    {"TEXT", nullptr, Form::Either, false},
    {"COMPOUND_TEXT", "COMPOUND_TEXT", Form::Latin1, true},
}};
constexpr const char* kPngTarget = "image/png";

Atom atom(const char* name) {
    return XInternAtom(x11_disp, name, False);
}

// -- answers: memory of the toolkit, which frees it

struct Answer {
    Atom* type;
    XtPointer* value;
    unsigned long* length;
    int* format;

    char* room(Atom of_type, int of_format, std::size_t elements, std::size_t bytes) const {
        *type = of_type;
        *format = of_format;
        *length = elements;
        *value = XtMalloc(static_cast<Cardinal>(bytes + 1)); // none is null
        return static_cast<char*>(*value);
    }
};

std::string_view content_of(const Offer& offer) {
    return {offer.bytes.data(), offer.bytes.size() - 1};
}

void give_bytes(const Answer& answer, Atom type, std::string_view bytes) {
    bytes.copy(answer.room(type, 8, bytes.size(), bytes.size()), bytes.size());
}

void give_targets(const Answer& answer, const Offer& offer) {
    std::array<Atom, kTextTargets.size() + 3> list{atom("TARGETS"), atom("MULTIPLE"), atom("TIMESTAMP")};
    std::size_t count = 3;
    if (offer.content == Content::Png) list[count++] = atom(kPngTarget);
    for (const TextTarget& row : kTextTargets) {
        if (offer.content == Content::Text && (offer.latin1 || !row.complete_only)) list[count++] = atom(row.target);
    }
    std::memcpy(answer.room(XA_ATOM, 32, count, count * sizeof(Atom)), list.data(), count * sizeof(Atom));
}

void give_time(const Answer& answer, const Offer& offer) {
    std::memcpy(answer.room(XA_INTEGER, 32, 1, sizeof offer.since), &offer.since, sizeof offer.since);
}

void give_latin1(const Answer& answer, Atom type, std::string_view text) {
    const std::size_t size = characters_of(text);
    write_latin1(text, answer.room(type, 8, size, size));
}

bool give_text(const Answer& answer, const Offer& offer, const TextTarget& row) {
    if (row.complete_only && !offer.latin1) return false;
    const bool latin1 = row.form == Form::Latin1 || (row.form == Form::Either && offer.latin1);
    const Atom type = atom(row.type != nullptr ? row.type : latin1 ? "STRING" : "UTF8_STRING");
    if (latin1)
        give_latin1(answer, type, content_of(offer));
    else
        give_bytes(answer, type, content_of(offer));
    return true;
}

bool give_content(const Answer& answer, const Offer& offer, Atom target) {
    if (offer.content == Content::Png && target == atom(kPngTarget)) {
        give_bytes(answer, target, content_of(offer));
        return true;
    }
    if (offer.content != Content::Text) return false;
    for (const TextTarget& row : kTextTargets) {
        if (target == atom(row.target)) return give_text(answer, offer, row);
    }
    return false;
}

// -- what the toolkit calls

Offer* offer_of(Atom selection) {
    for (INT i = 0; i < kSelections; ++i) {
        if (selection_atom(i) == selection) return &offers[static_cast<std::size_t>(i)];
    }
    return nullptr;
}

Boolean on_request(
    Widget, Atom* selection, Atom* target, Atom* type, XtPointer* value, unsigned long* length, int* format) {
    const Offer* const offer = offer_of(*selection);
    if (offer == nullptr || offer->content == Content::Nothing) return False;
    const Answer answer{type, value, length, format};
    if (*target == atom("TARGETS")) {
        give_targets(answer, *offer);
        return True;
    }
    if (*target == atom("TIMESTAMP")) {
        give_time(answer, *offer);
        return True;
    }
    return give_content(answer, *offer, *target) ? True : False;
}

void post_loss(INT selection) {
    GRX_EVENEMENT record{};
    record.exec_fonction.type_evenement = GRX_EVT_PRESSE_PAPIERS;
    record.exec_fonction.nofen = record.exec_fonction.nobou = record.exec_fonction.no_fo = GRX_AUCUN;
    record.exec_fonction.valeur = selection;
    post_added(record);
}

void on_loss(Widget, Atom* selection) {
    Offer* const offer = offer_of(*selection);
    if (offering || offer == nullptr || offer->content == Content::Nothing) return;
    *offer = Offer{};
    if (telling_losses) post_loss(static_cast<INT>(offer - offers.data()));
}

bool is_loss(const GRX_EVENEMENT& record, const void*) {
    return record.type_evenement == GRX_EVT_PRESSE_PAPIERS;
}

void forget_offers() {
    for (INT i = 0; i < kSelections; ++i) withdraw(i);
    telling_losses = false;
}

} // namespace

Atom selection_atom(INT selection) {
    return selection == 0 ? atom("CLIPBOARD") : XA_PRIMARY;
}

bool offer(INT selection, Content content, Block<char>&& bytes) {
    at_shut_down(forget_offers);
    const Time now = server_time();
    offering = true;
    const bool own =
        XtOwnSelection(hidden_shell(), selection_atom(selection), now, on_request, on_loss, nullptr) != False;
    offering = false;
    if (!own) return false;
    Offer& made = offers[static_cast<std::size_t>(selection)];
    made = {content, std::move(bytes), false, now};
    made.latin1 = content == Content::Text && fits_latin1(content_of(made));
    return true;
}

void withdraw(INT selection) {
    Offer& own = offers[static_cast<std::size_t>(selection)];
    if (own.content == Content::Nothing) return;
    own = Offer{};
    if (x11_disp == nullptr) return;
    XtDisownSelection(hidden_shell(), selection_atom(selection), server_time());
    XFlush(x11_disp);
}

Content offered(INT selection) {
    const Content content = offers[static_cast<std::size_t>(selection)].content;
    if (content == Content::Nothing) return content;
    const bool own = XGetSelectionOwner(x11_disp, selection_atom(selection)) == window_of(hidden_shell());
    return own ? content : Content::Nothing;
}

std::string_view offered_bytes(INT selection) {
    return content_of(offers[static_cast<std::size_t>(selection)]);
}

void tell_losses(bool tell) {
    at_shut_down(forget_offers);
    telling_losses = tell;
    if (!tell) drop_added(is_loss, nullptr);
}

} // namespace grx
