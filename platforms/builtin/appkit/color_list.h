// NSColorList: colours under keys, in the order in which they were inserted.
#pragma once

#include "appkit/color.h"

#include <string>
#include <unordered_map>
#include <vector>

namespace chroma::builtin {

struct ColorList : Object {
    static ClassObject cls;

    ~ColorList();

    using Colors = std::unordered_map<std::u16string, Ref<Color>>;
    using Entry = Colors::value_type; // the key and its colour

    std::u16string name;
    Colors colors;
    std::vector<Entry*> entries; // those of `colors`, which stay where they are, in the list's order
    bool isEditable = true;
    ColorList* nextShared = nullptr; // of the lists that colorListNamed: has read and would answer again
    std::string file;                // where the list was last read from or written to, "" while it is only in memory
};

ClassTable tableOfNSColorList();

} // namespace chroma::builtin
