// CoreFoundation strings.
#include "builtin/corefoundation.h"

#include "foundation/string.h"
#include "runtime/bootstrap.h"
#include "runtime/export.h"
#include "text/encoding.h"

#include <cstring>

namespace chroma {

using builtin::String;

BUILTIN_EXPORT CFStringRef CFStringCreateWithBytes(CFAllocatorRef, const std::uint8_t* bytes, CFIndex count,
                                                   CFStringEncoding encoding, Boolean isExternalRepresentation) {
    if (count < 0 || (count > 0 && !bytes)) return nullptr;
    builtin::ensurePlatform();
    return builtin::orNull([&]() -> CFStringRef {
        std::u16string text;
        const std::string_view view(reinterpret_cast<const char*>(bytes), static_cast<std::size_t>(count));
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
    if (encodeText(static_cast<String*>(string)->text(), encoding, buffer, static_cast<std::size_t>(capacity))) return 1;
    buffer[0] = '\0';
    return 0;
}

} // namespace chroma
