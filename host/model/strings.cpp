#include "model/strings.h"

#include "model/platform.h"
#include "model/storage.h"
#include "text/letters.h"
#include "text/utf8.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <limits>
#include <new>

// The contract's two fields are not naturally aligned, so they are bytes here. The buffer follows the record: a length
// prefix (at most 255), the text, and a terminating NUL that no length includes.
struct REALstringStruct {
    std::int32_t references;
    unsigned char fields[12];
    host::Encoding encoding;
    std::int32_t capacity; // how many bytes of text there is memory for
    // The number of characters of UTF-8 text, and of ASCII text in any encoding (then equal to the number of bytes);
    // otherwise -1.
    std::int32_t characters;
    mutable std::int32_t lastCharacter; // the character that was looked up last, and its byte offset
    mutable std::int32_t lastOffset;
};
static_assert(REALstringLengthOffset + sizeof(std::int32_t) <= offsetof(REALstringStruct, encoding));

namespace host {

namespace {

std::size_t liveStrings = 0;
bool keepsAllStrings = false;

bool isAscii(std::string_view bytes) {
    return std::none_of(bytes.begin(), bytes.end(), [](char c) { return (static_cast<unsigned char>(c) & 0x80) != 0; });
}

// Returns whether the encoding represents the ASCII characters, and nothing else, by bytes below 0x80.
bool extendsAscii(Encoding encoding) {
    return encoding == encoding::utf8 || encoding == encoding::ascii || encoding == encoding::macRoman ||
           encoding == encoding::isoLatin1 || encoding == encoding::windowsLatin1 || encoding == encoding::unknown;
}

std::int32_t countCharacters(std::string_view bytes, Encoding encoding) {
    if (encoding == encoding::utf8) return static_cast<std::int32_t>(utf8::length(bytes));
    return extendsAscii(encoding) && isAscii(bytes) ? static_cast<std::int32_t>(bytes.size()) : -1;
}

// Sets text and length; the capacity must suffice.
void setText(String* string, std::size_t start, std::string_view bytes) {
    unsigned char* const buffer = addressAt(string, sizeof(String));
    const std::size_t length = start + bytes.size();
    buffer[0] = static_cast<unsigned char>(std::min<std::size_t>(length, 255));
    std::memcpy(buffer + 1 + start, bytes.data(), bytes.size());
    buffer[1 + length] = 0;
    writeAt(string, REALstringBufferOffset, buffer);
    writeAt(string, REALstringLengthOffset, static_cast<std::int32_t>(length));
}

constexpr std::size_t maxLength = std::numeric_limits<std::int32_t>::max();
constexpr std::size_t besideText = sizeof(String) + 1 + 1;

String* newStringWithRoom(std::string_view bytes, Encoding encoding, std::size_t room) {
    if (bytes.empty() || bytes.size() > maxLength) return nullptr;
    const std::size_t capacity = std::max(bytes.size(), std::min(room, maxLength));
    void* const memory = std::malloc(besideText + capacity);
    if (!memory) return nullptr;
    auto* const string =
        new (memory) String{1, {}, encoding, static_cast<std::int32_t>(capacity), countCharacters(bytes, encoding), 0, 0};
    setText(string, 0, bytes);
    ++liveStrings;
    return string;
}

// Returns whether the stored bytes are the text in UTF-8.
bool isStoredAsUtf8(const String* string) { return string->encoding == encoding::utf8 || string->characters >= 0; }

std::optional<std::string> converted(const String* string, Encoding to) {
    const Encoding from = encodingOf(string);
    const std::string_view bytes = bytesOf(string);
    if (from == to || (extendsAscii(from) && extendsAscii(to) && isAscii(bytes))) return std::string(bytes);

    const void* const text = platform::newCFString(bytes, from == encoding::unknown ? encoding::macRoman : from);
    if (!text) return std::nullopt;
    std::optional<std::string> result = platform::textOf(text, to);
    platform::releaseCFString(text);
    return result;
}

} // namespace

String* newString(std::string_view bytes, Encoding encoding) { return newStringWithRoom(bytes, encoding, 0); }

void lock(String* string) {
    if (string) ++string->references;
}

void unlock(String* string) {
    if (!string || --string->references != 0 || keepsAllStrings) return;
    --liveStrings;
    std::free(string);
}

void keepAllStrings() { keepsAllStrings = true; }

std::string_view bytesOf(const String* string) {
    if (!string) return {};
    const auto* const text = readAt<const char*>(string, REALstringBufferOffset) + 1;
    return {text, static_cast<std::size_t>(readAt<std::int32_t>(string, REALstringLengthOffset))};
}

Encoding encodingOf(const String* string) { return string ? string->encoding : encoding::unknown; }

void setEncoding(String* string, Encoding encoding) {
    if (!string) return;
    string->encoding = encoding;
    string->characters = countCharacters(bytesOf(string), encoding);
    string->lastCharacter = string->lastOffset = 0;
}

TextOf::TextOf(const String* string) : string_(string && isStoredAsUtf8(string) ? string : nullptr) {
    if (string && !string_) copy_ = utf8Of(string);
    bytes_ = string_ ? bytesOf(string_) : std::string_view(copy_);
}

std::size_t TextOf::length() const { return string_ ? static_cast<std::size_t>(string_->characters) : utf8::length(bytes_); }

std::size_t TextOf::offsetOf(std::size_t character) const {
    if (!string_) return utf8::offsetOf(bytes_, character);
    const std::size_t length = this->length();
    if (character >= length) return bytes_.size();
    if (length == bytes_.size()) return character;
    auto last = static_cast<std::size_t>(string_->lastCharacter);
    auto offset = static_cast<std::size_t>(string_->lastOffset);
    if (character < last / 2) last = offset = 0;
    if (character >= last) {
        offset += utf8::offsetOf(bytes_.substr(offset), character - last);
    } else {
        for (; last > character; --last)
            offset = utf8::floor(bytes_, offset - 1);
    }
    string_->lastCharacter = static_cast<std::int32_t>(character);
    string_->lastOffset = static_cast<std::int32_t>(offset);
    return offset;
}

std::size_t TextOf::characterAt(std::size_t offset) const {
    if (!string_) return utf8::length(bytes_.substr(0, offset));
    if (length() == bytes_.size()) return offset;
    const auto last = static_cast<std::size_t>(string_->lastOffset);
    const auto before = static_cast<std::size_t>(string_->lastCharacter);
    return offset < last ? utf8::length(bytes_.substr(0, offset))
                         : before + utf8::length(bytes_.substr(last, offset - last));
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

String* append(String* a, const String* b) {
    if (!b) return a;
    const std::string_view bytes = bytesOf(b);
    const std::size_t length = bytesOf(a).size();
    const bool inPlace = a && a->references == 1 && a != b && a->encoding == b->encoding && a->characters >= 0 &&
                         b->characters >= 0 && length + bytes.size() <= static_cast<std::size_t>(a->capacity);
    if (inPlace) {
        setText(a, length, bytes);
        a->characters += b->characters;
        return a;
    }
    String* joined = nullptr;
    if (a && a->encoding == b->encoding) {
        std::string text;
        text.reserve(length + bytes.size());
        text.append(bytesOf(a)).append(bytes);
        joined = newStringWithRoom(text, a->encoding, text.size() * 2);
    } else {
        joined = concatenate(a, b);
    }
    if (!joined) throw std::bad_alloc();
    unlock(a);
    return joined;
}

int compare(const String* a, const String* b, bool ignoringCase) {
    const TextOf left(a), right(b);
    if (!ignoringCase) return left.bytes().compare(right.bytes()); // UTF-8 sorts like its code points
    const auto folded = [](std::string_view text) {
        std::string result(text);
        std::transform(result.begin(), result.end(), result.begin(), lower);
        return result;
    };
    return folded(left.bytes()).compare(folded(right.bytes()));
}

std::size_t liveStringCount() { return liveStrings; }

} // namespace host
