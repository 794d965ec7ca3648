// What is wrong with a program, found before it runs.
#pragma once

#include "language/reading/source.h"

#include <string>
#include <string_view>
#include <vector>

namespace host::language {

struct Diagnostic {
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

[[noreturn]] inline void failCheck(Offset offset, std::string message) { throw CheckError{offset, std::move(message)}; }

// The errors of one program. Beyond a limit further ones are dropped.
class Diagnostics {
public:
    explicit Diagnostics(std::size_t limit) : limit_(limit) {}

    void add(Offset offset, std::string message) {
        if (list_.size() < limit_) {
            list_.push_back({offset, std::move(message)});
        } else {
            dropped_ = true;
        }
    }
    bool empty() const { return list_.empty(); }
    bool full() const { return dropped_; }

    std::vector<Diagnostic> inOrder() const; // of the program's text

    // The whole report, in the order of the program's text.
    std::string report(const Source& source) const;

private:
    std::size_t limit_;
    bool dropped_ = false;
    std::vector<Diagnostic> list_;
};

} // namespace host::language
