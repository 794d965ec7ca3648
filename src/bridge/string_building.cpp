#include "bridge/string_building.h"

#include "bridge/scratch.h"
#include "runtime/host_entries.h"
#include "runtime/host_values.h"
#include "runtime/host_version.h"

#include <cstdint>
#include <cstring>

namespace chroma {
namespace {

// Builds a string and then sets its encoding, as hosts of every version can.
REALstringStruct* buildTagged(const void* bytes, std::int32_t length, CFStringEncoding encoding) {
    REALstringStruct* const string = originalREALBuildString(bytes, length);
    if (string) onThrow([&] { REALSetStringEncoding(string, encoding); }, [&] { REALUnlockString(string); });
    return string;
}

// Converts to UTF-8 and releases the original. The host's conversion is also called for the null string.
REALstringStruct* convertedToUTF8(REALstringStruct* original) {
    REALstringStruct* result = nullptr;
    const auto convert = [&] { result = REALConvertString(original, kCFStringEncodingUTF8); };
    const auto releaseOriginal = [&] {
        if (original) REALUnlockString(original);
    };
    onThrow([&] { withCleanup(convert, releaseOriginal); },
            [&] {
                if (result) REALUnlockString(result);
            });
    return result;
}

bool isASCII(const void* bytes, std::int32_t length) {
    const auto* const text = static_cast<const std::uint8_t*>(bytes);
    for (std::int32_t i = 0; i < length; ++i)
        if (text[i] & 0x80) return false;
    return true;
}

// Writes the code points as UTF-16 and returns the number of units, at most two for each. Skips surrogates, and replaces
// values beyond Unicode by the replacement character.
std::size_t writeUTF16(const std::uint8_t* codePoints, std::size_t count, UniChar* units) {
    std::size_t written = 0;
    for (std::size_t i = 0; i < count; ++i) {
        const auto c = readField<std::uint32_t>(codePoints, static_cast<std::ptrdiff_t>(i * sizeof(std::uint32_t)));
        if (c > 0x10FFFF) {
            units[written++] = 0xFFFD;
        } else if (c >= 0x10000) {
            units[written++] = static_cast<UniChar>(0xD800 + ((c - 0x10000) >> 10));
            units[written++] = static_cast<UniChar>(0xDC00 + ((c - 0x10000) & 0x3FF));
        } else if (c < 0xD800 || c > 0xDFFF) {
            units[written++] = static_cast<UniChar>(c);
        }
    }
    return written;
}

// For hosts that do not know UTF-32. Ignores bytes after the last complete code point.
REALstringStruct* buildFromUTF32(const void* bytes, std::int32_t length) {
    const std::size_t count = static_cast<std::size_t>(length) / sizeof(std::uint32_t);
    REALstringStruct* result = nullptr;
    withScratch<UniChar, 128>(2 * count, [&](UniChar* units) {
        if (!units) return;
        const std::size_t written = writeUTF16(static_cast<const std::uint8_t*>(bytes), count, units);
        result = REALBuildUnicodeStringUTF16(units, static_cast<std::int64_t>(written * sizeof(UniChar)));
    });
    return result;
}

REALstringStruct* build(const void* bytes, std::int32_t length, CFStringEncoding encoding) {
    switch (encoding) {
    case kCFStringEncodingUnicode: return REALBuildUnicodeStringUTF16(bytes, length);
    case kCFStringEncodingUTF32:
        if (!hostConvertsUTF32()) return buildFromUTF32(bytes, length);
        return convertedToUTF8(REALBuildStringWithEncoding(bytes, length, encoding));
    case kCFStringEncodingMacRoman:
    case kCFStringEncodingISOLatin1:
    case kCFStringEncodingWindowsLatin1:
    case REALencodingUnknown: return buildTagged(bytes, length, isASCII(bytes, length) ? kCFStringEncodingASCII : encoding);
    default: return buildTagged(bytes, length, encoding);
    }
}

bool isBuildable(const void* bytes, std::int64_t length) { return bytes && length >= 1 && length <= INT32_MAX; }

} // namespace

REALstringStruct* buildString(const void* bytes, std::int64_t length, CFStringEncoding encoding) {
    return isBuildable(bytes, length) ? build(bytes, static_cast<std::int32_t>(length), encoding) : nullptr;
}

REALstringStruct* buildString(const char* text) {
    return buildString(text, static_cast<std::int64_t>(std::strlen(text)), kCFStringEncodingUTF8);
}

REALstringStruct* REALBuildUnicodeStringUTF16(const void* bytes, std::int64_t length) {
    if (!isBuildable(bytes, length)) return nullptr;
    const auto size = static_cast<std::int32_t>(length);
    if (hostBuildsStringsWithEncoding())
        return convertedToUTF8(REALBuildStringWithEncoding(bytes, size, kCFStringEncodingUnicode));
    REALstringStruct* const tagged = buildTagged(bytes, size, kCFStringEncodingUnicode);
    return tagged ? convertedToUTF8(tagged) : nullptr;
}

} // namespace chroma
