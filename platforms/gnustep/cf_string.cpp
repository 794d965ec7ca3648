// CoreFoundation strings are NSStrings. Text is converted with the builtin platform's strict rules instead of NSString's.
#include "builtin/corefoundation.h"
#include "platform/corefoundation.h"
#include "platform/selectors.h"
#include "text/encoding.h"

#include "export.h"

#include <cstdint>
#include <iterator>

namespace chroma {
namespace {

struct NSRange {
    NSUInteger location, length;
};

using NSStringEncoding = unsigned; // narrower than AppKit's

ClassName NSString{"NSString"};
Message<BOOL(NSStringEncoding)> canBeConvertedToEncoding_{"canBeConvertedToEncoding:"};
Message<BOOL(char*, NSUInteger, NSStringEncoding)> getCString_maxLength_encoding_{"getCString:maxLength:encoding:"};
Message<void(UniChar*, NSRange)> getCharacters_range_{"getCharacters:range:"};
Message<id(const UniChar*, NSUInteger)> initWithCharacters_length_{"initWithCharacters:length:"};

id newString(const UniChar* units, NSUInteger count) {
    return initWithCharacters_length_(sel::alloc(NSString), units, count);
}

// Calls use(text) with the units of a string; short strings are on the stack. Native exceptions unwind here, so text may
// live across messages.
template <class Use>
auto withText(CFStringRef string, Use use) {
    const auto length = static_cast<std::size_t>(CFStringGetLength(string));
    char16_t shortText[100];
    std::u16string longText;
    if (length > std::size(shortText)) longText.resize(length);
    char16_t* const units = longText.empty() ? shortText : longText.data();
    getCharacters_range_(string, reinterpret_cast<UniChar*>(units), NSRange{0, length});
    return use(std::u16string_view(units, length));
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
    if (!decodeText(view, encoding, isExternalRepresentation != 0, text)) return nullptr;
    return newString(reinterpret_cast<const UniChar*>(text.data()), text.size());
}

GNUSTEP_EXPORT CFIndex CFStringGetLength(CFStringRef string) { return static_cast<CFIndex>(sel::length(string)); }

GNUSTEP_EXPORT Boolean CFStringGetCString(CFStringRef string, char* buffer, CFIndex capacity, CFStringEncoding encoding) {
    if (!string || !buffer || capacity <= 0) return 0;
    // NSString itself copies ASCII text, the most frequent kind.
    constexpr NSStringEncoding asciiEncoding = 1;
    if (extendsAscii(encoding) && canBeConvertedToEncoding_(string, asciiEncoding) &&
        getCString_maxLength_encoding_(string, buffer, static_cast<NSUInteger>(capacity), asciiEncoding)) {
        return 1;
    }
    const bool isWritten = withText(string, [=](std::u16string_view text) {
        return encodeCString(text, encoding, buffer, static_cast<std::size_t>(capacity));
    });
    if (isWritten) return 1;
    buffer[0] = '\0';
    return 0;
}

GNUSTEP_EXPORT CFIndex CFStringGetBytes(CFStringRef string, CFRange range, CFStringEncoding encoding, std::uint8_t, Boolean,
                                        std::uint8_t* buffer, CFIndex capacity, CFIndex* usedBytes) {
    return withText(string, [=](std::u16string_view text) {
        const std::u16string_view part =
            text.substr(static_cast<std::size_t>(range.location), static_cast<std::size_t>(range.length));
        const Encoded written =
            encodeText(part, encoding, reinterpret_cast<char*>(buffer), static_cast<std::size_t>(capacity));
        *usedBytes = static_cast<CFIndex>(written.bytes);
        return static_cast<CFIndex>(written.units);
    });
}

} // namespace chroma
