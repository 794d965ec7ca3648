// Code that calls bound functions, those of plugins and of the host alike, and makes objects.
#pragma once

#include "language/running/code.h"
#include "language/running/frame.h"

#include "model/classes.h"

namespace host::language {

// One argument of a call: a value, or an array element that is passed by reference. Such an element has no address of its
// own: it is copied into the call and written back behind it, whether or not the call raises.
struct ArgumentCode {
    CodePtr value; // null: an element by reference
    CodePtr array;
    CodePtr index;
    Counting counting = Counting::none; // of the element
};

// Calls the method with the receiver, unless it is shared, and one argument for each parameter. A receiver that is Nil
// raises. The method must outlive the code.
CodePtr callMethod(const Method& method, CodePtr receiver, std::vector<ArgumentCode> arguments, Offset offset);

// Calls the setter of the method, as "receiver.method(arguments) = value" means it; the value is the last of the arguments.
ActionPtr callSetter(const Method& method, CodePtr receiver, std::vector<ArgumentCode> arguments, Offset offset);

// A new object, on which the Constructor then runs; null: it has none to run.
CodePtr makeObject(ClassInfo& info, const Method* constructor, std::vector<ArgumentCode> arguments, Offset offset);

// Whether the object is of the class or one of its subclasses. Null for the class that every object is of.
CodePtr isOfClass(CodePtr object, const ClassInfo* info);

} // namespace host::language
