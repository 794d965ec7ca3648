// Selectors: interned names.
#pragma once

#include "runtime/object.h"

#include <cstdint>

namespace chroma::builtin {

// The entry of a name, made at its first use. Throws std::bad_alloc. Needs no registration of the platform's classes.
SEL internSelector(const char* name);

// How many selectors there are: every index is below.
std::uint32_t selectorCount();

} // namespace chroma::builtin
