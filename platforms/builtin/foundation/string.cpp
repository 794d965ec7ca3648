#include "foundation/string.h"

#include "foundation/exception.h"
#include "text/encoding.h"

#include <cstdarg>
#include <cstdio>
#include <cstring>
#include <memory>
#include <string>

namespace chroma::builtin {

ClassObject String::cls;

HeapString::~HeapString() {
    delete[] storage;
    delete[] utf8.load(std::memory_order_relaxed);
}

String* newString(std::u16string_view text) {
    auto storage = std::make_unique<char16_t[]>(text.size() + 1);
    text.copy(storage.get(), text.size());
    auto* const string = static_cast<HeapString*>(allocate(String::cls));
    string->storage = storage.release();
    string->units = string->storage;
    string->length = text.size();
    return string;
}

String* string(std::u16string_view text) { return autorelease(newString(text)); }

namespace {

// nil when the bytes are not UTF-8.
String* newStringFromUtf8(std::string_view bytes) {
    std::u16string text;
    if (!decodeText(bytes, encoding::utf8, false, text)) return nullptr;
    return newString(text);
}

std::string formatBytes(const char* format, std::va_list arguments) {
    std::va_list again;
    va_copy(again, arguments);
    const int size = std::vsnprintf(nullptr, 0, format, arguments);
    std::string bytes(static_cast<std::size_t>(size) + 1, '\0');
    std::vsnprintf(bytes.data(), bytes.size(), format, again);
    va_end(again);
    bytes.pop_back();
    return bytes;
}

} // namespace

String* formatted(const char* format, ...) {
    std::va_list arguments;
    va_start(arguments, format);
    String* const made = newStringFromUtf8(formatBytes(format, arguments));
    va_end(arguments);
    return autorelease(made);
}

const char* utf8Of(String* string) {
    if (const char* const known = string->utf8.load(std::memory_order_acquire)) return known;

    // A unit takes at most three bytes.
    const std::size_t capacity = string->length * 3 + 1;
    char* const bytes = new char[capacity];
    if (!encodeText(string->text(), encoding::utf8, bytes, capacity)) {
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
    return self->units[index];
}

const char* utf8String(String* self, SEL) { return utf8Of(self); }

BOOL isEqual(String* self, SEL, id other) {
    return isKindOf(other, String::cls) && self->text() == static_cast<String*>(other)->text();
}

BOOL isEqualToString(String* self, SEL, id other) {
    const String* const string = argument<String>(other, isEqualToStringMessage);
    return string && self->text() == string->text();
}

std::uintptr_t hash(String* self, SEL) { return std::hash<std::u16string_view>()(self->text()); }

// By UTF-16 units: -1, 0 or 1.
std::intptr_t compare(String* self, SEL, id other) {
    const String* const string = argument<String>(other, isEqualToStringMessage);
    const int order = self->text().compare(string ? string->text() : std::u16string_view());
    return (order > 0) - (order < 0);
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
