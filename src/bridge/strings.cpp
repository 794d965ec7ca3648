#include "bridge/strings.h"

#include "bridge/errors.h"
#include "bridge/scratch.h"
#include "bridge/string_building.h"
#include "platform/selectors.h"
#include "runtime/host_entries.h"
#include "runtime/host_values.h"
#include "runtime/host_version.h"

#include <cstdint>
#include <cstring>

namespace chroma {
namespace {

// Copies the units first, because the storage of a UTF-16 string starts at an odd address.
CFStringRef fromStoredUTF16(StoredBytes text) {
    const std::size_t units = static_cast<std::size_t>(text.length) / sizeof(UniChar);
    CFStringRef result = nullptr;
    withScratch<UniChar, 128>(units, [&](UniChar* copy) {
        if (!copy) return;
        std::memcpy(copy, text.bytes, units * sizeof(UniChar));
        result = CFStringCreateWithCharacters(nullptr, copy, static_cast<CFIndex>(units));
    });
    return result;
}

// Returns a platform string from the text that the host string stores, read in the given encoding.
CFStringRef fromStorage(REALstringStruct* string, CFStringEncoding encoding) {
    CFStringRef result = nullptr;
    const auto read = [&] {
        const StoredBytes text = storedText(string);
        if (!text.bytes || text.length < 0) return;
        result = encoding == kCFStringEncodingUnicode
                     ? fromStoredUTF16(text)
                     : CFStringCreateWithBytes(nullptr, text.bytes, text.length, encoding, true);
    };
    REALLockString(string);
    onThrow([&] { withCleanup(read, [&] { REALUnlockString(string); }); },
            [&] {
                if (result) CFRelease(result);
            });
    return result;
}

// Returns the host's own conversion, or null if the host has none.
CFStringRef convertedByHost(REALstringStruct* string) {
    const void* text = nullptr;
    if (hostBuildsStringsWithEncoding()) text = REALCopyStringCFString(string, 0);
    if (!text) text = REALGetStringCFString(string, 0);
    return static_cast<CFStringRef>(const_cast<void*>(text));
}

} // namespace

CFStringRef RBString2CFString(REALstringStruct* string) {
    if (!string) return nullptr;
    const CFStringEncoding encoding = REALGetStringEncoding(string);
    if (encoding == REALencodingUnknown) return fromStorage(string, kCFStringEncodingMacRoman);
    if (const CFStringRef converted = convertedByHost(string)) return converted;
    return fromStorage(string, encoding);
}

id autoreleasedString(REALstringStruct* string) { return sel::autorelease(RBString2CFString(string)); }

REALstringStruct* NSStringRB(id string) {
    REALstringStruct* result = nullptr;
    withUTF8(string, [&](const char* text) {
        if (text) result = REALBuildUnicodeString(text, static_cast<std::int64_t>(std::strlen(text)), kCFStringEncodingUTF8);
    });
    return result;
}

REALstringStruct* REALBuildUnicodeString(const void* bytes, std::int64_t length, CFStringEncoding encoding) {
    REALstringStruct* result = nullptr;
    translated([&] { result = buildString(bytes, length, encoding); });
    return result;
}

} // namespace chroma
