// Which Doubles are whole numbers by how they are made, and the warning of those that are not.
#include "language/checking/expression_checker.h"

#include <algorithm>
#include <cmath>

namespace host::language {
namespace {

using syntax::Operator;

bool isOneOf(std::string_view name, std::initializer_list<std::string_view> names) {
    return std::any_of(names.begin(), names.end(), [&](auto other) { return equalIgnoringCase(name, other); });
}

} // namespace

void ExpressionChecker::warnOfLostFraction(const syntax::Expression& expression, const Type& from, const Type& to) {
    if (losesFraction(from, to) && !hasNoFraction(expression)) warnOfLostFraction(expression.offset);
}

void ExpressionChecker::warnOfLostFraction(Offset offset) {
    diagnostics_.warn(offset, "this Double loses its fraction here; Floor(), Round() or Integer() says that it shall");
}

bool ExpressionChecker::hasNoFraction(const syntax::Expression& expression) {
    if (const auto* const literal = std::get_if<Literal>(&expression.form)) {
        const auto* const real = std::get_if<double>(&literal->value);
        return !real || *real == std::trunc(*real);
    }
    if (const auto* const unary = std::get_if<syntax::Unary>(&expression.form)) return hasNoFraction(*unary->operand);
    if (const auto* const binary = std::get_if<syntax::Binary>(&expression.form)) {
        if (binary->operation == Operator::integerDivide) return true;
        return binary->operation != Operator::divide && hasNoFraction(*binary->left) && hasNoFraction(*binary->right);
    }
    if (const auto* const conditional = std::get_if<syntax::Conditional>(&expression.form))
        return hasNoFraction(*conditional->yes) && hasNoFraction(*conditional->no);
    if (const auto* const identifier = std::get_if<syntax::Identifier>(&expression.form)) {
        const Variable* const variable = scopes_.find(identifier->name);
        if (variable && variable->constant) return hasNoFraction({expression.offset, *variable->constant});
    }
    if (const auto* const call = std::get_if<syntax::Call>(&expression.form)) {
        const auto* const name = std::get_if<syntax::Identifier>(&call->callee->form);
        if (name && !scopes_.find(name->name) && procedures_.find(name->name).empty()) {
            if (isOneOf(name->name, {"Floor", "Round", "Ceil"})) return true;
            if (isOneOf(name->name, {"Abs", "Min", "Max"})) {
                return std::all_of(call->arguments.begin(), call->arguments.end(),
                                   [&](const syntax::ExpressionPtr& argument) { return hasNoFraction(*argument); });
            }
        }
    }
    return operand(expression).type().kind != Kind::real;
}

} // namespace host::language
