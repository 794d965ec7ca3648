#include "language/checking/checker.h"

#include "language/checking/statement_checker.h"

namespace host::language {

Checker::Checker(ParseMode mode) : mode_(mode) { scopes_.open(); }
Checker::~Checker() = default;

ActionPtr Checker::check(const syntax::Block& block, Diagnostics& diagnostics) {
    const Scopes scopesBefore = scopes_;
    const Procedures::Visible proceduresBefore = procedures_.visible();
    StatementChecker checker(scopes_, procedures_, mode_, diagnostics);
    checker.declareProcedures(block);
    ActionPtr code = checker.statements(block);
    if (!diagnostics.haveErrors()) {
        if (mode_ == ParseMode::program) warnOfUnused(diagnostics);
        return code;
    }
    scopes_ = scopesBefore;
    procedures_.restore(proceduresBefore);
    return nullptr;
}

// At a prompt, a later piece may use the variable.
void Checker::warnOfUnused(Diagnostics& diagnostics) const {
    for (const auto& [offset, name] : scopes_.unused())
        diagnostics.warn(offset, "the variable '" + name + "' is never used");
}

Checker::Meaning Checker::meaningOf(const syntax::Expression& expression, Diagnostics& warnings) {
    const auto* const identifier = std::get_if<syntax::Identifier>(&expression.form);
    if (identifier && !scopes_.find(identifier->name))
        if (ClassInfo* const info = registry().find(identifier->name)) return {{}, info};
    try {
        return {ExpressionChecker(scopes_, procedures_, warnings).operand(expression).type(), nullptr};
    } catch (const CheckError&) {
        return {};
    }
}

} // namespace host::language
