// The browser: what a registry holds, the words of the language, and what each is for, in plain text and as one Markdown
// page.
#pragma once

#include "model/classes.h"

#include <iosfwd>
#include <string_view>

namespace host::documentation {

constexpr std::size_t usualWidth = 100; // of lines, in characters

// A class with all its members; one member, of the class or inherited, with its overloads; without a member also a function
// or another word of the language, or the members of that name in any class; without a name everything, classes with a line
// each. Lines are broken at words. Throws std::invalid_argument, with the name that may have been meant, when there is
// nothing of that name.
void browse(const Registry& registry, std::string_view name, std::string_view member, std::size_t width, std::ostream& out);

// Everything, or one class, as a Markdown page. Throws like browse.
void writeReference(const Registry& registry, std::ostream& out);
void writeReference(const Registry& registry, std::string_view className, std::ostream& out);

// What browse shows of the same names, as JSON: {"classes": [...], "functions": [...], "words": [...]}, of which a name
// leaves one entry. Throws like browse.
void browseAsJson(const Registry& registry, std::string_view name, std::string_view member, std::ostream& out);

} // namespace host::documentation
