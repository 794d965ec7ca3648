// CoreFoundation strings are NSStrings. Text is converted by the same strict rules as on the builtin platform, not by NSString's own.
#include "corefoundation/text_encoding.h"
#include "platform/corefoundation.h"
#include "platform/selectors.h"

#include "export.h"

namespace chroma {
namespace {

struct NSRange {
    NSUInteger location, length;
};

ClassName NSString{"NSString"};
Selector getCharacters_range_{"getCharacters:range:"};
Selector initWithCharacters_length_{"initWithCharacters:length:"};

id newString(const UniChar* units, NSUInteger count) {
    return send<id>(send<id>(NSString, sel::alloc), initWithCharacters_length_, units, count);
}

// Native exceptions unwind here, so text may live across messages.
std::u16string textOf(CFStringRef string) {
    std::u16string text(static_cast<std::size_t>(CFStringGetLength(string)), u'\0');
    send<void>(string, getCharacters_range_, reinterpret_cast<UniChar*>(text.data()), NSRange{0, text.size()});
    return text;
}

} // namespace

GNUSTEP_EXPORT CFStringRef CFStringCreateWithCharacters(CFAllocatorRef, const UniChar* units, CFIndex count) {
    if (count < 0 || (count > 0 && !units)) return nullptr;
    return newString(units, static_cast<NSUInteger>(count));
}

GNUSTEP_EXPORT CFStringRef CFStringCreateWithBytes(CFAllocatorRef, const std::uint8_t* bytes, CFIndex count,
                                                   CFStringEncoding encoding, Boolean isExternalRepresentation) {
    if (count < 0 || (count > 0 && !bytes)) return nullptr;
    std::u16string text;
    const std::string_view view(reinterpret_cast<const char*>(bytes), static_cast<std::size_t>(count));
    if (!builtin::decodeText(view, encoding, isExternalRepresentation != 0, text)) return nullptr;
    return newString(reinterpret_cast<const UniChar*>(text.data()), text.size());
}

GNUSTEP_EXPORT CFIndex CFStringGetLength(CFStringRef string) {
    return static_cast<CFIndex>(send<NSUInteger>(string, sel::length));
}

GNUSTEP_EXPORT Boolean CFStringGetCString(CFStringRef string, char* buffer, CFIndex capacity, CFStringEncoding encoding) {
    if (!string || !buffer || capacity <= 0) return 0;
    if (builtin::encodeText(textOf(string), encoding, buffer, static_cast<std::size_t>(capacity))) return 1;
    buffer[0] = '\0';
    return 0;
}

} // namespace chroma
