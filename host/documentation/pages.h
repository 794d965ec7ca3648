// A class as a reader meets it: its members in sections, the overloads of one name together, each with its explanation.
#pragma once

#include "model/classes.h"

#include <string>
#include <string_view>
#include <vector>

namespace host::documentation {

struct MemberPage {
    std::string name;
    std::vector<std::string> declarations; // as in the record, one for each overload
    std::string_view text;                 // empty: nobody has explained it
};

struct Section {
    const char* title;               // "Constructors", "Properties", ...
    std::vector<MemberPage> members; // never empty
};

struct ClassPage {
    const ClassInfo* info;
    std::string_view text;
    std::vector<Section> sections; // in the order of a record; none is empty
};

// The members of a class that has a well-formed record, as every class of a registry without problems does. Its own only;
// those of its superclass are on that one's page.
ClassPage pageOf(const ClassInfo& info);

// One page for each class, in the order of the texts, those that nobody has explained last.
std::vector<ClassPage> pagesOf(const Registry& registry);

} // namespace host::documentation
