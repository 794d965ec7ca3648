// The words of the language, each in one list: the checker, the prompt, the documentation and the grammar for editors use
// these. The names of classes and their members are in the host's registry.
#pragma once

#include "model/classes.h"

#include <cstdint>
#include <string_view>
#include <vector>

namespace host::language {

// A generic function takes arrays or values of any type, so that no declaration describes it: Array, UBound, LBound.
enum class WordKind : std::uint8_t { statement, value, operation, type, generic, function };

struct Word {
    std::string_view name; // as it is usually written
    WordKind kind;
};

// Keywords, types and functions, each name once.
const std::vector<Word>& words();

// The functions that declarations describe, overloads one by one.
const std::vector<Method>& functions();

// The functions of the name, without regard to case; empty if there is none.
OverloadSet findFunctions(std::string_view name);

// What the functions of the name are for; empty if there is none.
std::string_view functionText(std::string_view name);

enum class ArrayUse : std::uint8_t { append, insert, remove, count, pop, reverse, sort, sortBy, indexOf, slice };

// A member of every array.
struct ArrayMember {
    std::string_view name;
    ArrayUse use;
    std::size_t fewest, most; // arguments
    std::string_view takes;   // the arguments in words
    std::string_view form;    // of the call, behind the array and its dot
};

const std::vector<ArrayMember>& arrayMembers();

} // namespace host::language
