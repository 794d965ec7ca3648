// Looks up the names of types and classes of a program in the host's registry.
#pragma once

#include "language/reading/syntax.h"

#include "model/classes.h"

namespace host::language {

// Returns the type that a name means. Throws CheckError.
Type typeOf(const syntax::Name& name);

// Returns the class that a name means, or null for Object, the class of every object. Throws CheckError.
ClassInfo* classOf(const syntax::Name& name);

// Returns a class that a Catch can name: RuntimeException or a class derived from it. Throws CheckError.
ClassInfo* exceptionClassOf(const syntax::Name& name);

} // namespace host::language
