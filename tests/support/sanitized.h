// How much a test does when it was built with sanitizers, for tests whose amount is all that they cost.
#pragma once

namespace grxtest {

#ifdef __SANITIZE_ADDRESS__
inline constexpr bool sanitized = true;
#else
inline constexpr bool sanitized = false;
#endif

/// Of rounds, entries or bytes: with sanitizers, under which all takes several times as long and each leak is told anyway,
/// a fifth.
constexpr int amount(int usual) {
    return sanitized ? usual / 5 : usual;
}

} // namespace grxtest
