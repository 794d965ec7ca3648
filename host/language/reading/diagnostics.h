// The errors and warnings that are found in a program before it runs.
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

// The reason why a statement cannot be read any further. The lexer and the parser throw it; the parser continues after the
// statement.
struct SyntaxError {
    Offset offset;
    std::string message;
    bool fatal = false; // nothing after it is read
};

// The reason why the checker abandons a statement. It reports the first error in the statement and continues after it.
struct CheckError {
    Offset offset;
    std::string message; // empty for a consequence of an error that is already reported
};

inline std::string quoted(std::string_view name) { return "'" + std::string(name) + "'"; }

[[noreturn]] inline void failCheck(Offset offset, std::string message) { throw CheckError{offset, std::move(message)}; }

// The errors and warnings of one program. Each of the two has a limit, beyond which further ones are dropped; the report
// mentions that.
class Diagnostics {
public:
    // The source must outlive the diagnostics.
    Diagnostics(const Source& source, std::size_t limit) : source_(source), limit_(limit) {}

    // Returns "line 3", for messages that name a second place.
    std::string lineOf(Offset offset) const { return "line " + std::to_string(source_.place(offset).line); }

    void add(Offset offset, std::string message) { add({Level::error, offset, std::move(message)}); }

    // Adds a warning about code that is valid but probably not what its author meant. A place has at most one warning,
    // however often it is checked.
    void warn(Offset offset, std::string message);

    bool haveErrors() const { return errors_ > 0; }
    bool full() const { return droppedErrors_; } // whether errors have been dropped

    std::vector<Diagnostic> inOrder() const; // in the order of the program's text

    // Returns the complete report, in the order of the program's text.
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
