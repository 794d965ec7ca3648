#include "model/strings.h"

#include "model/platform.h"
#include "model/storage.h"

#include <algorithm>
#include <cstdlib>
#include <limits>
#include <new>

// The contract's two fields lie across the natural alignment, so they are bytes here. The buffer follows the record: a
// length prefix (at most 255), the text, and a terminating NUL that belongs to no one's length.
struct REALstringStruct {
    std::int32_t references;
    unsigned char fields[12];
    host::Encoding encoding;
};
static_assert(REALstringLengthOffset + sizeof(std::int32_t) <= offsetof(REALstringStruct, encoding));

namespace host {

namespace {

std::size_t liveStrings = 0;

bool isAscii(std::string_view bytes) {
    return std::none_of(bytes.begin(), bytes.end(), [](char c) { return (static_cast<unsigned char>(c) & 0x80) != 0; });
}

// Whether bytes below 0x80 are ASCII characters in the encoding, and nothing else is.
bool extendsAscii(Encoding encoding) {
    return encoding == encoding::utf8 || encoding == encoding::ascii || encoding == encoding::macRoman ||
           encoding == encoding::isoLatin1 || encoding == encoding::windowsLatin1 || encoding == encoding::unknown;
}

template <class Unit>
void append(std::string& bytes, Unit unit) {
    const std::size_t end = bytes.size();
    bytes.resize(end + sizeof unit);
    writeAt(bytes.data(), end, unit);
}

// Well-formed UTF-8 as UTF-16 or UTF-32 in the machine's byte order.
std::string widen(std::string_view utf8, Encoding encoding) {
    std::string bytes;
    for (std::size_t i = 0; i < utf8.size();) {
        const auto lead = static_cast<unsigned char>(utf8[i]);
        const std::size_t length = lead < 0x80 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
        std::uint32_t character = length == 1 ? lead : lead & (0x7Fu >> length);
        for (std::size_t k = 1; k < length; ++k)
            character = character << 6 | (static_cast<unsigned char>(utf8[i + k]) & 0x3Fu);
        i += length;
        if (encoding == encoding::utf32) {
            append(bytes, character);
        } else if (character < 0x10000) {
            append(bytes, static_cast<std::uint16_t>(character));
        } else {
            append(bytes, static_cast<std::uint16_t>(0xD800 + ((character - 0x10000) >> 10)));
            append(bytes, static_cast<std::uint16_t>(0xDC00 + ((character - 0x10000) & 0x3FF)));
        }
    }
    return bytes;
}

std::optional<std::string> converted(const String* string, Encoding to) {
    const Encoding from = encodingOf(string);
    const std::string_view bytes = bytesOf(string);
    if (from == to || (extendsAscii(from) && extendsAscii(to) && isAscii(bytes))) return std::string(bytes);

    const void* const text = platform::newCFString(bytes, from == encoding::unknown ? encoding::macRoman : from);
    if (!text) return std::nullopt;
    const bool wide = to == encoding::utf16 || to == encoding::utf32;
    std::optional<std::string> result = platform::textOf(text, wide ? encoding::utf8 : to);
    platform::releaseCFString(text);
    if (result && wide) result = widen(*result, to);
    return result;
}

} // namespace

String* newString(std::string_view bytes, Encoding encoding) {
    if (bytes.empty() || bytes.size() > static_cast<std::size_t>(std::numeric_limits<std::int32_t>::max())) return nullptr;
    void* const memory = std::malloc(sizeof(String) + 1 + bytes.size() + 1);
    if (!memory) return nullptr;
    auto* const string = new (memory) String{1, {}, encoding};
    unsigned char* const buffer = addressAt(string, sizeof(String));
    buffer[0] = static_cast<unsigned char>(std::min<std::size_t>(bytes.size(), 255));
    std::memcpy(buffer + 1, bytes.data(), bytes.size());
    buffer[1 + bytes.size()] = 0;
    writeAt(string, REALstringBufferOffset, buffer);
    writeAt(string, REALstringLengthOffset, static_cast<std::int32_t>(bytes.size()));
    ++liveStrings;
    return string;
}

void lock(String* string) {
    if (string) ++string->references;
}

void unlock(String* string) {
    if (!string || --string->references != 0) return;
    --liveStrings;
    std::free(string);
}

std::string_view bytesOf(const String* string) {
    if (!string) return {};
    const auto* const text = readAt<const char*>(string, REALstringBufferOffset) + 1;
    return {text, static_cast<std::size_t>(readAt<std::int32_t>(string, REALstringLengthOffset))};
}

Encoding encodingOf(const String* string) { return string ? string->encoding : encoding::unknown; }

void setEncoding(String* string, Encoding encoding) {
    if (string) string->encoding = encoding;
}

String* convert(const String* string, Encoding encoding) {
    if (!string) return nullptr;
    const std::optional<std::string> bytes = converted(string, encoding);
    return bytes ? newString(*bytes, encoding) : nullptr;
}

std::string utf8Of(const String* string) { return string ? converted(string, encoding::utf8).value_or(std::string()) : ""; }

String* concatenate(const String* a, const String* b) {
    std::string joined;
    if (!a || !b || encodingOf(a) == encodingOf(b)) {
        joined.append(bytesOf(a)).append(bytesOf(b));
        return newString(joined, encodingOf(a ? a : b));
    }
    return newString(utf8Of(a) + utf8Of(b));
}

int compare(const String* a, const String* b, bool ignoringCase) {
    std::string left = utf8Of(a);
    std::string right = utf8Of(b);
    if (ignoringCase) {
        for (std::string* text : {&left, &right}) {
            for (char& c : *text) {
                if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
            }
        }
    }
    return left.compare(right); // UTF-8 sorts like its code points
}

std::size_t liveStringCount() { return liveStrings; }

} // namespace host
