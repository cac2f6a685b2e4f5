// The queue of the additions' records, and the details of the one delivered last.
#include "events/added_records.h"

#include <X11/Intrinsic.h>

#include <cstddef>
#include <cstring>
#include <new>
#include <utility>

#include "grx_plus_erreurs.h"
#include "pure/sized_record.h"
#include "system/shut_down.h"
#include "system/trace.h"
#include "xt_ini_t.h"
#include "xt_loc_f.h"

namespace grx {

namespace {

// In one block with its texts, which follow it, each with its final zero.
struct Waiting {
    Waiting* next;
    UNSIGNED_INT bytes;
    GRX_EVENEMENT record;
    GRX_DETAIL_EVENEMENT detail;

    char* texts() { return reinterpret_cast<char*>(this + 1); }
};

constexpr INT kFirstAdded = 200; // the first type of the additions

Waiting* first = nullptr;
Waiting* delivered = nullptr; // null when the last record has no details

void free_record(Waiting* record) {
    if (record != nullptr) grx_free(reinterpret_cast<char*>(record), record->bytes);
}

void forget_records() {
    forget_delivered_detail();
    while (first != nullptr) free_record(std::exchange(first, first->next));
}

const char* text_or_empty(const char* text) {
    return text != nullptr ? text : "";
}

std::size_t bytes_of(std::span<const char* const> texts) {
    std::size_t bytes = 0;
    for (const char* text : texts) bytes += std::strlen(text_or_empty(text)) + 1;
    return bytes;
}

Waiting* make(const GRX_EVENEMENT& record, const Detail& detail) {
    const std::size_t bytes = sizeof(Waiting) + bytes_of(detail.texts);
    if (bytes > static_cast<std::size_t>(INT32_MAX)) return nullptr;
    char* const memory = grx_malloc(static_cast<UNSIGNED_INT>(bytes));
    if (memory == nullptr) return nullptr;
    auto* const made = new (memory) Waiting{nullptr, static_cast<UNSIGNED_INT>(bytes), record,
        {sizeof(GRX_DETAIL_EVENEMENT), record.type_evenement, detail.x, detail.y, detail.real,
            static_cast<INT>(detail.texts.size())}};
    char* at = made->texts();
    for (const char* text : detail.texts) at = stpcpy(at, text_or_empty(text)) + 1;
    return made;
}

void append(Waiting* record) {
    Waiting** end = &first;
    while (*end != nullptr) end = &(*end)->next;
    *end = record;
}

} // namespace

bool post_added(const GRX_EVENEMENT& record, const Detail& detail) {
    Waiting* const made = make(record, detail);
    if (made == nullptr) return false;
    at_shut_down(forget_records);
    if (first == nullptr) wake_loop();
    append(made);
    return true;
}

bool added_waiting() {
    return first != nullptr;
}

void wake_loop() {
    if (x11_disp == nullptr) return;
    XEvent nobodys{};
    nobodys.xclient.type = ClientMessage;
    nobodys.xclient.display = x11_disp;
    nobodys.xclient.format = 32;
    XPutBackEvent(x11_disp, &nobodys);
}

bool take_added(GRX_EVENEMENT& record) {
    forget_delivered_detail();
    if (first == nullptr) return false;
    delivered = std::exchange(first, first->next);
    record = delivered->record;
    if (record.type_evenement < kFirstAdded) forget_delivered_detail(); // the contract's records have none
    return true;
}

void forget_delivered_detail() {
    free_record(std::exchange(delivered, nullptr));
}

void drop_added(bool (*drop)(const GRX_EVENEMENT& record, const void* what), const void* what) {
    for (Waiting** at = &first; *at != nullptr;) {
        if (drop((*at)->record, what))
            free_record(std::exchange(*at, (*at)->next));
        else
            at = &(*at)->next;
    }
}

} // namespace grx

extern "C" {

INT grx_init_detail_evenement(GRX_DETAIL_EVENEMENT* detail) {
    if (detail == nullptr) return grx::refused(GRX_ECHEC_PARAMETRE, "detail");
    *detail = GRX_DETAIL_EVENEMENT{};
    detail->taille = static_cast<INT>(sizeof *detail);
    return 1;
}

INT grx_recup_detail_evenement(GRX_DETAIL_EVENEMENT* detail) {
    const GRX_DETAIL_EVENEMENT none{};
    if (!grx::write_sized(detail, grx::delivered != nullptr ? grx::delivered->detail : none))
        return grx::refused(GRX_ECHEC_PARAMETRE, "detail");
    return grx::delivered != nullptr ? 1 : GRX_ECHEC_ABSENT;
}

const char* grx_recup_texte_detail_evenement(INT rang) {
    if (grx::delivered == nullptr || rang < 0 || rang >= grx::delivered->detail.nb_textes) return nullptr;
    const char* text = grx::delivered->texts();
    while (rang-- > 0) text += std::strlen(text) + 1;
    return text;
}
}
