// The script language of the host: a statically typed, BASIC-like object language. A program is a file of statements, read from
// top to bottom; the classes it uses are those of the host's registry, so startHost must have run.
#pragma once

#include <iosfwd>
#include <string>

namespace host::language {

// Runs a program: 0 when it ran to its end, 1 after an error in its text, which then did not run at all, or an exception that
// nobody caught. What it prints goes to stdout, what is wrong to stderr.
int runFile(const std::string& path);

// The same for a program's text, with the name by which messages call it.
int runText(const std::string& name, std::string text, std::ostream& output, std::ostream& errors);

} // namespace host::language
