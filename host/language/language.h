// The script language of the host: a statically typed, BASIC-like object language. A program is a file of statements, read
// from top to bottom; the classes it uses are those of the host's registry, so startHost must have run.
#pragma once

#include <cstddef>
#include <iosfwd>
#include <optional>
#include <string>
#include <vector>

namespace host::language {

// Returns the text of a program's file, or nothing after a message on stderr when it cannot be read.
std::optional<std::string> readProgram(const std::string& path);

// Runs a program: 0 when it ran to its end, 1 after errors in its text, which then did not run at all, an exception that
// nobody caught, or an interruption by SIGINT; the code with which it quit. What it prints goes to stdout, what is wrong to
// stderr.
int runFile(const std::string& path);

// Sets what the function Arguments returns, in UTF-8; none before.
void setProgramArguments(std::vector<std::string> arguments);

// Asks the program that runs to stop, as SIGINT does. May be called in a signal handler.
void interrupt();

// Whether the program that ran last was interrupted.
bool wasInterrupted();

// The same for a program's text, with the name by which messages call it; `colored`: with colours in them.
int runText(const std::string& name, std::string text, std::ostream& output, std::ostream& errors, bool colored = false);

// Reports all errors and warnings in a program's text to stderr without running it: 0 when there are no errors, otherwise 1.
// `problemsIn` answers them, in the order of the text.
struct Problem {
    std::size_t line, column; // from 1; columns count characters
    bool isError;             // otherwise a warning
    std::string message;
};
std::vector<Problem> problemsIn(const std::string& text);
int checkText(const std::string& name, std::string text, std::ostream& errors, bool colored = false);

} // namespace host::language
