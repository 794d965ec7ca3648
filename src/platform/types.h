// The types of the platform's runtime, with each platform's width. These are our own declarations; no vendor header is
// used.
#pragma once

#include <cstdint>

namespace chroma {

struct Object;
using id = Object*;

struct SelectorEntry;
using SEL = const SelectorEntry*;

using IMP = void (*)();

// The platform's component type. The plugin narrows every double of the host to single precision first, whatever this type
// is.
#if defined(__LP64__)
using CGFloat = double;
#else
using CGFloat = float;
#endif

using NSInteger = std::intptr_t;
using NSUInteger = std::uintptr_t;

// The integers of colour spaces, and positions in colour lists: not every platform declares them as NSInteger.
#if defined(CHROMA_NARROW_INTEGERS)
using SpaceInteger = int;
using ListIndex = unsigned;
#else
using SpaceInteger = NSInteger;
using ListIndex = NSUInteger;
#endif

// A byte, 0 for NO.
#if defined(__APPLE__) && defined(__arm64__)
using BOOL = bool;
#elif defined(__APPLE__)
using BOOL = signed char;
#else
using BOOL = unsigned char;
#endif

} // namespace chroma
