// The language's words as an editor wants them.
#pragma once

#include "model/classes.h"

#include <iosfwd>

namespace host::documentation {

// A TextMate grammar: keywords, types, the language's functions, and the classes of the registry.
void writeGrammar(const Registry& registry, std::ostream& out);

} // namespace host::documentation
