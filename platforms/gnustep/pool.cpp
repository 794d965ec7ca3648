// Hosts that do not know GNUstep have no pool, and GNUstep logs every object that is autoreleased without one. One pool
// around the program receives the objects for which the host has no pool.
#include "platform/selectors.h"

namespace chroma {
namespace {

[[gnu::constructor]] void openOutermostPool() {
    ClassName NSAutoreleasePool{"NSAutoreleasePool"};
    Message<id()> init{"init"};
    init(sel::alloc(NSAutoreleasePool));
}

} // namespace
} // namespace chroma
