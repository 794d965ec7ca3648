// Pages of the documentation. A class page has the class's members in sections, the overloads of one name together, each
// name with its explanation. The other pages are for the functions and other words of the language.
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
    std::string_view text;                 // empty: there is no explanation
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

// Returns the page of a class. The class must have a well-formed record, which is the case in a registry without problems.
// The page has only the class's own members. Inherited members are on the superclass's page.
ClassPage pageOf(const ClassInfo& info);

// Returns one page for each class in the order of the texts. Classes without a text come last.
std::vector<ClassPage> pagesOf(const Registry& registry);

// functionPages() returns the functions of the language in their order, overloads together. pageOfWord() returns the page
// of a function or of another word of the language, or none. Names compare without regard to case.
std::vector<MemberPage> functionPages();
std::optional<MemberPage> pageOfWord(std::string_view word);

// Return the names that have pages: classes in order of registration, functions and other words of the language in
// alphabetical order, and all of them.
std::vector<std::string> classNames(const Registry& registry);
std::vector<std::string> functionNames();
std::vector<std::string> wordNames();
std::vector<std::string> pageNames(const Registry& registry);

} // namespace host::documentation
