// The C library's headers are those of another system and processor. This file defines the types that differ, for each
// slice; the rest comes from the library. It is included many times, each time for the requested types.
#if defined(__NEED_int64_t) && !defined(__DEFINED_int64_t)
typedef __INT64_TYPE__ int64_t;
#define __DEFINED_int64_t
#endif
#if defined(__NEED_uint64_t) && !defined(__DEFINED_uint64_t)
typedef __UINT64_TYPE__ uint64_t;
#define __DEFINED_uint64_t
#endif
#if defined(__NEED_intmax_t) && !defined(__DEFINED_intmax_t)
typedef __INTMAX_TYPE__ intmax_t;
#define __DEFINED_intmax_t
#endif
#if defined(__NEED_uintmax_t) && !defined(__DEFINED_uintmax_t)
typedef __UINTMAX_TYPE__ uintmax_t;
#define __DEFINED_uintmax_t
#endif

#include_next <bits/alltypes.h>

#undef __LONG_MAX
#define __LONG_MAX __LONG_MAX__
