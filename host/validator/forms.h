// What a function may be called with, as far as its declaration tells.
#pragma once

#include "validator/functions.h"

#include <set>

namespace host::validator {

// A receiver is null, an object as the class constructor leaves it, or one that the plugin has filled: a shared method
// without parameters hands it out, or a constructor makes it. Where neither does, it is another empty one.
extern const Forms declaredForms;

// One for each value, of which each keeps a copy. `textOf` returns what a message calls the value.
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

// The functions that forms do not use: they crashed or hung while an argument was made.
std::set<std::string>& unusableFunctions();

} // namespace host::validator
