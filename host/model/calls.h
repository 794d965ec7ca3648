// Calls of bound functions. A signature's shape (a word or a double in each place, and the kind of the result) is converted
// to an invoker once. A call then costs one indirect call more than the function itself.
#pragma once

#include "model/declarations.h"

namespace host {

constexpr std::size_t maximumArguments = 8; // including the receiver

class Invoker {
public:
    Invoker() = default; // null: cannot call

    // Creates the invoker of a signature, with the receiver as first argument if `hasReceiver`; null if it has too many
    // arguments.
    Invoker(const Signature& signature, bool hasReceiver);

    // Create the invokers of a property's getter, (object, parameter word) -> type, and setter, (object, parameter word,
    // value).
    static Invoker getter(const Type& type);
    static Invoker setter(const Type& type);

    explicit operator bool() const { return shape_ != nullptr; }

    // Calls the function with the arguments in order and writes its result. Arguments are borrowed. The caller owns a
    // counted result; without a result the slot is cleared. The function may record a pending exception (exceptions.h), so
    // check after the call.
    void operator()(REALfunction function, const Slot* arguments, Slot* result) const {
        shape_(function, arguments, result);
        if (resultMask_ != -1) result->integer &= resultMask_;
    }

private:
    using Shape = void (*)(REALfunction function, const Slot* arguments, Slot* result);

    Invoker(const Type& result, std::size_t count, unsigned realMask);

    Shape shape_ = nullptr;
    HostInteger resultMask_ = 0; // the bytes of the result word that belong to the result's type; all for a double
};

} // namespace host
