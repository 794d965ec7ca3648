// Functions of the language that convert between numbers, colours and text. They are bound functions: strings are borrowed,
// the caller owns a result, and an error is recorded as the pending exception.
#pragma once

#include "values/strings.h"

namespace host::language::conversion {

String* textOfBoolean(HostBoolean value);
String* textOfInteger(HostInteger value);
String* textOfDouble(double value);
String* textOfColor(HostColor value);

// Adds zeros before the number up to `digits` digits, at most 64.
String* hexOfInteger(HostInteger value, HostInteger digits);
String* hexOfColor(HostColor value, HostInteger digits);

double number(String* text); // raises for text that is not a number
double numberOr(String* text, double otherwise);

// Channels outside 0 to 255 count as the nearest of these two.
HostColor color(HostInteger red, HostInteger green, HostInteger blue, HostInteger alpha);
HostInteger red(HostColor color);
HostInteger green(HostColor color);
HostInteger blue(HostColor color);
HostInteger alpha(HostColor color);

} // namespace host::language::conversion
