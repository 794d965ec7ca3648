// The script language of the host: a statically typed, BASIC-like object language. A program is a file of statements, read
// from top to bottom. It uses the classes of the host's registry, so startHost must have run.
#pragma once

#include <cstddef>
#include <iosfwd>
#include <optional>
#include <string>
#include <vector>

namespace host::language {

// Returns the text of a program's file. If it cannot be read, prints a message on stderr and returns nullopt.
std::optional<std::string> readProgram(const std::string& path);

// Sets the result of the function Arguments, in UTF-8; empty before.
void setProgramArguments(std::vector<std::string> arguments);

// Requests the running program to stop, as SIGINT does. May be called in a signal handler.
void interrupt();

// Returns whether the last program was interrupted.
bool wasInterrupted();

// Runs a program from its text, with its name in messages. With `colored`, messages have colours. Returns 0 if the program
// ran to its end, or the code with which it quit. Returns 1 after an uncaught exception, an interruption by SIGINT, or
// errors in its text, which then does not run.
int runText(const std::string& name, std::string text, std::ostream& output, std::ostream& errors, bool colored = false);

// Reports all errors and warnings in a program's text on stderr without running it. Returns 0 if there are no errors,
// otherwise 1. `problemsIn` returns the problems in the order of the text.
struct Problem {
    std::size_t line, column; // from 1; columns count characters
    bool isError;             // otherwise a warning
    std::string message;
};
std::vector<Problem> problemsIn(const std::string& text);
int checkText(const std::string& name, std::string text, std::ostream& errors, bool colored = false);

} // namespace host::language
