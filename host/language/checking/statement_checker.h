// Checks statements: simple statements, statements with blocks, and procedures, each in a separate source file.
#pragma once

#include "language/checking/checker.h"
#include "language/checking/expression_checker.h"
#include "language/running/control_flow.h"

#include <map>
#include <utility>
#include <vector>

namespace host::language {

class StatementChecker {
public:
    StatementChecker(Scopes& scopes, Procedures& procedures, ParseMode mode, Diagnostics& diagnostics)
        : scopes_(scopes), procedures_(procedures), mode_(mode), diagnostics_(diagnostics),
          expressions_(scopes, procedures, diagnostics) {}

    // Returns the code of the block that is open in the scopes, after the declarations of its procedures.
    ActionPtr statements(const syntax::Block& block);
    void declareProcedures(const syntax::Block& block);

private:
    ActionPtr block(const syntax::Block& block, Offset offset) {
        return inScope(offset, [&] { return statements(block); });
    }

    // Simple statements.
    ActionPtr form(const syntax::Dim& dim, Offset offset);
    ActionPtr form(const syntax::ReDim& reDim, Offset offset);
    ActionPtr form(const syntax::Assignment& assignment, Offset offset);
    ActionPtr form(const syntax::Evaluation& evaluation, Offset offset);
    ActionPtr form(const syntax::Print& statement, Offset offset);
    ActionPtr form(const syntax::Const& form, Offset offset);
    ActionPtr form(const syntax::Raise& statement, Offset offset);
    ActionPtr form(const syntax::Return& statement, Offset offset);
    ActionPtr form(const syntax::Leave& statement, Offset offset);
    ActionPtr form(const syntax::Presentation& presentation, Offset offset);
    ActionPtr form(const syntax::Broken& broken, Offset offset);

    ActionPtr declared(const syntax::Declarator& declarator, const syntax::Dim::Group& group, const Type& type,
                       Offset offset);
    ActionPtr inferred(const syntax::Dim::Group& group, Offset offset);
    ActionPtr changedInPlace(const syntax::Expression& target, const syntax::Expression& value);
    ActionPtr cutInPlace(const Variable& variable, const syntax::Identifier& name, const syntax::Expression& value);
    ActionPtr joinedInPlace(Operand target, CodePtr text, Offset offset);
    ActionPtr changed(const syntax::Assignment& form, Operand target, Offset offset);
    CodePtr initialValue(const syntax::Declarator& declarator, const syntax::Dim::Group& group, const Type& type);
    Variable declare(const syntax::Name& name, Type type);
    bool mayDeclare(const syntax::Name& name); // reports an error if not

    // Statements with blocks (block_checker.cpp).
    ActionPtr form(const syntax::If& statement, Offset offset);
    ActionPtr form(const syntax::While& loop, Offset offset);
    ActionPtr form(const syntax::Do& loop, Offset offset);
    ActionPtr form(const syntax::Select& statement, Offset offset);
    ActionPtr form(const syntax::For& loop, Offset offset);
    ActionPtr form(const syntax::ForEach& loop, Offset offset);
    ActionPtr form(const syntax::Try& statement, Offset offset);
    // `before` contains the handlers above it.
    Handler handler(const syntax::Try::Catch& form, Offset offset, const std::vector<Handler>& before);
    CodePtr caseCondition(const std::vector<syntax::CaseTest>& tests, const Variable& value);
    Type loopType(const syntax::LoopVariable& form, const std::string& declaration); // a message suggests `declaration`
    Variable loopVariable(const syntax::LoopVariable& form, const Type& type);
    LoopBody loopBody(syntax::Surrounding what, const syntax::Block& form, Offset offset);
    CodePtr stepValue(const syntax::Expression& expression, const Type& type);

    // Procedures (procedure_checker.cpp).
    ActionPtr form(const syntax::Procedure& form, Offset offset);
    std::unique_ptr<Procedure> declaration(const syntax::Procedure& form);
    ActionPtr body(const syntax::Procedure& form, Procedure& procedure);

    ActionPtr asStep(ActionPtr action, Offset offset) {
        return step(std::move(action), expressions_.takeNeedsPool(), offset);
    }

    // Runs the check of a part. If it throws a CheckError, reports the error and returns the null value.
    template <class Check>
    auto attempt(Check check) {
        try {
            return check();
        } catch (const CheckError& error) {
            expressions_.takeNeedsPool();
            if (!error.message.empty()) diagnostics_.add(error.offset, error.message);
            return decltype(check())();
        }
    }

    template <class Check>
    ActionPtr inScope(Offset offset, Check check) {
        scopes_.open();
        ActionPtr body;
        try {
            body = check();
        } catch (const CheckError&) {
            scopes_.close();
            throw;
        }
        return scope(std::move(body), scopes_.close(), offset);
    }

    Scopes& scopes_;
    Procedures& procedures_;
    ParseMode mode_;
    Diagnostics& diagnostics_;
    ExpressionChecker expressions_;
    std::vector<syntax::Surrounding> loops_;                  // around the current place, the outermost first
    std::map<const syntax::Procedure*, Procedure*> declared_; // procedures whose bodies must be checked
    const syntax::Procedure* procedure_ = nullptr;            // around the current place; null outside of procedures
    Type resultType_;                                         // of `procedure_`
};

} // namespace host::language
