// Calls of bound functions. The shape of a signature - a word or a double in each place, and the kind of the result - is
// turned into an invoker once; a call then costs one indirect call more than the function itself.
#pragma once

#include "model/declarations.h"

namespace host {

constexpr std::size_t maximumArguments = 8; // the receiver included

class Invoker {
public:
    Invoker() = default; // null: cannot call

    // Of a signature, with the receiver as the first argument when `hasReceiver`; null when it has too many arguments.
    Invoker(const Signature& signature, bool hasReceiver);

    // Of a property's getter, (object, parameter word) -> type, and of its setter, (object, parameter word, value).
    static Invoker getter(const Type& type);
    static Invoker setter(const Type& type);

    explicit operator bool() const { return shape_ != nullptr; }

    // Calls the function with the arguments in order and writes its result. Arguments are borrowed; a counted result belongs
    // to the caller; without a result the slot is cleared. The function may record a pending exception (exceptions.h): check
    // after.
    void operator()(REALfunction function, const Slot* arguments, Slot* result) const {
        shape_(function, arguments, result);
        if (resultMask_ != -1) result->integer &= resultMask_;
    }

private:
    using Shape = void (*)(REALfunction function, const Slot* arguments, Slot* result);

    Invoker(const Type& result, std::size_t count, unsigned realMask);

    Shape shape_ = nullptr;
    HostInteger resultMask_ = 0; // the bytes of the result word that the result's type has; all for a double
};

} // namespace host
