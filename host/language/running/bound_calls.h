// Code that calls the bound functions of plugins and of the host, and creates objects.
#pragma once

#include "language/running/code.h"
#include "language/running/frame.h"

#include "model/classes.h"

namespace host::language {

// One argument of a call: a value, or an array element that is passed by reference. An element has no fixed address, so it
// is copied into the call and written back after it, whether or not the call raises.
struct ArgumentCode {
    CodePtr value; // null for an element by reference
    CodePtr array;
    CodePtr index;
    Counting counting = Counting::none; // of the element
};

// Calls the method with the receiver, unless the method is shared, and with one argument for each parameter. A receiver
// that is Nil raises. The method must outlive the code.
CodePtr callMethod(const Method& method, CodePtr receiver, std::vector<ArgumentCode> arguments, Offset offset);

// Calls the setter of the method for "receiver.method(arguments) = value". The value is the last of the arguments.
ActionPtr callSetter(const Method& method, CodePtr receiver, std::vector<ArgumentCode> arguments, Offset offset);

// Creates an object and runs the Constructor on it, unless `constructor` is null.
CodePtr makeObject(ClassInfo& info, const Method* constructor, std::vector<ArgumentCode> arguments, Offset offset);

// Returns whether the object is of the class or one of its subclasses. A null `info` means the class of every object.
CodePtr isOfClass(CodePtr object, const ClassInfo* info);

} // namespace host::language
