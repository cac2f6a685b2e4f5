// Takes the lines of a path one by one, for what reads letters and for what keeps or draws them.
#pragma once

#include "pure/clip.h"

namespace grx {

class PathSink {
  public:
    virtual void move(Vertex to) = 0;
    virtual void line(Vertex to) = 0;

  protected:
    ~PathSink() = default;
};

} // namespace grx
