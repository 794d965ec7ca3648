// Exports the language's words for editors.
#pragma once

#include "model/classes.h"

#include <iosfwd>

namespace host::documentation {

// Writes a TextMate grammar: keywords, types, the language's functions, and the classes of the registry.
void writeGrammar(const Registry& registry, std::ostream& out);

} // namespace host::documentation
