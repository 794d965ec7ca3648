// Compiled into every slice: checks that the C headers, whatever their origin, define this system's types.
#include "platform/objc.h"

#include <climits>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <type_traits>

namespace chroma {

template <class A, class B>
constexpr bool same = std::is_same_v<A, B>;

static_assert(same<std::int64_t, long long> && same<std::uint64_t, unsigned long long> && sizeof(std::int64_t) == 8);
static_assert(same<std::int32_t, int> && same<std::int16_t, short> && same<std::int8_t, signed char>);
static_assert(same<std::intptr_t, long> && same<std::uintptr_t, unsigned long> && sizeof(std::intptr_t) == sizeof(void*));
static_assert(same<std::size_t, unsigned long> && sizeof(std::size_t) == sizeof(void*));
static_assert(SIZE_MAX == std::numeric_limits<std::size_t>::max() && LONG_MAX == std::numeric_limits<long>::max());
static_assert(INTPTR_MAX == std::numeric_limits<std::intptr_t>::max() && INT64_MAX == std::numeric_limits<long long>::max());

#if defined(__LP64__)
static_assert(sizeof(void*) == 8 && same<CGFloat, double>);
#else
static_assert(sizeof(void*) == 4 && same<CGFloat, float>);
#endif
#if defined(__arm64__)
static_assert(same<BOOL, bool>);
#else
static_assert(same<BOOL, signed char>);
#endif

} // namespace chroma
