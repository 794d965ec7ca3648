// NSColorList: colours by key, in the order of insertion.
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
    std::vector<Entry*> entries; // point into `colors`, whose elements do not move; in the list's order
    bool isEditable = true;
    ColorList* nextShared = nullptr; // the next of the lists that colorListNamed: may return again
    std::string file;                // where the list was last read or written; "" if only in memory
};

ClassTable tableOfNSColorList();

} // namespace chroma::builtin
