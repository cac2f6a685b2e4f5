// What the process asks of Xlib, whose functions the test program stands in front of.
#pragma once

#include <X11/Xlib.h>

#include <functional>

namespace grxtest {

// The last event that the process sent since the construction of the object. There is one at a time.
class LastSent {
  public:
    LastSent();
    ~LastSent();
    LastSent(const LastSent&) = delete;
    LastSent& operator=(const LastSent&) = delete;

    Window to = None;
    Bool propagate = False;
    long mask = 0;
};

// Calls a function before each window is mapped, with the requests before it sent. There is one at a time.
class BeforeMapping {
  public:
    explicit BeforeMapping(std::function<void(Window)> look);
    ~BeforeMapping();
    BeforeMapping(const BeforeMapping&) = delete;
    BeforeMapping& operator=(const BeforeMapping&) = delete;
};

} // namespace grxtest
