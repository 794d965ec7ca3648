// What is wrong with a program, or looks wrong, found before it runs.
#pragma once

#include "language/reading/source.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace host::language {

enum class Level : std::uint8_t { error, warning };
const char* nameOf(Level level);

struct Diagnostic {
    Level level;
    Offset offset;
    std::string message;
};

// Why a statement cannot be read any further. Thrown by the lexer and the parser, which goes on behind the statement.
struct SyntaxError {
    Offset offset;
    std::string message;
    bool fatal = false; // nothing behind it is read
};

// Why the checker gives up on a statement: the first error in it is reported, and checking goes on behind it.
struct CheckError {
    Offset offset;
    std::string message; // empty: an echo of an error that is reported already
};

inline std::string quoted(std::string_view name) { return "'" + std::string(name) + "'"; }

[[noreturn]] inline void failCheck(Offset offset, std::string message) { throw CheckError{offset, std::move(message)}; }

// The errors and warnings of one program. Beyond a limit, for each of the two, further ones are dropped, which the report
// tells.
class Diagnostics {
public:
    // The source must outlive the diagnostics.
    Diagnostics(const Source& source, std::size_t limit) : source_(source), limit_(limit) {}

    // "line 3", for messages that name a second place.
    std::string lineOf(Offset offset) const { return "line " + std::to_string(source_.place(offset).line); }

    void add(Offset offset, std::string message) { add({Level::error, offset, std::move(message)}); }

    // Of a program that means something, but hardly what was meant. Once for a place, however often that is checked.
    void warn(Offset offset, std::string message);

    bool haveErrors() const { return errors_ > 0; }
    bool full() const { return droppedErrors_; } // of errors

    std::vector<Diagnostic> inOrder() const; // of the program's text

    // The whole report, in the order of the program's text.
    std::string report() const;

private:
    void add(Diagnostic diagnostic);

    const Source& source_;
    std::size_t limit_;
    std::size_t errors_ = 0;
    bool droppedErrors_ = false, droppedWarnings_ = false;
    std::vector<Diagnostic> list_;
};

} // namespace host::language
