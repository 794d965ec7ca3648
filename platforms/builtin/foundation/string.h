// NSString: immutable UTF-16 text, which may contain unpaired surrogates. CoreFoundation strings are the same objects.
// ASCII text, the most frequent kind, is stored in bytes, because it is copied out as bytes; other text is stored in UTF-16
// units.
#pragma once

#include "foundation/nsobject.h"

#include <memory>
#include <string>
#include <string_view>

namespace chroma::builtin {

// The common part of all strings. A constant string is exactly this struct: ASCII text, constant-initialised, never freed.
struct String : Object {
    static ClassObject cls;

    constexpr String() = default;
    template <std::size_t Size>
    explicit constexpr String(const char (&literal)[Size]) : Object(&cls, immortal), ascii(literal), length(Size - 1) {}

    char16_t unit(std::size_t index) const { return ascii ? static_cast<char16_t>(ascii[index]) : units[index]; }
    std::u16string text() const;

    const char* ascii = "";           // NUL-terminated; null if the text is not ASCII
    const char16_t* units = nullptr;  // of text that is not ASCII
    std::size_t length = 0;           // in units, without the NUL
    std::atomic<char*> utf8{nullptr}; // of such text; created by the first UTF8String, owned by the string
};

// A string created at run time, which owns its text. `alloc` creates this struct.
struct HeapString : String {
    std::unique_ptr<char[]> bytes;
    std::unique_ptr<char16_t[]> wideText;

    ~HeapString();
};

ClassTable tableOfNSString();

bool isEqualText(const String& first, const String& second);

// Return new strings, which the caller releases.
String* newString(std::u16string_view text);
String* newAsciiString(std::string_view text);

// Return autoreleased strings. `formatted` takes printf's format in UTF-8.
String* string(std::u16string_view text);
[[gnu::format(printf, 1, 2)]] String* formatted(const char* format, ...);

// Returns the text as UTF-8, or null if a surrogate is unpaired. The string owns the result.
const char* utf8Of(String* string);

// Returns the text for a message to a person: "(null)" for nil and for text that UTF-8 cannot represent.
const char* printable(String* string);

} // namespace chroma::builtin
