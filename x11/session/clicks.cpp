// The double-click detector of the application: whether a click becomes a double click, by time and distance.
#include <cstdint>
#include <sys/time.h>

#include "pure/double_click.h"
#include "events/queue.h"
#include "session/forget_session.h"
#include "session/loop.h"
#include "xt_ent_f.h"
#include "xt_ini_f.h"

namespace {

constexpr unsigned long kMicrosecondsPerUnit = 1000;
constexpr INT kReach = 10; // pixels that the pointer may move

INT Dep_double_click_x = 0;
INT Dep_double_click_y = 0;
constexpr unsigned long kUsual = 200 * kMicrosecondsPerUnit;
unsigned long TEMPO_CLIC = kUsual;

uint64_t microseconds_now() {
    timeval now{};
    gettimeofday(&now, nullptr);
    constexpr uint64_t million = 1000000;
    return static_cast<uint64_t>(now.tv_sec) * million + static_cast<uint64_t>(now.tv_usec);
}

grx::ClickInput input_kind(INT type) {
    switch (type) {
    case GRX_EVT_SOURIS_BOUGE: return grx::ClickInput::Motion;
    case GRX_EVT_BOUTON_APPUI: return grx::ClickInput::Press;
    case GRX_EVT_BOUTON_RELACHE: return grx::ClickInput::Release;
    case GRX_EVT_EXEC_FONCTION: return grx::ClickInput::Activation;
    default: return grx::ClickInput::Other;
    }
}

grx::SecondClick second_click(const GRX_EVENEMENT& evt, uint64_t start) {
    const uint64_t now = microseconds_now();
    const GRX_DIGIT& pointer = evt.souris_bouge;
    return {input_kind(evt.type_evenement), pointer.x, pointer.y, pointer.bouton, now > start ? now - start : 0};
}

} // namespace

namespace grx {

void forget_double_click() {
    Dep_double_click_x = Dep_double_click_y = 0;
    TEMPO_CLIC = kUsual;
}

} // namespace grx

extern "C" {

INT grx_init_double_clic(void) {
    INT width = 0, height = 0;
    grx_recup_taille_ecran(&width, &height);
    Dep_double_click_x = kReach;
    Dep_double_click_y = height > 0 ? static_cast<INT>(kReach * (static_cast<DOUBLE>(width) / height)) : kReach;
    return grx_reinit_double_clic();
}

INT grx_reinit_double_clic(void) {
    const INT constant = grx_recup_cst_dc();
    TEMPO_CLIC = constant > 0 ? static_cast<unsigned long>(constant) * kMicrosecondsPerUnit : 0;
    return 0;
}

INT grx_double_clic(INT mode, INT x, INT y, INT bouton) {
    const grx::FirstClick first{mode, x, y, bouton, Dep_double_click_x, Dep_double_click_y, TEMPO_CLIC};
    const uint64_t start = microseconds_now();
    if (x11_disp == nullptr) return static_cast<INT>(grx::ClickOutcome::TimeOut);
    for (;;) {
        GRX_EVENEMENT evt{};
        const bool found = grx::poll_event(evt);
        const auto outcome = grx::judge_click(first, second_click(evt, start));
        if (outcome) return static_cast<INT>(*outcome);
        if (!found && grx::queue_empty()) grx::rest_until_input(grx::kPollRest);
    }
}
}
