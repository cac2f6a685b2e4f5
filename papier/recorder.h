// Keeps the marks of a page, for drawings that take several sheets and for plotters, which take a pen once.
#pragma once

#include "papier/growing.h"
#include "papier/marks.h"

namespace papier {

class Recorder final : public Marked {
  public:
    void stroke(const Pen& pen, Path path) override;
    void fill(const Ink& ink, Path path) override;
    void text(const TextMark& mark, std::span<const char> utf8) override;
    void picture(const PictureMark& mark, std::span<const uint32_t> pixels) override;
    void link(const Box& place, std::span<const char> uri) override;

    /// Gives the marks on that touch a box, in their order.
    void replay(Marked& to, const Box& visible) const;
    void clear() { bytes_.clear(); }
    bool complete() const { return complete_; }

  private:
    enum class Kind : uint32_t { stroke, fill, text, picture, link };
    struct Entry {
        Box box;
        std::size_t head, body; // bytes; both are padded
        Kind kind;
    };
    template <class Head, class Element>
    void keep(Kind kind, const Box& box, const Head& head, std::span<const Element> body);
    template <class Head>
    const Head& head_at(std::size_t place) const;
    template <class Element>
    std::span<const Element> body_at(std::size_t place, const Entry& entry) const;
    void give(Marked& to, const Entry& entry, std::size_t place) const;

    Growing<unsigned char> bytes_;
    bool complete_ = true;
};

} // namespace papier
