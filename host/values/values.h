// One untyped value of the host language: the content of a variable, an array element, an argument or a result. Its user
// knows the type statically.
#pragma once

#include "values/types.h" // first: its enumerators must not meet the aliases below

#include "chromabridge/host_abi.h"

namespace host {

using Object = ::REALobjectStruct;
using String = ::REALstringStruct;

// Always eight bytes, starting with the double, so that consecutive slots are consecutive doubles. The factories clear the
// bytes that a narrow value does not use. A slot that is passed to a bound function must come from a factory.
union Slot {
    double real;
    HostInteger integer;
    HostColor color;
    HostBoolean boolean;
    String* string; // null means the empty string
    Object* object; // objects, variants and arrays; null means Nil
    void* address;  // a by-reference argument: the address of the variable's slot

    constexpr Slot() : real(0.0) {}
    static Slot ofReal(double value) {
        Slot slot;
        slot.real = value;
        return slot;
    }
    static Slot ofInteger(HostInteger value) {
        Slot slot;
        slot.integer = value;
        return slot;
    }
    static Slot ofColor(HostColor value) {
        Slot slot;
        slot.color = value;
        return slot;
    }
    static Slot ofBoolean(bool value) {
        Slot slot;
        slot.boolean = value ? 1 : 0;
        return slot;
    }
    static Slot ofString(String* value) {
        Slot slot;
        slot.string = value;
        return slot;
    }
    static Slot ofObject(Object* value) {
        Slot slot;
        slot.object = value;
        return slot;
    }
    static Slot ofAddress(void* value) {
        Slot slot;
        slot.address = value;
        return slot;
    }
};
static_assert(sizeof(Slot) == sizeof(double));

} // namespace host
