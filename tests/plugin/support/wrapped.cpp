// The linker wraps calloc and the message look-up of the test program, so that the plugin's allocations can fail and its
// messages are recorded.
#include "support/plugin_test.h"

#include <string_view>
#include <utility>

namespace {

int remaining = 0;
bool failed = false;

} // namespace

bool failAllocation(int n) {
    remaining = n;
    return std::exchange(failed, false);
}

extern "C" {
void* __real_calloc(std::size_t count, std::size_t size);

// Visible, because the linker binds the shared libraries' references to these names too.
__attribute__((visibility("default"))) void* __wrap_calloc(std::size_t count, std::size_t size) {
    if (remaining == 0 || --remaining > 0) return __real_calloc(count, size);
    failed = true;
    return nullptr;
}

chroma::IMP __real_objc_msg_lookup(chroma::id receiver, chroma::SEL selector);

__attribute__((visibility("default"))) chroma::IMP __wrap_objc_msg_lookup(chroma::id receiver, chroma::SEL selector) {
    if (!foreign::Host::instance().trace) return __real_objc_msg_lookup(receiver, selector);
    // Some guards query the class of a caught object.
    const std::string_view message = chroma::sel_getName(selector);
    if (message != "isKindOfClass:") foreign::Host::instance().note(std::string(message));
    return __real_objc_msg_lookup(receiver, selector);
}
}
