#include "language/words.h"

namespace host::language {

const std::vector<ArrayMember>& arrayMembers() {
    static const std::vector<ArrayMember> members = {
        {"Append", ArrayUse::append, 1, 1, "one element", "Append value"},
        {"Add", ArrayUse::append, 1, 1, "one element", "Add value"},
        {"Insert", ArrayUse::insert, 2, 2, "an index and an element", "Insert(index, value)"},
        {"Remove", ArrayUse::remove, 1, 1, "one index", "Remove(index)"},
        {"Count", ArrayUse::count, 0, 0, "no arguments", "Count"},
        {"Pop", ArrayUse::pop, 0, 0, "no arguments", "Pop"},
        {"IndexOf", ArrayUse::indexOf, 1, 2, "an element and, perhaps, where to start", "IndexOf(value[, start])"},
        {"Slice", ArrayUse::slice, 1, 2, "an index and, perhaps, a count", "Slice(start[, count])"},
        {"Reverse", ArrayUse::reverse, 0, 0, "no arguments", "Reverse"},
        {"Sort", ArrayUse::sort, 0, 0, "no arguments", "Sort"},
        {"SortBy", ArrayUse::sortBy, 1, 1, "an array of keys", "SortBy(keys)"},
    };
    return members;
}

} // namespace host::language
