// What a reader meets: a class with its members in sections, the overloads of one name together, each with its explanation;
// the functions and other words of the language.
#pragma once

#include "model/classes.h"

#include <optional>
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

// The functions of the language, overloads together, in their order; the page of a function or of another word of the
// language, none when there is none. Names compare without regard to case.
std::vector<MemberPage> functionPages();
std::optional<MemberPage> pageOfWord(std::string_view word);

// What there are pages of: classes in order of registration, functions and other words of the language by the alphabet, and
// all of them.
std::vector<std::string> classNames(const Registry& registry);
std::vector<std::string> functionNames();
std::vector<std::string> wordNames();
std::vector<std::string> pageNames(const Registry& registry);

} // namespace host::documentation
