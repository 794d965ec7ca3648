// NSColorList: colours under keys, in the order in which they were inserted.
#pragma once

#include "appkit/color.h"

#include <string>
#include <vector>

namespace chroma::builtin {

struct ColorList : Object {
    static ClassObject cls;

    struct Entry {
        std::u16string key;
        Ref<Color> color;
    };

    std::u16string name;
    std::vector<Entry> entries; // no key twice
    bool isEditable = true;
    std::string file; // where the list was last read from or written to, "" while it is only in memory
};

ClassTable tableOfNSColorList();

} // namespace chroma::builtin
