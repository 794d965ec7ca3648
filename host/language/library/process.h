// Functions of the language for the process: its input, its environment and its exit. They are bound functions: strings are
// borrowed, the caller owns a result, and an error is recorded as the pending exception.
#pragma once

#include "values/strings.h"

#include <optional>

namespace host::language::process {

String* input();          // the next line of stdin without its line end; raises at the end of the input and if interrupted
HostBoolean endOfInput(); // whether `input` would raise at the end of the input; waits for a line
void printError(String* text); // prints a line on stderr
String* environment(String* name, String* otherwise);
double microseconds(); // since the first call; never decreases
String* now();         // YYYY-MM-DD HH:MM:SS in the local time zone
double unixTime();     // seconds since 1970 in UTC

// Requests the end of the program by recording an exception. The code that raises pending exceptions quits the program
// instead if takeWantedEnd returns a code.
void quit(HostInteger code);
std::optional<int> takeWantedEnd();

} // namespace host::language::process
