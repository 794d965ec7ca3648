// Functions of the language that deal with the process: its input, its environment, its end. They are bound functions:
// strings are borrowed, a result belongs to the caller, and what is wrong is recorded as the pending exception.
#pragma once

#include "values/strings.h"

#include <optional>

namespace host::language::process {

String* input();          // the next line of stdin without its end; raises when there is none, and when it is interrupted
HostBoolean endOfInput(); // whether `input` would raise since there is none; waits for a line
void printError(String* text); // a line on stderr
String* environment(String* name, String* otherwise);
double microseconds(); // since the first call; never goes back
String* now();         // YYYY-MM-DD HH:MM:SS in the local time zone
double unixTime();     // seconds since 1970 in UTC

// Asks for the end of the program: it records an exception, in whose place whoever raises pending exceptions ends the
// program when takeWantedEnd answers a code.
void quit(HostInteger code);
std::optional<int> takeWantedEnd();

} // namespace host::language::process
