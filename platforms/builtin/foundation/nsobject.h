// NSObject: the root class.
#pragma once

#include "runtime/class_table.h"
#include "runtime/lifetime.h"

namespace chroma::builtin {

struct NSObject : Object {
    static ClassObject cls;
};

ClassTable tableOfNSObject();

// Returns a message's argument as an instance of the expected class; nil is allowed. An object of another class raises
// NSInvalidArgumentException: it does not recognise `expected`, the message that AppKit would have sent it.
template <class Instance>
Instance* argument(id object, const Message& expected) {
    if (object && !isKindOf(object, Instance::cls)) {
        send<void>(object, msg::doesNotRecognizeSelector, expected.get());
        return nullptr;
    }
    return static_cast<Instance*>(object);
}

} // namespace chroma::builtin
