// Selectors: interned names.
#pragma once

#include "runtime/object.h"

#include <cstdint>

namespace chroma::builtin {

// Returns the name's entry and creates it at its first use. Throws std::bad_alloc. Does not register the platform's
// classes.
SEL internSelector(const char* name);

// Returns the number of selectors; every index is below it.
std::uint32_t selectorCount();

} // namespace chroma::builtin
