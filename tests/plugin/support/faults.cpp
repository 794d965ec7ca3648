// The test program is linked with calloc wrapped, so that allocations of the plugin can be made to fail.
#include "support/plugin_test.h"
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

// Visible, since the linker binds the shared libraries' references to this name too.
__attribute__((visibility("default"))) void* __wrap_calloc(std::size_t count, std::size_t size) {
    if (remaining == 0 || --remaining > 0) return __real_calloc(count, size);
    failed = true;
    return nullptr;
}
}
