// NSObject: the root class.
#pragma once

#include "runtime/class_table.h"
#include "runtime/lifetime.h"

namespace chroma::builtin {

struct NSObject : Object {
    static ClassObject cls;
};

ClassTable tableOfNSObject();

// An argument of a message as an instance of the class it has to be, nil included. An object of another class is told that
// it does not recognise `expected`, the message that a platform would have sent it: NSInvalidArgumentException.
template <class Instance>
Instance* argument(id object, const Message& expected) {
    if (object && !isKindOf(object, Instance::cls)) {
        send<void>(object, msg::doesNotRecognizeSelector, expected.get());
        return nullptr;
    }
    return static_cast<Instance*>(object);
}

} // namespace chroma::builtin
