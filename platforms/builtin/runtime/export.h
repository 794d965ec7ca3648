// Marks the definition of an exported function or constant. All other symbols are hidden.
#pragma once

#define BUILTIN_EXPORT __attribute__((visibility("default")))
