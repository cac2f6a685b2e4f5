// A call of the test's own before each answer of the server that Xlib waits for.
#pragma once

namespace grxtest {

// Given the number of this answer in the process, from 1; null: none.
extern void (*before_reply)(unsigned long number);

} // namespace grxtest
