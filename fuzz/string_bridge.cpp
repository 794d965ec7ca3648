// Converts host strings to the platform and back. The first byte chooses the encoding, the second the host version.
#include "require.h"

#include "bridge/strings.h"
#include "entries/entries.h"
#include "foundation/string.h"
#include "runtime/host_version.h"
#include "runtime/start.h"
#include "values/platform.h"
#include "values/strings.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <optional>

using namespace chroma;
using fuzz::require;

namespace {

constexpr std::uint32_t unknownNumber = 0x0BADBAD;
constexpr std::uint32_t encodings[] = {host::encoding::macRoman,      host::encoding::utf16,   host::encoding::isoLatin1,
                                       host::encoding::windowsLatin1, host::encoding::ascii,   host::encoding::utf8,
                                       host::encoding::utf32,         host::encoding::unknown, unknownNumber};
constexpr double versions[] = {2011.0, 2012.5, 2013.0};

bool hostReturnsText = true;

const void* textOf(REALstringStruct* string, std::int32_t reserved) {
    const auto getText = reinterpret_cast<REALGetStringCFStringProc>(host::resolveEntry("REALGetStringCFString"));
    return hostReturnsText ? getText(string, reserved) : nullptr;
}

void* resolve(const char* entry) {
    return std::strcmp(entry, "REALGetStringCFString") == 0 ? reinterpret_cast<void*>(textOf) : host::resolveEntry(entry);
}

using Text = std::optional<std::u16string>;

// Returns the text that the platform receives, from the host's entry point or from the string's storage.
Text platformText(REALstringStruct* string, bool fromStorage) {
    hostReturnsText = !fromStorage;
    const CFStringRef converted = RBString2CFString(string);
    if (!converted) return std::nullopt;
    const Text text(static_cast<builtin::String*>(converted)->text());
    CFRelease(converted);
    return text;
}

bool isUnicode(std::u16string_view text) {
    for (std::size_t i = 0; i < text.size(); ++i) {
        if ((text[i] & 0xF800) != 0xD800) continue;
        if (text[i] >= 0xDC00 || ++i == text.size() || (text[i] & 0xFC00) != 0xDC00) return false;
    }
    return true;
}

// Requires that valid Unicode text returns as a host string, up to its first NUL, and that other text returns as the empty
// string.
void requireReturn(const std::u16string& text) {
    builtin::String* const string = builtin::newString(text);
    REALstringStruct* const back = NSStringRB(string);
    CFRelease(string);
    const std::u16string expected = isUnicode(text) ? text.substr(0, text.find(u'\0')) : u"";
    require(!back || host::encodingOf(back) == host::encoding::utf8, "a host string is UTF-8");
    require(platformText(back, false).value_or(u"") == expected, "text returns unchanged");
    host::unlock(back);
}

// Requires that text written in its original encoding has the same bytes and needs exactly their space.
void requireSameBytes(const std::u16string& text, std::string_view bytes, std::uint32_t encoding) {
    builtin::String* const string = builtin::newString(text);
    std::string written(bytes.size() + 1, '?');
    const auto room = static_cast<CFIndex>(written.size());
    require(!CFStringGetCString(string, written.data(), room - 1, encoding), "text that does not fit is refused");
    require(CFStringGetCString(string, written.data(), room, encoding) && written.substr(0, bytes.size()) == bytes,
            "bytes return unchanged");
    CFRelease(string);
}

// Returns the text as hosts without UTF-32 receive it. Surrogates are skipped, and values beyond Unicode are replaced.
std::u16string translated(std::string_view bytes) {
    std::u16string text;
    for (; bytes.size() >= sizeof(char32_t); bytes.remove_prefix(sizeof(char32_t))) {
        char32_t c;
        std::memcpy(&c, bytes.data(), sizeof c);
        if (c > 0x10FFFF) c = 0xFFFD;
        if (c >= 0xD800 && c < 0xE000) continue;
        if (c >= 0x10000) text += static_cast<char16_t>(0xD7C0 + (c >> 10));
        text += static_cast<char16_t>(c >= 0x10000 ? 0xDC00 + c % 0x400 : c);
    }
    return text;
}

// Requires that wide text becomes UTF-8, the same on every host if it is valid, and that other bytes stay unchanged.
void requireBuilt(std::string_view bytes, std::uint32_t encoding, const Text& valid) {
    REALstringStruct* const built = REALBuildUnicodeString(bytes.data(), static_cast<std::int64_t>(bytes.size()), encoding);
    if (encoding == host::encoding::utf16 || encoding == host::encoding::utf32) {
        const Text text = platformText(built, false);
        const bool isOld = encoding == host::encoding::utf32 && rbversion_rbversion < 2013;
        require(!built || (text && host::encodingOf(built) == host::encoding::utf8), "wide text becomes UTF-8");
        require(!valid || text.value_or(u"") == *valid, "valid wide text does not change");
        require(!isOld || text.value_or(u"") == translated(bytes), "old hosts receive translated UTF-32");
    } else {
        const bool isASCII = std::all_of(bytes.begin(), bytes.end(), [](char c) { return (c & 0x80) == 0; });
        const bool keepsEncoding = encoding == host::encoding::utf8 || encoding == unknownNumber;
        require(host::bytesOf(built) == bytes, "bytes do not change");
        require(host::encodingOf(built) == (isASCII && !keepsEncoding ? host::encoding::ascii : encoding),
                "bytes have the correct encoding");
    }
    host::unlock(built);
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    host::startHost();
    startPlugin(resolve, {});
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    constexpr std::size_t longest = 400; // exceeds every buffer on the stack for short text
    if (size < 3 || size > longest) return 0;
    const std::uint32_t encoding = encodings[data[0] % std::size(encodings)];
    rbversion_rbversion = versions[data[1] % std::size(versions)];
    const std::string_view bytes(reinterpret_cast<const char*>(data) + 2, size - 2);

    REALstringStruct* const string = host::newString(bytes, encoding);
    const Text converted = platformText(string, false), stored = platformText(string, true);
    host::unlock(string);
    require(converted == stored || (converted && stored && *converted == u'\uFEFF' + *stored),
            "the host's result and the string's storage agree");
    if (stored) requireReturn(*stored);

    // Text is valid if the host itself can read it.
    const void* const own = host::platform::newCFString(bytes, encoding);
    const Text valid = own ? converted : std::nullopt;
    if (own) host::platform::releaseCFString(own);
    const bool isWide = encoding == host::encoding::utf16 || encoding == host::encoding::utf32;
    if (valid && !isWide) requireSameBytes(*valid, bytes, encoding);
    requireBuilt(bytes, encoding, valid);
    require(host::liveStringCount() == 0, "nothing is leaked");
    return 0;
}
