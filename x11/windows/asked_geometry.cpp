// Gives the main window the size, the place and the title that the user gave on the command line.
#include "windows/asked_geometry.h"

#include <cstdio>
#include <optional>

#include "display/arguments.h"
#include "grx_plus_application.h"
#include "pure/axis.h"
#include "pure/geometry_text.h"
#include "pure/text.h"
#include "system/shut_down.h"
#include "registry/window_table.h"
#include "xt_ini_t.h"

namespace {

INT placed = GRX_AUCUN; // the window that stands where the user wants it
bool used = false;      // the main window has been made

void forget_geometry() {
    placed = GRX_AUCUN;
    used = false;
}

bool is_main_window(const GRX_FENETRE& described) {
    return !used && (described.attrib & GRX_FEN_ATT_PRINCIPALE) != 0 && (described.attrib & GRX_FEN_ATT_FILLE) == 0
           && described.fen_mere < 0;
}

std::optional<grx::Geometry> users_geometry() {
    const char* const text = grx::given_argument(GRX_ARG_GEOMETRY);
    return text != nullptr ? grx::read_geometry(text) : std::nullopt;
}

// y counts upwards to the lower edge: the upper edge stays.
void resize(GRX_FENETRE& window, const grx::Geometry& geometry) {
    if (window.haut >= 0) window.y = grx::saturated(int64_t{window.y} + window.haut - geometry.height);
    window.droite = geometry.width;
    window.haut = geometry.height;
}

int write_distance(std::span<char> out, const grx::EdgeDistance& distance) {
    return std::snprintf(out.data(), out.size(), "%c%d", distance.from_far_edge ? '-' : '+', distance.pixels);
}

} // namespace

namespace grx {

GRX_FENETRE as_user_wants(const GRX_FENETRE& described) {
    GRX_FENETRE wanted = described;
    if (!is_main_window(described)) return wanted;
    if (const char* const title = given_argument(GRX_ARG_TITLE)) copy_text(wanted.titre, title);
    const auto geometry = users_geometry();
    if (geometry && geometry->sized()) resize(wanted, *geometry);
    return wanted;
}

bool take_users_place(const WindowBuild& b) {
    if (placed == b.nofen) placed = GRX_AUCUN; // the window that had the number is gone
    const auto geometry = is_main_window(b.fen) ? users_geometry() : std::nullopt;
    if (!geometry || !geometry->placed) return false;
    const std::span<char> text = geometry_text(b.nofen);
    const int written = write_distance(text, geometry->x);
    write_distance(text.subspan(static_cast<std::size_t>(written)), geometry->y);
    placed = b.nofen;
    return true;
}

void note_made(const GRX_FENETRE& described) {
    if (!is_main_window(described)) return;
    at_shut_down(forget_geometry);
    used = true;
}

bool stands_where_user_wants(INT nofen) {
    return nofen != GRX_AUCUN && nofen == placed;
}

} // namespace grx
