// The functions of the paper that applications call, and the receiver that takes what they draw meanwhile.
#include <array>
#include <cstring>
#include <new>
#include <string_view>

#include "grx_plus_erreurs.h"
#include "grx_plus_papier.h"
#include "grx_plus_recepteur.h"
#include "papier/held_signal.h"
#include "papier/job.h"
#include "papier/utf8.h"
#include "xt_gfx_f.h"
#include "xt_loc_f.h"

namespace {

using papier::Job;

Job* job = nullptr; // null while no paper has been begun
std::array<char, 512> last_text{};

Job* new_job() {
    char* const room = grx_malloc(sizeof(Job));
    return room != nullptr ? new (room) Job : nullptr;
}

void free_job(Job*& which) {
    const papier::HeldSignal signal; // cairo writes what it has left
    Job* const gone = which;
    which = nullptr;
    if (gone == nullptr) return;
    gone->~Job();
    grx_free(reinterpret_cast<char*>(gone), sizeof(Job));
}

// --- the receiver -----------------------------------------------------------------------------------------------------

papier::Drafter& drafter() {
    return job->drafter();
}

template <auto draw, class Record>
void take(void*, INT target, const Record* record) {
    if (drafter().wants(target, record->nofen)) (drafter().*draw)(*record);
}

void take_text(void*, INT target, const GRX_TEXTE* text) {
    if (drafter().wants(target, text->nofen)) drafter().text(target, *text);
}

void take_picture(void*, INT target, const GRX_IMAGE_RECUE* picture) {
    if (drafter().wants(target, picture->numero)) drafter().picture(*picture);
}

void end_with_library(void*) {
    free_job(job);
}

GRX_RECEPTEUR receiver() {
    using papier::Drafter;
    GRX_RECEPTEUR r;
    grx_init_recepteur(&r);
    r.donnee = job;
    r.point = take<&Drafter::point, GRX_POINT>;
    r.segment = take<&Drafter::segment, GRX_SEGMENT>;
    r.rectangle = take<&Drafter::rectangle, GRX_RECTANGLE>;
    r.rectangle_plein = take<&Drafter::filled_rectangle, GRX_RECTANGLE>;
    r.arc = take<&Drafter::arc, GRX_ARC>;
    r.arc_plein = take<&Drafter::filled_arc, GRX_ARC>;
    r.polyline = take<&Drafter::polyline, GRX_POLY>;
    r.polygone = take<&Drafter::polygon, GRX_POLY>;
    r.texte = take_text;
    r.texte_dessin = take<&Drafter::drawing_text, GRX_TEXTE>;
    r.image = take_picture;
    r.fin = end_with_library;
    return r;
}

// --- beginning --------------------------------------------------------------------------------------------------------

INT begin_job(const GRX_PAPIER& paper, const papier::Layout& layout) {
    Job* begun = new_job();
    if (begun == nullptr) return GRX_ECHEC_MEMOIRE;
    INT code = begun->begin(paper, layout, last_text);
    if (code == 1) {
        job = begun;
        const GRX_RECEPTEUR r = receiver();
        code = grx_affecte_recepteur(&r);
    }
    if (code == 1) return 1;
    job = nullptr;
    free_job(begun);
    return code;
}

void stop_receiving() {
    grx_retire_recepteur(job);
}

// --- links and bookmarks ------------------------------------------------------------------------------------------------

constexpr std::size_t kLongestUri = 2000, kLongestTitle = 255;

bool good_uri(const char* uri) {
    if (uri == nullptr || uri[0] == '\0' || strnlen(uri, kLongestUri + 1) > kLongestUri) return false;
    for (const char* c = uri; *c != '\0'; ++c)
        if (*c <= ' ' || *c > '~') return false;
    return true;
}

INT length_of_text() {
    return static_cast<INT>(std::strlen(last_text.data()));
}

} // namespace

extern "C" {

INT grx_commence_papier(const GRX_PAPIER* papier) {
    GRX_PAPIER paper{};
    papier::Layout layout{};
    last_text.fill('\0');
    if (const INT code = papier::read_record(papier, paper); code != 1) return code;
    if (job != nullptr) return GRX_ECHEC_OCCUPE;
    if (const INT code = papier::lay_out(paper, layout); code != 1) return code;
    return begin_job(paper, layout);
}

INT grx_page_papier(void) {
    last_text.fill('\0');
    if (job == nullptr) return GRX_ECHEC_ABSENT;
    return job->has_pages() ? job->next_page() : GRX_ECHEC_GENRE;
}

INT grx_lien_papier(INT x, INT y, INT largeur, INT hauteur, const char* uri) {
    last_text.fill('\0');
    if (job == nullptr) return GRX_ECHEC_ABSENT;
    if (largeur <= 0 || hauteur <= 0 || !good_uri(uri)) return GRX_ECHEC_PARAMETRE;
    drafter().link(x, y, largeur, hauteur, uri);
    return 1;
}

INT grx_signet_papier(const char* titre) {
    papier::Growing<char> text;
    last_text.fill('\0');
    if (job == nullptr) return GRX_ECHEC_ABSENT;
    if (titre == nullptr || titre[0] == '\0' || strnlen(titre, kLongestTitle + 1) > kLongestTitle)
        return GRX_ECHEC_PARAMETRE;
    if (!papier::take_text(titre, text)) return GRX_ECHEC_MEMOIRE;
    job->bookmark(text.data());
    return 1;
}

INT grx_termine_papier(void) {
    last_text.fill('\0');
    if (job == nullptr) return GRX_ECHEC_ABSENT;
    stop_receiving();
    const INT code = job->finish(last_text);
    free_job(job);
    return code;
}

INT grx_abandonne_papier(void) {
    last_text.fill('\0');
    if (job == nullptr) return GRX_ECHEC_ABSENT;
    stop_receiving();
    free_job(job);
    return 1;
}

INT grx_recup_texte_papier(char* texte, INT taille) {
    if (texte != nullptr && taille > 0) {
        const auto room = static_cast<std::size_t>(taille) - 1;
        const std::size_t length = std::min(room, static_cast<std::size_t>(length_of_text()));
        std::memcpy(texte, last_text.data(), length);
        texte[length] = '\0';
    }
    return length_of_text();
}
}
