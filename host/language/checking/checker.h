// Checks programs and turns them into code.
#pragma once

#include "language/checking/scopes.h"
#include "language/reading/diagnostics.h"
#include "language/reading/parser.h"
#include "language/reading/syntax.h"
#include "language/running/code.h"
#include "language/running/frame.h"
#include "language/running/procedures.h"

#include <memory>

namespace host::language {

class StatementChecker;

// Checks a program, at once or, at a prompt, piece by piece. It keeps what is declared, and must outlive the code that it
// makes, as must the classes in use.
class Checker {
public:
    explicit Checker(ParseMode mode);
    ~Checker();
    Checker(const Checker&) = delete;
    Checker& operator=(const Checker&) = delete;

    // The code of the statements. With errors, which go to the diagnostics, it is null and nothing of them stays declared.
    ActionPtr check(const syntax::Block& block, Diagnostics& diagnostics);

    // The variables of the program that carry references, in order of declaration. To be asked when all is checked.
    std::vector<ScopeVariable> endProgram() { return scopes_.close(); }

    // The type of an expression, or the class that a name means; Void when it is neither.
    struct Meaning {
        Type type;
        ClassInfo* namedClass = nullptr; // null: a value
    };
    Meaning meaningOf(const syntax::Expression& expression, Diagnostics& warnings);

    const Scopes& scopes() const { return scopes_; }
    const Procedures& procedures() const { return procedures_; }

private:
    void warnOfUnused(Diagnostics& diagnostics) const;

    ParseMode mode_;
    Scopes scopes_;
    Procedures procedures_;
};

} // namespace host::language
