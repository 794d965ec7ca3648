// One value of the host language, untyped: what a variable, an array element, an argument or a result holds. Its type is
// known statically to whoever handles it.
#pragma once

#include "model/types.h" // first: its enumerators must not meet the aliases below

#include "chromabridge/host_abi.h"

namespace host {

using Object = ::REALobjectStruct;
using String = ::REALstringStruct;

// Always eight bytes with the double in front, so that consecutive slots are consecutive doubles. The factories clear the
// bytes that a narrow value leaves unused; a slot that is passed to a bound function must come from one of them.
union Slot {
    double real;
    HostInteger integer;
    HostColor color;
    HostBoolean boolean;
    String* string; // null is the empty string
    Object* object; // objects, variants and arrays; null is Nil
    void* address;  // a by-reference argument: that of the variable's slot

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
