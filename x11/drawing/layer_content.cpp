// Keeps the primitives of a layer, and tells what they cover.
#include "drawing/layer_content.h"

#include <algorithm>
#include <limits>

#include "xt_gfx_f.h"
#include "xt_ini_f.h"

namespace {

// Before each primitive: how it is drawn, and how long it is with this.
struct Head {
    void (*draw)(uchar*, grx::Shift);
    std::size_t size;
};

constexpr std::size_t kAlignment = 16;
constexpr std::size_t kFirstRoom = 1024;
static_assert(sizeof(Head) % kAlignment == 0);

constexpr std::size_t aligned(std::size_t size) {
    return (size + kAlignment - 1) / kAlignment * kAlignment;
}

bool make_room(grx::LayerContent& content, std::size_t size) {
    if (!content.areas) content.areas = grx::Block<grx::Area>(grx::LayerContent::kAreas);
    if (!content.areas) return false;
    const std::size_t needed = content.used + size;
    if (needed <= content.bytes.size()) return true;
    return content.bytes.resize(std::max({needed, 2 * content.bytes.size(), kFirstRoom}));
}

// Half the width of a line would do, were there no ends and corners.
int64_t reach(const GRX_ATTRIBUTS_TRACER& attrib) {
    return int64_t{1} + grx_recup_epaisseur(attrib.epaisseur);
}

// The server cuts corners that would reach further than this.
constexpr int64_t kMitre = 6;

short shifted(short v, INT by) {
    constexpr int64_t least = std::numeric_limits<short>::min(), most = std::numeric_limits<short>::max();
    return static_cast<short>(std::clamp<int64_t>(int64_t{v} + by, least, most));
}

} // namespace

namespace grx {

uchar* LayerContent::add(void (*draw)(uchar*, Shift), std::size_t size, const Area& area) {
    const Head head{draw, sizeof(Head) + aligned(size)};
    if (!complete || !make_room(*this, head.size)) {
        complete = false;
        return nullptr;
    }
    uchar* const room = bytes.data() + used;
    std::memcpy(room, &head, sizeof head);
    used += head.size;
    add_area(areas.span(), area_count, area);
    return room + sizeof head;
}

void LayerContent::draw(Shift shift) {
    for (std::size_t at = 0; at < used;) {
        Head head;
        std::memcpy(&head, bytes.data() + at, sizeof head);
        head.draw(bytes.data() + at + sizeof head, shift);
        at += head.size;
    }
}

Area covered_area(const GRX_POINT& p) {
    return area_between(p.x, p.y, p.x, p.y);
}

Area covered_area(const GRX_SEGMENT& p) {
    return area_between(p.x1, p.y1, p.x2, p.y2).grown(reach(p.attrib));
}

Area covered_area(const GRX_RECTANGLE& p) {
    return area_between(p.x1, p.y1, p.x2, p.y2).grown(reach(p.attrib));
}

Area covered_area(const GRX_ARC& p) {
    return area_between(p.x, p.y, int64_t{p.x} + p.lar, int64_t{p.y} + p.hau).grown(reach(p.attrib));
}

Area covered_area(const GRX_POLY& p) {
    Area all;
    if (p.points == nullptr) return all;
    for (INT i = 0; i < p.npoints; ++i)
        all = join_areas(all, area_between(p.points[i].x, p.points[i].y, p.points[i].x, p.points[i].y));
    return all.grown(kMitre * reach(p.attrib));
}

void shift_points(const GRX_POINT_POLY* from, GRX_POINT_POLY* to, INT count, Shift s) {
    std::transform(from, from + count, to, [s](GRX_POINT_POLY p) {
        return GRX_POINT_POLY{shifted(p.x, s.dx), shifted(p.y, s.dy)};
    });
}

} // namespace grx
