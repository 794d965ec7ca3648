// Functions of the language that turn numbers, colours and text into one another. They are bound functions: strings are
// borrowed, a result belongs to the caller, and what is wrong is recorded as the pending exception.
#pragma once

#include "values/strings.h"

namespace host::language::conversion {

String* textOfBoolean(HostBoolean value);
String* textOfInteger(HostInteger value);
String* textOfDouble(double value);
String* textOfColor(HostColor value);

// With zeros before it up to so many digits, at most 64.
String* hexOfInteger(HostInteger value, HostInteger digits);
String* hexOfColor(HostColor value, HostInteger digits);

double number(String* text); // raises for text that is no number
double numberOr(String* text, double otherwise);

// Channels beyond 0 to 255 count as the nearest of the two.
HostColor color(HostInteger red, HostInteger green, HostInteger blue, HostInteger alpha);
HostInteger red(HostColor color);
HostInteger green(HostColor color);
HostInteger blue(HostColor color);
HostInteger alpha(HostColor color);

} // namespace host::language::conversion
