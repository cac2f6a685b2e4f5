// Argument lists for the toolkit: typed, of fixed capacity, nothing allocated.
#pragma once

#include <X11/Intrinsic.h>

#include <array>
#include <cstdint>
#include <type_traits>

namespace grx {

class Args {
  public:
    static constexpr Cardinal kCapacity = 48;

    template <class T>
    Args& set(const char* name, T value) {
        if (count_ < kCapacity) {
            list_[count_].name = const_cast<char*>(name);
            list_[count_].value = as_arg(value);
            ++count_;
        }
        return *this;
    }

    ArgList list() { return list_.data(); }
    Cardinal count() const { return count_; }

  private:
    template <class T>
    static XtArgVal as_arg(T value) {
        if constexpr (std::is_pointer_v<T>) {
            return reinterpret_cast<XtArgVal>(value);
        } else {
            return static_cast<XtArgVal>(value);
        }
    }

    std::array<Arg, kCapacity> list_{};
    Cardinal count_ = 0;
};

/// Sets one resource.
template <class T>
void set_resource(Widget w, const char* name, T value) {
    Args args;
    args.set(name, value);
    XtSetValues(w, args.list(), args.count());
}

/// A number as the client data of a callback, and back.
inline XtPointer as_client_data(intptr_t number) {
    return reinterpret_cast<XtPointer>(number);
}

inline int32_t number_in(XtPointer client_data) {
    return static_cast<int32_t>(reinterpret_cast<intptr_t>(client_data));
}

/// Reads one resource by the type that the toolkit declares it with; `fallback` when the widget has none of that name.
template <class T>
T resource(Widget w, const char* name, T fallback = T{}) {
    T value = fallback;
    Arg arg{const_cast<char*>(name), reinterpret_cast<XtArgVal>(&value)};
    XtGetValues(w, &arg, 1);
    return value;
}

} // namespace grx
