// The only function of the runtime's interface that GNUstep's runtime has only in its headers.
#include "platform/objc.h"

#include "export.h"

namespace chroma {

// An object starts with its class.
GNUSTEP_EXPORT id object_getClass(id object) { return object ? *reinterpret_cast<id*>(object) : nullptr; }

} // namespace chroma
