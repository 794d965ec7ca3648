// Functions of the language that work on text. They are bound functions: strings are borrowed, a result belongs to the
// caller, and what is wrong is recorded as the pending exception.
#pragma once

#include "builtins/memory_blocks.h"
#include "model/arrays.h"
#include "values/strings.h"

namespace host::language::text {

String* trim(String* text);
String* trimLeft(String* text);
String* trimRight(String* text);
String* replace(String* text, String* wanted, String* by); // all of them
String* repeat(String* text, HostInteger count);
Array* split(String* text, String* delimiter); // an empty delimiter splits into characters
String* join(Array* parts, String* delimiter);
String* character(HostInteger code); // Unicode; raises for what is no character
HostInteger codeOf(String* text);    // of the first character; -1 of none

// How texts stand to each other by code points, or by those of their small letters: -1, 0 or 1.
HostInteger order(String* a, String* b, HostBoolean ignoringCase);

// Parts of a text. Characters are counted from 1; numbers that are too small or too large count as the nearest in range.
HostInteger length(String* text);
String* mid(String* text, HostInteger start, HostInteger count);
String* midToEnd(String* text, HostInteger start);
String* left(String* text, HostInteger count);
String* right(String* text, HostInteger count);

// The characters that such a part has of a text with so many, counted from 0.
struct Part {
    std::size_t first;
    std::size_t count;
};
Part partOfMid(HostInteger length, HostInteger start, HostInteger count);
Part partOfLeft(HostInteger length, HostInteger count);
Part partOfRight(HostInteger length, HostInteger count);

// Returns the byte at which `wanted` occurs first from `start` on, or npos, in time proportional to both lengths.
std::size_t indexOf(std::string_view text, std::string_view wanted, std::size_t start);

// Where `wanted` is, from character number `start` on, as the number of its first character; 0 when it is not in there.
HostInteger findFrom(HostInteger start, String* text, String* wanted);
HostInteger find(String* text, String* wanted);
HostInteger findLastOf(String* text, String* wanted); // the last one

// Where `wanted` stands last, as the number of its first character, at most `start`; 0 when it does not.
HostInteger findLast(HostInteger start, String* text, String* wanted);

String* uppercase(String* text);
String* lowercase(String* text);

// Where text meets bytes. Encodings have their names of the Internet, in any case: UTF-8, UTF-16 and UTF-32 (in the
// machine's byte order), US-ASCII, ISO-8859-1, windows-1252, macintosh. Unknown ones raise.
HostInteger byteCount(String* text);                    // as it is stored
MemoryBlock* bytes(String* text, String* encoding);     // raises when the encoding lacks one of its characters
String* defineEncoding(String* text, String* encoding); // the same bytes as text of it; raises when they are none

// The number as the pattern says: 0 a digit, # a digit unless it is a leading or trailing 0, the first . the decimal point,
// a comma before it groups by thousands, % shows hundredths. What stands before and behind is taken as it is; \ takes the
// next character as it is.
String* format(double value, String* pattern);

} // namespace host::language::text
