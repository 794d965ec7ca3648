// A program that is typed piece by piece at a prompt. What a piece declares stays for those behind it, and its errors end
// only the piece.
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
    // `presenter` gets the values of expressions; both must outlive the session. Messages call the text `name`; `colored`:
    // with colours in them.
    Session(std::string name, std::ostream& output, Presenter& presenter, bool colored = false);
    ~Session();
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    // Whether the text ends inside a block or a continued line.
    bool needsMore(std::string_view text) const;

    // Checks and runs the text: what is wrong with it, or nothing. The warnings are written before it runs.
    std::string run(std::string_view text, std::ostream& warnings);

    // Once it has run Quit.
    std::optional<int> exitCode() const;

    // What an expression is, without running it: a value of a type, or a class that it names; Void when it is neither.
    struct Meaning {
        Type type;
        ClassInfo* namedClass = nullptr; // null: a value
    };
    Meaning meaningOf(std::string_view expression);

    // Variables, constants and procedures.
    std::vector<std::string> names() const;

    // Those of the name; empty when there is none.
    OverloadSet findProcedures(std::string_view name) const;

private:
    struct State;
    std::unique_ptr<State> state_;
};

} // namespace host::language
