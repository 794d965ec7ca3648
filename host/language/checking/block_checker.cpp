// Checks statements with blocks.
#include "language/checking/class_names.h"
#include "language/checking/statement_checker.h"
#include "language/running/array_operations.h"
#include "language/running/operators.h"
#include "language/running/places.h"

#include <cstdint>

namespace host::language {
namespace {

// Returns the number if the expression is a literal, with or without a sign.
std::optional<double> literalNumber(const syntax::Expression& expression) {
    const auto* const unary = std::get_if<syntax::Unary>(&expression.form);
    if (unary && unary->operation == syntax::Operator::negate) {
        const std::optional<double> number = literalNumber(*unary->operand);
        return number ? std::optional<double>(-*number) : std::nullopt;
    }
    const auto* const literal = std::get_if<Literal>(&expression.form);
    if (!literal) return std::nullopt;
    if (const auto* const integer = std::get_if<HostInteger>(&literal->value)) return static_cast<double>(*integer);
    const auto* const real = std::get_if<double>(&literal->value);
    return real ? std::optional<double>(*real) : std::nullopt;
}

} // namespace

// Returns a condition or bound as a separate step, or null after an error.
CodePtr StatementChecker::stepValue(const syntax::Expression& expression, const Type& type) {
    return attempt([&] {
        CodePtr value = expressions_.valueAs(expression, type);
        return step(std::move(value), expressions_.takeNeedsPool(), expression.offset);
    });
}

ActionPtr StatementChecker::form(const syntax::If& statement, Offset offset) {
    std::vector<Branch> list;
    for (const syntax::If::Branch& branch : statement.branches) {
        CodePtr condition = branch.condition ? stepValue(*branch.condition, Type::plain(Kind::boolean)) : nullptr;
        list.push_back({std::move(condition), block(branch.block, offset)});
    }
    return branches(std::move(list));
}

ActionPtr StatementChecker::form(const syntax::While& loop, Offset offset) {
    CodePtr condition = stepValue(*loop.condition, Type::plain(Kind::boolean));
    return conditionLoop(std::move(condition), nullptr, loopBody(syntax::Surrounding::whileLoop, loop.block, offset));
}

ActionPtr StatementChecker::form(const syntax::Do& loop, Offset offset) {
    const auto condition = [&](const syntax::ExpressionPtr& expression) {
        return expression ? stepValue(*expression, Type::plain(Kind::boolean)) : nullptr;
    };
    CodePtr before = condition(loop.before);
    LoopBody body = loopBody(syntax::Surrounding::doLoop, loop.block, offset);
    return conditionLoop(std::move(before), condition(loop.after), std::move(body));
}

LoopBody StatementChecker::loopBody(syntax::Surrounding what, const syntax::Block& form, Offset offset) {
    loops_.push_back(what);
    ActionPtr body = block(form, offset);
    const auto depth = static_cast<std::uint16_t>(loops_.size());
    loops_.pop_back();
    return {std::move(body), depth, offset};
}

// The value is computed once, into a variable without a name.
ActionPtr StatementChecker::form(const syntax::Select& statement, Offset offset) {
    return inScope(offset, [&] {
        Value selected = attempt([&] { return expressions_.value(*statement.value); });
        const Variable variable{scopes_.declareHidden(selected.type), selected.type, statement.value->offset};
        Actions actions;
        actions.push_back(asStep(writeVariable(variable.place, selected.type, std::move(selected.code)), offset));
        std::vector<Branch> list;
        for (const syntax::Select::Case& branch : statement.cases) {
            CodePtr condition = attempt([&] {
                if (branch.tests.empty() || variable.type.kind == Kind::nothing) return CodePtr();
                CodePtr tests = caseCondition(branch.tests, variable);
                return step(std::move(tests), expressions_.takeNeedsPool(), branch.tests.front().first->offset);
            });
            list.push_back({std::move(condition), block(branch.block, offset)});
        }
        actions.push_back(branches(std::move(list)));
        return sequence(std::move(actions));
    });
}

CodePtr StatementChecker::caseCondition(const std::vector<syntax::CaseTest>& tests, const Variable& value) {
    const auto compared = [&](syntax::Operator operation, const syntax::Expression& with) {
        return expressions_.comparison(operation, {value.type, readVariable(value.place, value.type)}, with);
    };
    CodePtr any;
    for (const syntax::CaseTest& test : tests) {
        const auto* const binary = std::get_if<syntax::Binary>(&test.first->form);
        if (binary && binary->operation == syntax::Operator::logicalOr && !value.type.is(Kind::boolean))
            diagnostics_.warn(test.first->offset, "this 'Or' computes one number from two; a comma separates values");
        CodePtr one = compared(test.last ? syntax::Operator::greaterEqual : test.operation, *test.first);
        if (test.last) {
            one = logic(syntax::Operator::logicalAnd, Kind::boolean, std::move(one),
                        compared(syntax::Operator::lessEqual, *test.last));
        }
        any = any ? logic(syntax::Operator::logicalOr, Kind::boolean, std::move(any), std::move(one)) : std::move(one);
    }
    return any;
}

// Returns the type of a loop's variable, or Void after an error.
Type StatementChecker::loopType(const syntax::LoopVariable& form, const std::string& declaration) {
    if (form.type) return attempt([&] { return typeOf(*form.type); });
    return attempt([&] {
        expressions_.requireVariable(form.name, declaration);
        const Operand variable = expressions_.operand({form.name.offset, syntax::Identifier{form.name.text}});
        if (!variable.isAssignable()) expressions_.failAssignment({form.name.offset, syntax::Identifier{form.name.text}});
        return variable.type();
    });
}

// Returns the loop's own variable, or the one that is declared before the loop.
Variable StatementChecker::loopVariable(const syntax::LoopVariable& form, const Type& type) {
    const Variable* const known = form.type ? nullptr : scopes_.find(form.name.text);
    return known ? *known : declare(form.name, type);
}

ActionPtr StatementChecker::form(const syntax::For& loop, Offset offset) {
    return inScope(offset, [&] {
        const Type type = loopType(loop.variable, "For " + std::string(loop.variable.name.text) + " As Integer = ...");
        const bool counts = type.is(Kind::integer) || type.is(Kind::real);
        if (!counts && type.kind != Kind::nothing)
            diagnostics_.add(loop.variable.name.offset, "a For loop counts an Integer or a Double, not a " + nameOf(type));
        const auto bound = [&](const syntax::ExpressionPtr& expression) {
            return expression && counts ? stepValue(*expression, type) : nullptr;
        };
        CodePtr first = bound(loop.first);
        CodePtr last = bound(loop.last);
        CodePtr stepSize = bound(loop.step);
        const std::optional<double> from = literalNumber(*loop.first), to = literalNumber(*loop.last);
        if (from && to && !loop.step && (loop.down ? *from < *to : *from > *to)) {
            diagnostics_.warn(loop.first->offset, std::string("this loop never runs: it counts ") +
                                                      (loop.down ? "down; 'To' counts up" : "up; 'DownTo' counts down"));
        }
        const VariablePlace variable = loopVariable(loop.variable, type).place;
        return forLoop({variable, type.kind, std::move(first), std::move(last), std::move(stepSize), loop.down,
                        loopBody(syntax::Surrounding::forLoop, loop.block, offset)});
    });
}

ActionPtr StatementChecker::form(const syntax::ForEach& loop, Offset offset) {
    return inScope(offset, [&] {
        Value array = attempt([&] {
            Value found = expressions_.valueToWalk(*loop.array);
            if (!found.type.isArray)
                failCheck(loop.array->offset, "this is of type " + nameOf(found.type) + ", not an array");
            return found;
        });
        const VariablePlace held = scopes_.declareHidden(array.type);
        const VariablePlace index = scopes_.declareHidden(Type::plain(Kind::integer));
        Actions actions;
        actions.push_back(asStep(writeVariable(held, array.type, std::move(array.code)), offset));

        const Type elementType = array.type.element();
        const Type type = loopType(loop.variable, "For Each " + std::string(loop.variable.name.text) + " As " +
                                                      nameOf(elementType) + " In ...");
        const Variable variable = loopVariable(loop.variable, type);
        if (type.kind != Kind::nothing && elementType.kind != Kind::nothing &&
            !conversionTo(type, elementType, Purpose::assignment)) {
            diagnostics_.add(loop.variable.name.offset,
                             "the elements are of type " + nameOf(elementType) + ", but the variable is a " + nameOf(type));
        }
        expressions_.warnOfLostFraction({elementType, nullptr}, type, loop.variable.name.offset);
        CodePtr element = readElement(readVariable(held, array.type), readVariable(index, Type::plain(Kind::integer)),
                                      elementType, offset);
        CodePtr converted = language::converted(std::move(element), elementType, type, offset);
        ActionPtr assign = step(writeVariable(variable.place, type, std::move(converted)), false, offset);
        LoopBody body = loopBody(syntax::Surrounding::forLoop, loop.block, loop.array->offset);
        actions.push_back(forEachLoop(held, index, std::move(assign), std::move(body)));
        return sequence(std::move(actions));
    });
}

ActionPtr StatementChecker::form(const syntax::Try& statement, Offset offset) {
    ActionPtr body = block(statement.block, offset);
    std::vector<Handler> handlers;
    for (const syntax::Try::Catch& form : statement.catches)
        handlers.push_back(handler(form, offset, handlers));
    ActionPtr finally = statement.finally ? block(*statement.finally, offset) : nullptr;
    return tryBlock(std::move(body), std::move(handlers), std::move(finally));
}

Handler StatementChecker::handler(const syntax::Try::Catch& form, Offset offset, const std::vector<Handler>& before) {
    Handler created{nullptr, std::nullopt, nullptr};
    created.body = inScope(offset, [&] {
        if (form.variable) {
            created.info = attempt([&] { return exceptionClassOf(*form.className); });
            for (const Handler& earlier : before) {
                if (!created.info || (earlier.info && !created.info->isOrDescendsFrom(*earlier.info))) continue;
                diagnostics_.warn(form.className->offset,
                                  "this Catch never runs: an earlier one catches every " + created.info->name());
                break;
            }
            created.variable = declare(*form.variable, created.info ? Type::object(created.info->name()) : Type()).place;
        }
        return statements(form.block);
    });
    return created;
}

} // namespace host::language
