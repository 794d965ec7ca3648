// Marks the definition of a function or constant that the library exports. Everything else stays inside.
#pragma once

#define BUILTIN_EXPORT __attribute__((visibility("default")))
