// Shows the contents of a registry and the words of the language with their explanations, in plain text, as one Markdown
// page or as JSON.
#pragma once

#include "model/classes.h"

#include <iosfwd>
#include <string_view>

namespace host::documentation {

constexpr std::size_t usualWidth = 100; // of lines, in characters

// Writes what the names select, with lines broken at words:
// - a class and a member: the member, of the class or inherited, with its overloads;
// - only a class: the class with all its members;
// - a function or another word of the language: its page;
// - the name of a member: the members of that name in any class;
// - no name: everything, with a line for each class.
// If nothing has the name, throws std::invalid_argument, whose message suggests a similar name.
void browse(const Registry& registry, std::string_view name, std::string_view member, std::size_t width, std::ostream& out);

// Writes everything, or one class, as a Markdown page. Throws like browse.
void writeReference(const Registry& registry, std::ostream& out);
void writeReference(const Registry& registry, std::string_view className, std::ostream& out);

// Writes what browse shows for the same names as JSON: {"classes": [...], "functions": [...], "words": [...]}. A name
// leaves only its entry. Throws like browse.
void browseAsJson(const Registry& registry, std::string_view name, std::string_view member, std::ostream& out);

} // namespace host::documentation
