// Names of types and classes in a program, looked up in the host's registry.
#pragma once

#include "language/reading/syntax.h"

#include "model/classes.h"

namespace host::language {

// The type that a name means. Throws CheckError.
Type typeOf(const syntax::Name& name);

// The class that a name means; null for Object, the class that every object is of. Throws CheckError.
ClassInfo* classOf(const syntax::Name& name);

// A class that a Catch can name: RuntimeException or one that descends from it. Throws CheckError.
ClassInfo* exceptionClassOf(const syntax::Name& name);

} // namespace host::language
