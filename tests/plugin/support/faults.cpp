// The test programs link the plugin through these wrappers of what it calls, so that calls can be made to fail.
#include "support/faults.h"

#include "platform/guard.h"

namespace {

int remaining = 0;
bool failed = false;
chroma::id thrown = nullptr;

void throwIfAsked() {
    if (!thrown) return;
    const chroma::id object = thrown;
    thrown = nullptr;
    chroma::throwNative(object);
}

} // namespace

bool failAllocation(int n) {
    const bool hasFailed = failed;
    remaining = n;
    failed = false;
    return hasFailed;
}

void throwFromNextStringCall(chroma::id object) { thrown = object; }

// Visible, since the linker binds the shared libraries' references to these names too.
#pragma GCC visibility push(default)
extern "C" {

void* __real_calloc(std::size_t count, std::size_t size);
void* __wrap_calloc(std::size_t count, std::size_t size) {
    if (remaining > 0 && --remaining == 0) {
        failed = true;
        return nullptr;
    }
    return __real_calloc(count, size);
}

using namespace chroma;

CFStringRef __real_CFStringCreateWithBytes(CFAllocatorRef, const std::uint8_t*, CFIndex, CFStringEncoding, Boolean);
CFStringRef __wrap_CFStringCreateWithBytes(CFAllocatorRef allocator, const std::uint8_t* bytes, CFIndex count,
                                           CFStringEncoding encoding, Boolean external) {
    throwIfAsked();
    return __real_CFStringCreateWithBytes(allocator, bytes, count, encoding, external);
}

Boolean __real_CFStringGetCString(CFStringRef, char*, CFIndex, CFStringEncoding);
Boolean __wrap_CFStringGetCString(CFStringRef string, char* buffer, CFIndex capacity, CFStringEncoding encoding) {
    throwIfAsked();
    return __real_CFStringGetCString(string, buffer, capacity, encoding);
}
}
#pragma GCC visibility pop
