// The windows that have layers, for the functions that change layers and those that show them.
#pragma once

#include <X11/Intrinsic.h>

#include <array>

#include "drawing/layer_content.h"
#include "grx_plus_calques.h"
#include "pure/size.h"

namespace grx {

struct Layer {
    LayerContent content;
    Shift shift; // from where it was drawn
    bool hidden = false;

    bool visible() const { return !hidden && !content.empty(); }
};

struct LayeredWindow {
    Window window = None; // None for a window without layers
    Widget widget = nullptr;
    Pixmap base = None;
    Size size;       // of the base
    bool on = false; // the layers are on the screen, and the base holds what is below
    std::array<Layer, GRX_NB_CALQUES> layers;
};

/// The layers of a number, null when it has none.
LayeredWindow* layered_window(INT nofen);

/// The same, made when there are none; null when the server has no memory.
LayeredWindow* begin_layers(INT nofen);

/// Lets them go when no layer holds anything and none is being drawn.
void end_layers_without_content(INT nofen);

/// The layer of which the content is being drawn.
struct LayerInWork {
    INT nofen = 0; // 0 for none
    INT number = 0;
    LayerContent content;
};
extern LayerInWork& layer_in_work;

void forget_layer_in_work();

/// The parts of a window that a change of layers touches.
class Touched {
  public:
    void add(const LayeredWindow& w, const Layer& layer);
    void add(const LayeredWindow& w, const Area& area);
    bool empty() const { return count_ == 0; }
    const Area& whole() const { return whole_; }
    /// Has plain_copies() copy these parts only.
    void clip_copies();

  private:
    static constexpr std::size_t kMost = LayerContent::kAreas * (GRX_NB_CALQUES + 1);
    std::array<XRectangle, kMost> parts_{};
    std::size_t count_ = 0;
    Area whole_;
};

/// Shows what was changed. Layers that were off the screen come on it, all of them.
void show_touched(LayeredWindow& w, Touched& touched);

} // namespace grx
