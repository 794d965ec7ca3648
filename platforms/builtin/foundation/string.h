// NSString: immutable UTF-16 text, paired or not; the CoreFoundation strings are the same objects. Text that is ASCII,
// nearly all of it, is held in single bytes, as it is copied out; other text in its units.
#pragma once

#include "foundation/nsobject.h"

#include <memory>
#include <string>
#include <string_view>

namespace chroma::builtin {

// What every string is. A constant string is just this, of ASCII text, constant-initialised and never freed.
struct String : Object {
    static ClassObject cls;

    constexpr String() = default;
    template <std::size_t Size>
    explicit constexpr String(const char (&literal)[Size]) : Object(&cls, immortal), ascii(literal), length(Size - 1) {}

    char16_t unit(std::size_t index) const { return ascii ? static_cast<char16_t>(ascii[index]) : units[index]; }
    std::u16string text() const;

    const char* ascii = "";           // with a NUL behind; null when the text is not all ASCII
    const char16_t* units = nullptr;  // of such text
    std::size_t length = 0;           // in units, without the NUL
    std::atomic<char*> utf8{nullptr}; // of such text, made by the first UTF8String, lives as long as the string
};

// A string made at run time, with its text on the heap. What alloc makes.
struct HeapString : String {
    std::unique_ptr<char[]> bytes;
    std::unique_ptr<char16_t[]> wideText;

    ~HeapString();
};

ClassTable tableOfNSString();

bool isEqualText(const String& first, const String& second);

// New strings that the caller releases.
String* newString(std::u16string_view text);
String* newAsciiString(std::string_view text);

// Autoreleased strings. `formatted` takes printf's UTF-8 format.
String* string(std::u16string_view text);
[[gnu::format(printf, 1, 2)]] String* formatted(const char* format, ...);

// The text as UTF-8, null when a surrogate is unpaired. Lives as long as the string.
const char* utf8Of(String* string);

// The text of a string object for a message to a person: "(null)" for nil, and for text that UTF-8 cannot hold.
const char* printable(String* string);

} // namespace chroma::builtin
