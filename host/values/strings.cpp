#include "values/strings.h"

#include "text/characters.h"
#include "text/utf8.h"
#include "values/checked_memory.h"
#include "values/platform.h"
#include "values/storage.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <new>
#include <utility>
#include <vector>

namespace host {

// Known byte offsets in a text that is not ASCII: that of the character that was looked up last and, as far as the text has
// been walked, those of characters whose number is a multiple of the stride.
struct Walk {
    static constexpr std::size_t stride = 64;
    std::size_t character = 0;
    std::size_t offset = 0;
    std::vector<std::int32_t> offsets = {0};
};

} // namespace host

// The contract's two fields are not naturally aligned, so they are bytes here. The buffer follows the record: a length
// prefix (at most 255), the text, and a terminating NUL that no length includes.
struct REALstringStruct {
    std::int32_t references;
    unsigned char fields[12];
    host::Encoding encoding;
    std::int32_t capacity; // the number of bytes reserved for text, including `front`
    std::int32_t front;    // the number of unused bytes before the text
    // The number of characters of UTF-8 text, and of ASCII text in any encoding (then equal to the number of bytes);
    // otherwise -1.
    std::int32_t characters;
    mutable host::Walk* walk; // null until it is needed
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

unsigned char* textIn(String* string) { return addressAt(string, sizeof(String) + 1) + string->front; }

// Sets the text's position and length. Its bytes are already there.
void setText(String* string, std::size_t front, std::size_t length) {
    string->front = static_cast<std::int32_t>(front);
    unsigned char* const text = textIn(string);
    text[-1] = static_cast<unsigned char>(std::min<std::size_t>(length, 255));
    text[length] = 0;
    writeAt(string, REALstringBufferOffset, text - 1);
    writeAt(string, REALstringLengthOffset, static_cast<std::int32_t>(length));
}

void forgetWalk(String* string) { delete std::exchange(string->walk, nullptr); }

constexpr std::size_t maxLength = std::numeric_limits<std::int32_t>::max();
constexpr std::size_t overhead = sizeof(String) + 1 + 1;

// Returns the two texts joined, with the given numbers of unused bytes before and after them.
String* newStringWithRoom(std::string_view first, std::string_view second, Encoding encoding, std::size_t before,
                          std::size_t after) {
    const std::size_t length = first.size() + second.size();
    if (length == 0 || length > maxLength) return nullptr;
    const std::size_t capacity = std::min(before + length + after, maxLength);
    void* const block = memory::allocate(overhead + capacity);
    if (!block) return nullptr;
    auto* const string = new (block) String{1, {}, encoding, static_cast<std::int32_t>(capacity), 0, 0, nullptr};
    const std::size_t front = std::min(before, capacity - length);
    setText(string, front, length);
    if (!first.empty()) std::memcpy(textIn(string), first.data(), first.size());
    if (!second.empty()) std::memcpy(textIn(string) + first.size(), second.data(), second.size());
    string->characters = countCharacters(bytesOf(string), encoding);
    ++liveStrings;
    return string;
}

// Returns whether only the caller has a reference to the string, and the other's bytes can follow or precede its own.
bool canTake(const String* string, const String* other) {
    return string && string->references == 1 && string != other && string->encoding == other->encoding &&
           string->characters >= 0 && other->characters >= 0;
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

String* newString(std::string_view bytes, Encoding encoding) { return newStringWithRoom(bytes, {}, encoding, 0, 0); }

void lock(String* string) {
    if (string) ++string->references;
}

void unlock(String* string) {
    if (!string || --string->references != 0 || keepsAllStrings) return;
    --liveStrings;
    forgetWalk(string);
    memory::release(string);
}

std::int32_t referencesOf(const String* string) { return string->references; }

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
    forgetWalk(string);
}

TextOf::TextOf(const String* string) : string_(string && isStoredAsUtf8(string) ? string : nullptr) {
    if (string && !string_) copy_ = utf8Of(string);
    bytes_ = string_ ? bytesOf(string_) : std::string_view(copy_);
}

std::size_t TextOf::length() const { return string_ ? static_cast<std::size_t>(string_->characters) : utf8::length(bytes_); }

Walk& TextOf::walk() const {
    if (!string_->walk) string_->walk = new Walk;
    return *string_->walk;
}

std::size_t TextOf::offsetOf(std::size_t character) const {
    const std::size_t length = this->length();
    if (character >= length) return bytes_.size();
    if (length == bytes_.size()) return character;
    if (!string_ || length <= Walk::stride) return utf8::offsetOf(bytes_, character);
    Walk& walk = this->walk();
    const std::size_t row = character / Walk::stride;
    while (walk.offsets.size() <= row) {
        const auto last = static_cast<std::size_t>(walk.offsets.back());
        walk.offsets.push_back(static_cast<std::int32_t>(last + utf8::offsetOf(bytes_.substr(last), Walk::stride)));
    }
    std::size_t from = row * Walk::stride, offset = static_cast<std::size_t>(walk.offsets[row]);
    if (walk.character <= character && walk.character > from) {
        from = walk.character;
        offset = walk.offset;
    }
    walk.character = character;
    return walk.offset = offset + utf8::offsetOf(bytes_.substr(offset), character - from);
}

std::size_t TextOf::characterAt(std::size_t offset) const {
    if (length() == bytes_.size()) return offset;
    if (!string_ || length() <= Walk::stride) return utf8::length(bytes_.substr(0, offset));
    const std::vector<std::int32_t>& offsets = walk().offsets;
    const std::size_t rows = (length() + Walk::stride - 1) / Walk::stride;
    while (static_cast<std::size_t>(offsets.back()) < offset && offsets.size() < rows)
        offsetOf(offsets.size() * Walk::stride);
    const auto row = std::upper_bound(offsets.begin(), offsets.end(), static_cast<std::int32_t>(offset)) - 1;
    const auto start = static_cast<std::size_t>(*row);
    return static_cast<std::size_t>(row - offsets.begin()) * Walk::stride +
           utf8::length(bytes_.substr(start, offset - start));
}

String* convert(const String* string, Encoding encoding) {
    if (!string) return nullptr;
    const std::optional<std::string> bytes = converted(string, encoding);
    return bytes ? newString(*bytes, encoding) : nullptr;
}

std::string utf8Of(const String* string) { return string ? converted(string, encoding::utf8).value_or(std::string()) : ""; }

String* concatenate(const String* a, const String* b) {
    if (!a || !b || encodingOf(a) == encodingOf(b))
        return newStringWithRoom(bytesOf(a), bytesOf(b), encodingOf(a ? a : b), 0, 0);
    return newString(utf8Of(a) + utf8Of(b));
}

String* append(String* a, const String* b) {
    if (!b) return a;
    const std::string_view bytes = bytesOf(b);
    const std::size_t length = bytesOf(a).size();
    if (canTake(a, b)) {
        const auto front = static_cast<std::size_t>(a->front);
        if (front + length + bytes.size() <= static_cast<std::size_t>(a->capacity)) {
            std::memcpy(textIn(a) + length, bytes.data(), bytes.size());
            setText(a, front, length + bytes.size());
            a->characters += b->characters;
            return a;
        }
    }
    const bool alike = a && a->encoding == b->encoding;
    String* const joined =
        alike ? newStringWithRoom(bytesOf(a), bytes, a->encoding, 0, length + bytes.size()) : concatenate(a, b);
    if (!joined) throw std::bad_alloc();
    unlock(a);
    return joined;
}

String* prepend(String* a, const String* b) {
    if (!b) return a;
    const std::string_view bytes = bytesOf(b);
    const std::size_t length = bytesOf(a).size();
    if (canTake(a, b) && bytes.size() <= static_cast<std::size_t>(a->front)) {
        std::memcpy(textIn(a) - bytes.size(), bytes.data(), bytes.size());
        setText(a, static_cast<std::size_t>(a->front) - bytes.size(), length + bytes.size());
        a->characters += b->characters;
        forgetWalk(a);
        return a;
    }
    const bool alike = a && a->encoding == b->encoding;
    String* const joined =
        alike ? newStringWithRoom(bytes, bytesOf(a), a->encoding, length + bytes.size(), 0) : concatenate(b, a);
    if (!joined) throw std::bad_alloc();
    unlock(a);
    return joined;
}

String* slice(String* a, std::size_t first, std::size_t count) {
    const TextOf text(a);
    const std::size_t length = text.length();
    const std::size_t start = text.offsetOf(first);
    const std::size_t size =
        count < length - std::min(first, length) ? text.offsetOf(first + count) - start : text.bytes().size() - start;
    if (size == text.bytes().size()) return a;
    const bool wastes = a && static_cast<std::size_t>(a->capacity) / 4 > size + 16;
    if (size == 0 || a->references != 1 || a->characters < 0 || wastes) {
        String* const part = newString(text.bytes().substr(start, size));
        if (!part && size > 0) throw std::bad_alloc();
        unlock(a);
        return part;
    }
    const bool isAscii = length == text.bytes().size();
    setText(a, static_cast<std::size_t>(a->front) + start, size);
    a->characters = static_cast<std::int32_t>(isAscii ? size : std::min(count, length - first));
    forgetWalk(a);
    return a;
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
