// Functions of the language for text. They are bound functions: strings are borrowed, the caller owns a result, and an
// error is recorded as the pending exception.
#pragma once

#include "builtins/memory_blocks.h"
#include "model/arrays.h"
#include "values/strings.h"

namespace host::language::text {

String* trim(String* text);
String* trimLeft(String* text);
String* trimRight(String* text);
String* replace(String* text, String* wanted, String* by); // replaces all occurrences
String* repeat(String* text, HostInteger count);
Array* split(String* text, String* delimiter); // an empty delimiter splits into characters
String* join(Array* parts, String* delimiter);
String* character(HostInteger code); // Unicode; raises if the code is not a character
HostInteger codeOf(String* text);    // of the first character; -1 if there is none

// Compares by code points, or by the code points of the lowercase texts. Returns -1, 0 or 1.
HostInteger order(String* a, String* b, HostBoolean ignoringCase);

// Parts of a text. Characters are counted from 1. A number outside the range counts as the nearest one in it.
HostInteger length(String* text);
String* mid(String* text, HostInteger start, HostInteger count);
String* midToEnd(String* text, HostInteger start);
String* left(String* text, HostInteger count);
String* right(String* text, HostInteger count);

// The characters of such a part, counted from 0, of a text with `length` characters.
struct Part {
    std::size_t first;
    std::size_t count;
};
Part partOfMid(HostInteger length, HostInteger start, HostInteger count);
Part partOfLeft(HostInteger length, HostInteger count);
Part partOfRight(HostInteger length, HostInteger count);

// Returns the byte at which `wanted` occurs first from `start` on, or npos, in time proportional to both lengths.
std::size_t indexOf(std::string_view text, std::string_view wanted, std::size_t start);

// Returns the number of the first character of the first occurrence of `wanted` from character `start` on, or 0 if there is
// none.
HostInteger findFrom(HostInteger start, String* text, String* wanted);
HostInteger find(String* text, String* wanted);
HostInteger findLastOf(String* text, String* wanted); // the last occurrence

// Returns the number of the first character of the last occurrence of `wanted` that starts at or before `start`, or 0 if
// there is none.
HostInteger findLast(HostInteger start, String* text, String* wanted);

String* uppercase(String* text);
String* lowercase(String* text);

// Conversions between text and bytes. Encodings have their names of the Internet, in any case: UTF-8, UTF-16 and UTF-32 (in
// the machine's byte order), US-ASCII, ISO-8859-1, windows-1252, macintosh. An unknown encoding raises.
HostInteger byteCount(String* text);                    // as stored
MemoryBlock* bytes(String* text, String* encoding);     // raises if the encoding does not have one of the characters
String* defineEncoding(String* text, String* encoding); // reads the bytes in the encoding; raises if they are invalid

// Formats the number by the pattern. In it, 0 is a digit, and # is a digit unless it is a leading or trailing 0. The first
// . is the decimal point. A comma before the point groups by thousands, and % shows hundredths. Text before and after these
// is copied; \ copies the next character.
String* format(double value, String* pattern);

} // namespace host::language::text
