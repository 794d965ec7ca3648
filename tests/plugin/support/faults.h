// Making the calls fail that the plugin makes of the C library and of CoreFoundation.
#pragma once

#include "platform/corefoundation.h"

#include <cstddef>

// Lets the n-th allocation from now on fail (1 is the next); 0 stops that. Answers whether one has failed since the last call.
bool failAllocation(int n);

// Lets the next CFStringCreateWithBytes or CFStringGetCString throw the object as a native exception instead.
void throwFromNextStringCall(chroma::id object);
