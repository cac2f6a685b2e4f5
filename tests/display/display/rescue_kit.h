// An application that keeps a drawing and saves it in its rescue function, and the servers that are taken away from it.
#pragma once

#include "tests/support/controls.h"
#include "tests/support/reply_hook.h"
#include "tests/support/window_kit.h"

#include "grx_plus_diagnostic.h"
#include "grx_plus_erreurs.h"

#include <unistd.h>

#include <array>
#include <csignal>
#include <cstdlib>
#include <fstream>
#include <string>

namespace grxtest {

// What the application draws, and where it saves it.
struct Drawing {
    std::string file;
    std::array<INT, 100> points{};
    INT times_called = 0;
    INT window = GRX_AUCUN;
};

// Ends the process with a number of its own where the library answers as if there were a display.
inline void expect_no_display(bool as_without, int status) {
    if (!as_without) std::_Exit(status);
}

inline void ask_the_library(const Drawing& drawing) {
    GRX_EVENEMENT event{};
    GRX_SEGMENT segment{};
    segment.nofen = drawing.window;
    expect_no_display(x11_disp == nullptr && contexte == nullptr, 20);
    expect_no_display(grx_recup_objet_fen(drawing.window) == nullptr, 21);
    expect_no_display(grx_digitaliseur(&event, 1) == 0 && event.type_evenement == GRX_EVT_AUCUN, 22);
    grx_trace_segment(segment);
    expect_no_display(grx_recup_objet_bout(0) == nullptr, 24);
    GRX_FENETRE window{};
    grx_init_fenetre(&window);
    window.type = GRX_FEN_ALPHA;
    expect_no_display(grx_cree_fenetre(&window) != 0, 25);
    grx_detruit_fenetre(drawing.window);
    grx_flush_server();
    grx_bipbip(0, 0);
    grx_gere_application();
    expect_no_display(grx_affecte_fonction_secours(nullptr, nullptr) == GRX_ECHEC_OCCUPE, 26);
}

inline void save_drawing(void* data) {
    auto& drawing = *static_cast<Drawing*>(data);
    ++drawing.times_called;
    ask_the_library(drawing);
    std::ofstream out(drawing.file, std::ios::app);
    for (INT point : drawing.points) out << point << "\n";
    out << "called " << drawing.times_called << "\n";
}

inline std::string saved_drawing(const Drawing& drawing) {
    std::string text;
    for (INT point : drawing.points) text += std::to_string(point) + "\n";
    return text + "called 1\n";
}

inline Drawing new_drawing(const TempDir& folder) {
    Drawing drawing;
    drawing.file = folder.text() + "/recovered.txt";
    for (std::size_t i = 0; i < drawing.points.size(); ++i) drawing.points[i] = static_cast<INT>(i * i);
    return drawing;
}

inline pid_t& victim() {
    static pid_t server = 0;
    return server;
}

// The server is gone, with all that it still had to send.
inline void take_server_away() {
    kill(victim(), SIGKILL);
}

// In a child of the test: all that is printed counts.
inline void begin_application(const XServer& server) {
    dup2(STDERR_FILENO, STDOUT_FILENO);
    setenv("DISPLAY", server.name().c_str(), 1);
    victim() = server.pid();
}

} // namespace grxtest
