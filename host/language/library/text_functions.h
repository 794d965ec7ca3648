// Functions of the language that work on text. They are bound functions: strings are borrowed, a result belongs to the
// caller, and what is wrong is recorded as the pending exception.
#pragma once

#include "model/arrays.h"
#include "model/strings.h"

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

// The number as the pattern says: 0 a digit, # a digit unless it is a leading or trailing 0, the first . the decimal point,
// a comma before it groups by thousands, % shows hundredths. What stands before and behind is taken as it is; \ takes the
// next character as it is.
String* format(double value, String* pattern);

} // namespace host::language::text
