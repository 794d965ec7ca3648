// NSString: immutable UTF-16 text, paired or not; the CoreFoundation strings are the same objects.
#pragma once

#include "foundation/nsobject.h"

#include <string_view>

namespace chroma::builtin {

// What every string is. A constant string is just this, constant-initialised and never freed.
struct String : Object {
    static ClassObject cls;

    constexpr String() = default;
    template <std::size_t Size>
    explicit constexpr String(const char16_t (&literal)[Size]) : Object(&cls, immortal), units(literal), length(Size - 1) {}

    std::u16string_view text() const { return {units, length}; }

    const char16_t* units = u"";
    std::size_t length = 0;
    std::atomic<char*> utf8{nullptr}; // made by the first UTF8String, lives as long as the string
};

// A string made at run time, with its units on the heap. What alloc makes.
struct HeapString : String {
    ~HeapString();

    char16_t* storage = nullptr;
};

ClassTable tableOfNSString();

// New strings that the caller releases.
String* newString(std::u16string_view text);

// Autoreleased strings. `formatted` takes printf's UTF-8 format.
String* string(std::u16string_view text);
[[gnu::format(printf, 1, 2)]] String* formatted(const char* format, ...);

// The text as UTF-8, null when a surrogate is unpaired. Lives as long as the string.
const char* utf8Of(String* string);

// The text of a string object for a message to a person: "(null)" for nil, and for text that UTF-8 cannot hold.
const char* printable(String* string);

} // namespace chroma::builtin
