// The words of the language, each in one list. The checker, the prompt, the documentation and the grammar for editors use
// these lists. The names of classes and their members are in the host's registry.
#pragma once

#include "model/classes.h"

#include <cstdint>
#include <string_view>
#include <vector>

namespace host::language {

// A generic function takes arrays or values of any type, so that no declaration describes it: Array, UBound, LBound.
enum class WordKind : std::uint8_t { statement, value, operation, type, generic, function };

struct Word {
    std::string_view name; // in its usual spelling
    WordKind kind;
};

// Returns the keywords, types and functions, each name once.
const std::vector<Word>& words();

// Returns the functions that have declarations, each overload separately.
const std::vector<Method>& functions();

// Returns the functions with the name, ignoring case; empty if there are none.
OverloadSet findFunctions(std::string_view name);

// Returns the purpose of the functions with the name; empty if there are none.
std::string_view functionText(std::string_view name);

enum class ArrayUse : std::uint8_t { append, insert, remove, count, pop, reverse, sort, sortBy, indexOf, slice };

// A member of every array.
struct ArrayMember {
    std::string_view name;
    ArrayUse use;
    std::size_t fewest, most; // arguments
    std::string_view takes;   // a description of the arguments
    std::string_view form;    // of the call, after the array and its dot
};

const std::vector<ArrayMember>& arrayMembers();

} // namespace host::language
