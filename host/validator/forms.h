// The values that a function may be called with, according to its declaration.
#pragma once

#include "validator/functions.h"

#include <set>

namespace host::validator {

// A receiver is null, an object as the class constructor leaves it, or an object that the plugin has filled. The filled
// object comes from a shared method without parameters or from a constructor. If neither provides one, the receiver is
// another empty object.
extern const Forms declaredForms;

// Returns one form for each value. Each form keeps a copy of its value. `textOf` returns the value's name for messages.
template <class Values, class Make, class TextOf>
std::vector<Form> each(const Values& values, Make make, TextOf textOf) {
    std::vector<Form> forms;
    for (const auto& value : values)
        forms.push_back({[value, make] { return make(value); }, nullptr, textOf(value)});
    return forms;
}
template <class Values, class Make>
std::vector<Form> each(const Values& values, Make make) {
    return each(values, make, [](const auto&) { return std::string(); });
}

// Returns the functions that forms do not use: they crashed or hung while an argument was created.
std::set<std::string>& unusableFunctions();

} // namespace host::validator
