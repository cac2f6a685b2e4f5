// Keeps the marks of a page, for drawings that take several sheets and for plotters, which take a pen once.
#include "papier/recorder.h"

namespace papier {

namespace {

constexpr std::size_t kPad = 8;

constexpr std::size_t padded(std::size_t bytes) {
    return (bytes + kPad - 1) / kPad * kPad;
}

template <class T>
std::span<const unsigned char> bytes_of(const T& value) {
    return {reinterpret_cast<const unsigned char*>(&value), sizeof value};
}

constexpr unsigned char kZeros[kPad] = {};

bool append_padded(Growing<unsigned char>& to, std::span<const unsigned char> bytes) {
    return to.append(bytes) && to.append(std::span<const unsigned char>(kZeros, padded(bytes.size()) - bytes.size()));
}

} // namespace

// A mark that is kept by halves ends the record: complete_ says that it is none.
template <class Head, class Element>
void Recorder::keep(Kind kind, const Box& box, const Head& head, std::span<const Element> body) {
    if (!complete_) return;
    const Entry entry{box, padded(sizeof head), body.size_bytes(), kind};
    const std::span<const unsigned char> body_bytes{
        reinterpret_cast<const unsigned char*>(body.data()), body.size_bytes()};
    complete_ = append_padded(bytes_, bytes_of(entry)) && append_padded(bytes_, bytes_of(head))
                && append_padded(bytes_, body_bytes);
}

void Recorder::stroke(const Pen& pen, Path path) {
    keep(Kind::stroke, box_of(path).grown(pen.width), pen, path);
}

void Recorder::fill(const Ink& ink, Path path) {
    keep(Kind::fill, box_of(path), ink, path);
}

// How far a text reaches is known to the font alone; it is on any sheet that it could reach.
void Recorder::text(const TextMark& mark, std::span<const char> utf8) {
    const double reach = mark.height * static_cast<double>(utf8.size()) + mark.width;
    const Box box{mark.x - mark.height, mark.y - mark.height, mark.x + reach, mark.y + mark.height};
    keep(Kind::text, box, mark, utf8);
}

void Recorder::picture(const PictureMark& mark, std::span<const uint32_t> pixels) {
    keep(Kind::picture, mark.place, mark, pixels);
}

void Recorder::link(const Box& place, std::span<const char> uri) {
    keep(Kind::link, place, place, uri);
}

template <class Head>
const Head& Recorder::head_at(std::size_t place) const {
    return *reinterpret_cast<const Head*>(bytes_.data() + place + padded(sizeof(Entry)));
}

template <class Element>
std::span<const Element> Recorder::body_at(std::size_t place, const Entry& entry) const {
    const unsigned char* const at = bytes_.data() + place + padded(sizeof(Entry)) + entry.head;
    return {reinterpret_cast<const Element*>(at), entry.body / sizeof(Element)};
}

void Recorder::give(Marked& to, const Entry& entry, std::size_t place) const {
    switch (entry.kind) {
    case Kind::stroke: to.stroke(head_at<Pen>(place), body_at<PathStep>(place, entry)); break;
    case Kind::fill: to.fill(head_at<Ink>(place), body_at<PathStep>(place, entry)); break;
    case Kind::text: to.text(head_at<TextMark>(place), body_at<char>(place, entry)); break;
    case Kind::picture: to.picture(head_at<PictureMark>(place), body_at<uint32_t>(place, entry)); break;
    case Kind::link: to.link(head_at<Box>(place), body_at<char>(place, entry)); break;
    }
}

void Recorder::replay(Marked& to, const Box& visible) const {
    if (!complete_) return;
    for (std::size_t place = 0; place < bytes_.size();) {
        const Entry& entry = *reinterpret_cast<const Entry*>(bytes_.data() + place);
        if (entry.box.meets(visible)) give(to, entry, place);
        place += padded(sizeof(Entry)) + entry.head + padded(entry.body);
    }
}

} // namespace papier
