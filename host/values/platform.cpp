#include "values/platform.h"

#include "builtin/corefoundation.h"
#include "builtin/objc_runtime.h"

#include <dlfcn.h>

#include <cstdint>
#include <limits>
#include <vector>

namespace host::platform {

namespace {

using namespace chroma;

template <class Result, class... Arguments>
Result sendFor(id receiver, SEL selector, Arguments... arguments) {
    if (!receiver) return Result();
    using Method = Result (*)(id, SEL, Arguments...);
    return reinterpret_cast<Method>(objc_msg_lookup(receiver, selector))(receiver, selector, arguments...);
}

// Sends a message without arguments that returns an object or nothing.
id send(id receiver, SEL selector) { return sendFor<id>(receiver, selector); }

} // namespace

// Looked up once, because every statement creates a pool.
AutoreleasePool::AutoreleasePool() {
    static const id poolClass = objc_getClass("NSAutoreleasePool");
    static const SEL alloc = sel_registerName("alloc");
    static const SEL init = sel_registerName("init");
    pool_ = send(send(poolClass, alloc), init);
}

AutoreleasePool::~AutoreleasePool() {
    static const SEL drain = sel_registerName("drain");
    send(static_cast<id>(pool_), drain);
}

const void* newCFString(std::string_view bytes, Encoding encoding) {
    const auto* const start = reinterpret_cast<const std::uint8_t*>(bytes.data());
    return CFStringCreateWithBytes(nullptr, start, static_cast<std::intptr_t>(bytes.size()), encoding, 0);
}

void releaseCFString(const void* string) { CFRelease(string); }

std::optional<std::string> textOf(const void* string, Encoding encoding) {
    const id text = static_cast<id>(const_cast<void*>(string));
    const std::intptr_t units = CFStringGetLength(text);
    if (units > std::numeric_limits<std::int32_t>::max() / 4) return std::nullopt;
    std::string bytes(static_cast<std::size_t>(units) * 4, '\0'); // no encoding needs more bytes per unit
    auto* const buffer = reinterpret_cast<std::uint8_t*>(bytes.data());
    std::intptr_t used = 0;
    const auto capacity = static_cast<std::intptr_t>(bytes.size());
    if (CFStringGetBytes(text, {0, units}, encoding, 0, 0, buffer, capacity, &used) < units) return std::nullopt;
    bytes.resize(static_cast<std::size_t>(used));
    return bytes;
}

std::vector<std::string> keysOfColorList(void* list) {
    const id keys = send(static_cast<id>(list), sel_registerName("allKeys"));
    const auto count = sendFor<std::uintptr_t>(keys, sel_registerName("count"));
    std::vector<std::string> texts;
    for (std::uintptr_t i = 0; i < count; ++i) {
        const void* const key = sendFor<id>(keys, sel_registerName("objectAtIndex:"), i);
        texts.push_back(textOf(key, encoding::utf8).value_or(""));
    }
    return texts;
}

std::size_t registeredObjectCount() {
    const id owner = objc_getClass("NSException");
    const SEL registry = sel_registerName("GetInstancesDictionaryZRX");
    if (sendFor<BOOL>(owner, sel_registerName("respondsToSelector:"), registry) == 0) return 0;
    return static_cast<std::size_t>(CFDictionaryGetCount(sendFor<CFMutableDictionaryRef>(owner, registry)));
}

std::string library() {
    Dl_info info = {};
    const auto address = reinterpret_cast<const void*>(&CFRelease);
    return dladdr(address, &info) != 0 && info.dli_fname ? info.dli_fname : "";
}

} // namespace host::platform
