// Release of any CoreFoundation reference.
#include "builtin/corefoundation.h"

#include "runtime/export.h"
#include "runtime/lifetime.h"

namespace chroma {

// A reference is an object of this runtime; only its const-ness is CoreFoundation's.
static id objectOf(CFTypeRef reference) { return static_cast<id>(const_cast<void*>(reference)); }

BUILTIN_EXPORT void CFRelease(CFTypeRef object) { builtin::release(objectOf(object)); }

} // namespace chroma
