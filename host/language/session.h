// A program that is typed piece by piece at a prompt. Declarations of a piece stay for later pieces, and an error ends only
// its piece.
#pragma once

#include "language/presentation.h"

#include "model/classes.h"

#include <iosfwd>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace host::language {

class Session {
public:
    // `presenter` receives the values of expressions. `output` and `presenter` must outlive the session. `name` names the
    // text in messages. With `colored`, messages have colours.
    Session(std::string name, std::ostream& output, Presenter& presenter, bool colored = false);
    ~Session();
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    // Returns whether the text ends inside a block or a continued line.
    bool needsMore(std::string_view text) const;

    // Checks and runs the text. Returns its errors, or "". Writes the warnings before the text runs.
    std::string run(std::string_view text, std::ostream& warnings);

    // Returns the exit code after Quit has run, otherwise nullopt.
    std::optional<int> exitCode() const;

    // The meaning of an expression without running it: a value of a type, or a class that it names. The type is Void if it
    // is neither.
    struct Meaning {
        Type type;
        ClassInfo* namedClass = nullptr; // null for a value
    };
    Meaning meaningOf(std::string_view expression);

    // Returns the names of variables, constants and procedures.
    std::vector<std::string> names() const;

    // Returns the procedures with the name; empty if there are none.
    OverloadSet findProcedures(std::string_view name) const;

private:
    struct State;
    std::unique_ptr<State> state_;
};

} // namespace host::language
