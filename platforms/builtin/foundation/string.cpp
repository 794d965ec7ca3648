#include "foundation/string.h"

#include "foundation/exception.h"
#include "text/encoding.h"

#include <algorithm>
#include <cstdarg>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <utility>

namespace chroma::builtin {

ClassObject String::cls;

std::u16string String::text() const { return ascii ? std::u16string(ascii, ascii + length) : std::u16string(units, length); }

HeapString::~HeapString() { delete[] utf8.load(std::memory_order_relaxed); }

// Equal texts are always stored in the same form.
bool isEqualText(const String& first, const String& second) {
    if (first.length != second.length || !first.ascii != !second.ascii) return false;
    return first.ascii ? std::memcmp(first.ascii, second.ascii, first.length) == 0
                       : std::equal(first.units, first.units + first.length, second.units);
}

namespace {

// Takes ownership of one of the two buffers; `bytes` includes the NUL.
String* newHeapString(std::unique_ptr<char[]> bytes, std::unique_ptr<char16_t[]> wideText, std::size_t length) {
    auto* const string = static_cast<HeapString*>(allocate(String::cls));
    string->bytes = std::move(bytes);
    string->wideText = std::move(wideText);
    string->ascii = string->bytes.get();
    string->units = string->wideText.get();
    string->length = length;
    return string;
}

} // namespace

String* newString(std::u16string_view text) {
    if (isAscii(text)) {
        std::unique_ptr<char[]> bytes(new char[text.size() + 1]);
        std::transform(text.begin(), text.end(), bytes.get(), [](char16_t unit) { return static_cast<char>(unit); });
        bytes[text.size()] = '\0';
        return newHeapString(std::move(bytes), nullptr, text.size());
    }
    std::unique_ptr<char16_t[]> wideText(new char16_t[text.size()]);
    text.copy(wideText.get(), text.size());
    return newHeapString(nullptr, std::move(wideText), text.size());
}

String* newAsciiString(std::string_view text) {
    std::unique_ptr<char[]> bytes(new char[text.size() + 1]);
    text.copy(bytes.get(), text.size());
    bytes[text.size()] = '\0';
    return newHeapString(std::move(bytes), nullptr, text.size());
}

String* string(std::u16string_view text) { return autorelease(newString(text)); }

namespace {

// Returns null if the bytes are not UTF-8.
String* newStringFromUtf8(std::string_view bytes) {
    if (isAscii(bytes)) return newAsciiString(bytes);
    std::u16string text;
    if (!decodeText(bytes, encoding::utf8, false, text)) return nullptr;
    return newString(text);
}

std::string formatBytes(const char* format, std::va_list arguments) {
    std::va_list again;
    va_copy(again, arguments);
    std::string bytes(200, '\0'); // enough for most texts
    const auto size = static_cast<std::size_t>(std::vsnprintf(bytes.data(), bytes.size(), format, arguments)) + 1;
    const bool fits = size <= bytes.size();
    bytes.resize(size);
    if (!fits) std::vsnprintf(bytes.data(), size, format, again);
    va_end(again);
    bytes.pop_back();
    return bytes;
}

} // namespace

String* formatted(const char* format, ...) {
    std::va_list arguments;
    va_start(arguments, format);
    String* const created = newStringFromUtf8(formatBytes(format, arguments));
    va_end(arguments);
    return autorelease(created);
}

const char* utf8Of(String* string) {
    if (string->ascii) return string->ascii;
    if (const char* const known = string->utf8.load(std::memory_order_acquire)) return known;

    // A unit takes at most three bytes.
    const std::size_t capacity = string->length * 3 + 1;
    char* const bytes = new char[capacity];
    if (!encodeCString(string->text(), encoding::utf8, bytes, capacity)) {
        delete[] bytes;
        return nullptr;
    }
    char* current = nullptr;
    if (string->utf8.compare_exchange_strong(current, bytes, std::memory_order_acq_rel)) return bytes;
    delete[] bytes;
    return current;
}

const char* printable(String* string) {
    const char* const text = string ? utf8Of(string) : nullptr;
    return text ? text : "(null)";
}

namespace {

const Message isEqualToStringMessage{"isEqualToString:"};

String* stringWithUtf8(ClassObject*, SEL, const char* bytes) {
    return bytes ? autorelease(newStringFromUtf8(bytes)) : nullptr;
}

String* emptyString(ClassObject*, SEL) { return string({}); }

std::uintptr_t length(String* self, SEL) { return self->length; }

char16_t characterAtIndex(String* self, SEL, std::uintptr_t index) {
    if (index >= self->length) {
        raise(exceptionName::range, formatted("-[NSString characterAtIndex:]: index %zu beyond length %zu",
                                              static_cast<std::size_t>(index), self->length));
    }
    return self->unit(index);
}

const char* utf8String(String* self, SEL) { return utf8Of(self); }

BOOL isEqual(String* self, SEL, id other) {
    return isKindOf(other, String::cls) && isEqualText(*self, *static_cast<String*>(other));
}

BOOL isEqualToString(String* self, SEL, id other) {
    const String* const string = argument<String>(other, isEqualToStringMessage);
    return string && isEqualText(*self, *string);
}

std::uintptr_t hash(String* self, SEL) {
    return self->ascii ? std::hash<std::string_view>()({self->ascii, self->length})
                       : std::hash<std::u16string_view>()({self->units, self->length});
}

// Compares by UTF-16 units and returns -1, 0 or 1.
std::intptr_t compare(String* self, SEL, id other) {
    const String* const string = argument<String>(other, isEqualToStringMessage);
    const std::size_t length = string ? string->length : 0;
    for (std::size_t i = 0; i < std::min(self->length, length); ++i)
        if (self->unit(i) != string->unit(i)) return self->unit(i) < string->unit(i) ? -1 : 1;
    return (self->length > length) - (self->length < length);
}

String* description(String* self, SEL) { return self; }

} // namespace

ClassTable tableOfNSString() {
    static const MethodEntry methods[] = {
        method<length>("length"),
        method<characterAtIndex>("characterAtIndex:"),
        method<utf8String>("UTF8String"),
        method<isEqual>("isEqual:"),
        method<isEqualToString>("isEqualToString:"),
        method<hash>("hash"),
        method<compare>("compare:"),
        method<description>("description"),
    };
    static const MethodEntry classMethods[] = {
        method<emptyString>("string"),
        method<stringWithUtf8>("stringWithUTF8String:"),
    };
    return classTable<HeapString>("NSString", &NSObject::cls, methods, classMethods);
}

} // namespace chroma::builtin
