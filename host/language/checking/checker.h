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

// Checks a program, in one piece or, at a prompt, piece by piece. The checker owns what is declared. It must outlive the
// code that it creates, and so must the classes in use.
class Checker {
public:
    explicit Checker(ParseMode mode);
    ~Checker();
    Checker(const Checker&) = delete;
    Checker& operator=(const Checker&) = delete;

    // Returns the code of the statements. If there are errors, they are added to the diagnostics, the result is null and
    // nothing that the statements declare stays declared.
    ActionPtr check(const syntax::Block& block, Diagnostics& diagnostics);

    // Returns the variables of the program that carry references, in order of declaration. Call it after everything is
    // checked.
    std::vector<ScopeVariable> endProgram() { return scopes_.close(); }

    // The type of an expression, or the class that a name means; Void if it is neither.
    struct Meaning {
        Type type;
        ClassInfo* namedClass = nullptr; // null for a value
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
