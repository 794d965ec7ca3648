// CoreFoundation strings.
#include "builtin/corefoundation.h"

#include "foundation/string.h"
#include "runtime/bootstrap.h"
#include "runtime/export.h"
#include "text/encoding.h"

#include <cstdint>
#include <cstring>

namespace chroma {

using builtin::String;

BUILTIN_EXPORT CFStringRef CFStringCreateWithBytes(CFAllocatorRef, const std::uint8_t* bytes, CFIndex count,
                                                   CFStringEncoding encoding, Boolean isExternalRepresentation) {
    if (count < 0 || (count > 0 && !bytes)) return nullptr;
    builtin::ensurePlatform();
    return builtin::orNull([&]() -> CFStringRef {
        const std::string_view view(reinterpret_cast<const char*>(bytes), static_cast<std::size_t>(count));
        if (extendsAscii(encoding) && isAscii(view)) return builtin::newAsciiString(view);
        std::u16string text;
        if (!decodeText(view, encoding, isExternalRepresentation != 0, text)) return nullptr;
        return builtin::newString(text);
    });
}

BUILTIN_EXPORT CFStringRef CFStringCreateWithCharacters(CFAllocatorRef, const UniChar* units, CFIndex count) {
    if (count < 0 || (count > 0 && !units)) return nullptr;
    builtin::ensurePlatform();
    const std::u16string_view text(reinterpret_cast<const char16_t*>(units), static_cast<std::size_t>(count));
    return builtin::orNull([&]() -> CFStringRef { return builtin::newString(text); });
}

BUILTIN_EXPORT CFIndex CFStringGetLength(CFStringRef string) {
    return string ? static_cast<CFIndex>(static_cast<String*>(string)->length) : 0;
}

BUILTIN_EXPORT Boolean CFStringGetCString(CFStringRef string, char* buffer, CFIndex capacity, CFStringEncoding encoding) {
    if (!string || !buffer || capacity <= 0) return 0;
    const String& text = *static_cast<String*>(string);
    const auto size = static_cast<std::size_t>(capacity);
    if (text.ascii) {
        if (extendsAscii(encoding) && text.length < size) {
            std::memcpy(buffer, text.ascii, text.length + 1);
            return 1;
        }
    } else if (encodeCString({text.units, text.length}, encoding, buffer, size)) {
        return 1;
    }
    buffer[0] = '\0';
    return 0;
}

BUILTIN_EXPORT CFIndex CFStringGetBytes(CFStringRef string, CFRange range, CFStringEncoding encoding, std::uint8_t, Boolean,
                                        std::uint8_t* buffer, CFIndex capacity, CFIndex* usedBytes) {
    *usedBytes = 0;
    return builtin::orNull([&]() -> CFIndex {
        const std::u16string text = static_cast<String*>(string)->text();
        const std::u16string_view part = std::u16string_view(text).substr(static_cast<std::size_t>(range.location),
                                                                          static_cast<std::size_t>(range.length));
        const Encoded written =
            encodeText(part, encoding, reinterpret_cast<char*>(buffer), static_cast<std::size_t>(capacity));
        *usedBytes = static_cast<CFIndex>(written.bytes);
        return static_cast<CFIndex>(written.units);
    });
}

} // namespace chroma
