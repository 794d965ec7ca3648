// Hosts that know nothing of GNUstep have no pool for what is autoreleased, and GNUstep complains of every such object. One
// pool around the whole program takes what no pool of the host's own does.
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
