// Writes the class records of the host's own classes.
#pragma once

#include "model/classes.h"

namespace host {

template <class Function>
REALfunction bound(Function* function) {
    return reinterpret_cast<REALfunction>(function);
}

template <class Function>
REALmethodDefinition method(const char* declaration, Function* function) {
    return {bound(function), nullptr, declaration, 0, {}};
}

// A method that can be assigned to. The setter takes the object, the arguments and the value.
template <class Function, class Setter>
REALmethodDefinition assignableMethod(const char* declaration, Function* function, Setter* setter) {
    return {bound(function), bound(setter), declaration, 0, {}};
}

template <class Function>
REALproperty readOnlyProperty(const char* name, const char* type, Function* getter) {
    return {nullptr, name, type, 0, bound(getter), nullptr, 0, {}};
}

// Sets one kind of rows of a record, such as its methods.
template <class Row, std::size_t size>
void setRows(Row*& rows, REALword& count, Row (&table)[size]) {
    rows = table;
    count = size;
}

// Returns a record in the current layout without members; `instanceDataSize` is a multiple of 16.
REALclassDefinition builtInRecord(const char* name, const char* superName, REALword instanceDataSize,
                                  void (*constructor)(Object*), void (*destructor)(Object*));

} // namespace host
