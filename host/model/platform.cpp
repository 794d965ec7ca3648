#include "model/platform.h"

#include <limits>
#include <vector>

extern "C" {
struct objc_object;
struct objc_selector;
using Implementation = void (*)();

objc_object* objc_getClass(const char* name);
const objc_selector* sel_registerName(const char* name);
Implementation objc_msg_lookup(objc_object* receiver, const objc_selector* selector);

const void* CFStringCreateWithBytes(const void* allocator, const std::uint8_t* bytes, std::intptr_t count,
                                    std::uint32_t encoding, unsigned char isExternalRepresentation);
std::intptr_t CFStringGetLength(const void* string);
unsigned char CFStringGetCString(const void* string, char* buffer, std::intptr_t capacity, std::uint32_t encoding);
void CFRelease(const void* object);
}

namespace host::platform {

namespace {

template <class Result, class... Arguments>
Result sendFor(objc_object* receiver, const objc_selector* selector, Arguments... arguments) {
    if (!receiver) return Result();
    using Method = Result (*)(objc_object*, const objc_selector*, Arguments...);
    return reinterpret_cast<Method>(objc_msg_lookup(receiver, selector))(receiver, selector, arguments...);
}

// A message without arguments whose answer is an object or nothing.
objc_object* send(objc_object* receiver, const objc_selector* selector) { return sendFor<objc_object*>(receiver, selector); }

// The bytes of the first `units` UTF-16 units' worth of UTF-8: the text may hold NULs of its own.
std::size_t utf8Length(const char* text, std::intptr_t units) {
    std::size_t length = 0;
    while (units > 0) {
        const auto lead = static_cast<unsigned char>(text[length]);
        length += lead < 0x80 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
        units -= lead < 0xF0 ? 1 : 2;
    }
    return length;
}

} // namespace

// Looked up once: a pool is made for every statement.
AutoreleasePool::AutoreleasePool() {
    static objc_object* const poolClass = objc_getClass("NSAutoreleasePool");
    static const objc_selector* const alloc = sel_registerName("alloc");
    static const objc_selector* const init = sel_registerName("init");
    pool_ = send(send(poolClass, alloc), init);
}

AutoreleasePool::~AutoreleasePool() {
    static const objc_selector* const drain = sel_registerName("drain");
    send(static_cast<objc_object*>(pool_), drain);
}

const void* newCFString(std::string_view bytes, Encoding encoding) {
    const auto* const start = reinterpret_cast<const std::uint8_t*>(bytes.data());
    return CFStringCreateWithBytes(nullptr, start, static_cast<std::intptr_t>(bytes.size()), encoding, 0);
}

void releaseCFString(const void* string) { CFRelease(string); }

std::optional<std::string> textOf(const void* string, Encoding encoding) {
    const std::intptr_t units = CFStringGetLength(string);
    if (units > std::numeric_limits<std::int32_t>::max() / 4) return std::nullopt;
    std::vector<char> buffer(static_cast<std::size_t>(units) * 4 + 1); // a unit takes at most three bytes
    if (!CFStringGetCString(string, buffer.data(), static_cast<std::intptr_t>(buffer.size()), encoding)) return std::nullopt;
    const bool isUtf8 = encoding == encoding::utf8;
    return std::string(buffer.data(), isUtf8 ? utf8Length(buffer.data(), units) : static_cast<std::size_t>(units));
}

std::vector<std::string> keysOfColorList(void* list) {
    objc_object* const keys = send(static_cast<objc_object*>(list), sel_registerName("allKeys"));
    const auto count = sendFor<std::uintptr_t>(keys, sel_registerName("count"));
    std::vector<std::string> texts;
    for (std::uintptr_t i = 0; i < count; ++i) {
        const void* const key = sendFor<objc_object*>(keys, sel_registerName("objectAtIndex:"), i);
        texts.push_back(textOf(key, encoding::utf8).value_or(""));
    }
    return texts;
}

} // namespace host::platform
