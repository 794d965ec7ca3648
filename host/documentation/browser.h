// The class browser: what a registry holds and what it is for, in plain text and as one Markdown page.
#pragma once

#include "model/classes.h"

#include <iosfwd>
#include <string_view>

namespace host::documentation {

// The classes, a line each.
void browseClasses(const Registry& registry, std::ostream& out);

// One class with all its members; one member, of the class or inherited, with its overloads. Throw std::invalid_argument,
// with the name that may have been meant, when there is no such class or member.
void browseClass(const Registry& registry, std::string_view className, std::ostream& out);
void browseMember(const Registry& registry, std::string_view className, std::string_view member, std::ostream& out);

// All classes as a Markdown page.
void writeReference(const Registry& registry, std::ostream& out);

} // namespace host::documentation
