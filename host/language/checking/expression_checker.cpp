#include "language/checking/expression_checker.h"

#include "language/checking/class_names.h"
#include "language/library/functions.h"
#include "language/presentation.h"
#include "language/running/operators.h"

#include "text/literals.h"
#include "values/strings.h"

#include <algorithm>
#include <cmath>
#include <ostream>

namespace host::language {

CodePtr literalCode(const Literal& literal) {
    if (const auto* const text = std::get_if<std::string>(&literal.value)) return stringConstant(*text);
    return constant(literal.newSlot());
}

Operand literalOperand(const Literal& literal) {
    const auto* const real = std::get_if<double>(&literal.value);
    return Operand::computed(literal.type(), literalCode(literal)).markedAsWhole(real && *real == std::trunc(*real));
}

bool ExpressionChecker::takeNeedsPool() { return std::exchange(needsPool_, false); }

Operand ExpressionChecker::operand(const syntax::Expression& expression) {
    return std::visit([&](const auto& alternative) { return form(alternative, expression.offset); }, expression.form);
}

Value ExpressionChecker::value(const syntax::Expression& expression) {
    Operand found = operand(expression);
    if (found.type().kind == Kind::nothing) failCheck(expression.offset, "this call returns no value");
    Type type = found.type();
    const bool whole = found.isWhole();
    return {std::move(type), read(std::move(found), expression.offset), whole};
}

CodePtr ExpressionChecker::valueAs(const syntax::Expression& expression, const Type& type) {
    if (type.isArray && makesArray(expression))
        return newArray(std::get<syntax::Call>(expression.form).arguments, type.element()).read();
    Value found = value(expression);
    warnOfLostFraction(found, type, expression.offset);
    if (type.is(Kind::color)) warnOfInvisible(expression);
    return convert(std::move(found.code), found.type, type, expression.offset);
}

CodePtr ExpressionChecker::text(const syntax::Expression& expression) { return text(value(expression)); }

CodePtr ExpressionChecker::text(Value value) { return asText(std::move(value.code), value.type); }

CodePtr ExpressionChecker::read(Operand operand, Offset offset) {
    const Property* const property = operand.property();
    if (property && !property->getter) failCheck(offset, "'" + property->name + "' can be written but not read");
    return operand.read();
}

CodePtr ExpressionChecker::convert(CodePtr code, const Type& from, const Type& to, Offset offset, Purpose purpose) {
    if (!conversionTo(to, from, purpose)) {
        const bool converts = !to.isArray && !from.isArray && to.kind != Kind::object && from.kind != Kind::object &&
                              (to.is(Kind::string) || conversionTo(to, from, Purpose::cast));
        failCheck(offset, "this is of type " + nameOf(from) + ", but " + nameOf(to) + " is needed here" +
                              (converts ? "; '" + nameOf(to) + "(...)' converts it" : ""));
    }
    return converted(std::move(code), from, to, offset, purpose);
}

void ExpressionChecker::warnOfLostFraction(const Value& value, const Type& type, Offset offset) {
    if (value.type.is(Kind::real) && type.is(Kind::integer) && !value.whole) {
        diagnostics_.warn(offset,
                          "this Double loses its fraction here; write Floor(), Round() or Integer() if this is intended");
    }
}

void ExpressionChecker::warnOfInvisible(const syntax::Expression& expression) {
    constexpr HostInteger opaque = 0x1000000;
    const auto* const literal = std::get_if<Literal>(&expression.form);
    const auto* const number = literal ? std::get_if<HostInteger>(&literal->value) : nullptr;
    if (number && *number > 0 && *number < opaque) {
        diagnostics_.warn(expression.offset,
                          "this number is an invisible colour, because its fourth byte, alpha, is 0; write " +
                              literalOf(static_cast<HostColor>(*number) | 0xFF000000));
    }
}

Operand ExpressionChecker::form(const Literal& literal, Offset) { return literalOperand(literal); }

Operand ExpressionChecker::form(const syntax::Identifier& identifier, Offset offset) {
    if (const Variable* const variable = scopes_.find(identifier.name)) {
        scopes_.use(*variable);
        if (variable->type.kind == Kind::nothing) throw CheckError{offset, {}};
        if (variable->constant) return literalOperand(*variable->constant);
        return Operand::variable(*variable);
    }
    if (registry().find(identifier.name))
        failCheck(offset, "'" + std::string(identifier.name) + "' is a class; a value is needed here");
    return function(identifier.name, {}, offset);
}

Operand ExpressionChecker::form(const syntax::TypeTest& test, Offset offset) {
    Value object = value(*test.object);
    if (!object.type.isObjectReference())
        failCheck(offset, "TypeOf tests objects, not a value of type " + nameOf(object.type));
    return Operand::computed(Type::plain(Kind::boolean), isOfClass(std::move(object.code), classOf(test.className)));
}

Operand ExpressionChecker::form(const syntax::Conditional& form, Offset offset) {
    CodePtr condition = valueAs(*form.condition, Type::plain(Kind::boolean));
    Value yes = value(*form.yes);
    Value no = value(*form.no);
    const Type type = united(yes.type, no.type);
    const bool whole = yes.whole && no.whole;
    CodePtr one = convert(std::move(yes.code), yes.type, type, form.yes->offset);
    CodePtr other = convert(std::move(no.code), no.type, type, form.no->offset);
    if (type.isNil()) failCheck(offset, "both values are Nil");
    return Operand::computed(type, choice(std::move(condition), std::move(one), std::move(other))).markedAsWhole(whole);
}

// ---- Constants

void ExpressionChecker::failAssignment(const syntax::Expression& target) {
    const auto* const identifier = std::get_if<syntax::Identifier>(&target.form);
    const auto* const member = std::get_if<syntax::Member>(&target.form);
    const Variable* const variable = identifier ? scopes_.find(identifier->name) : nullptr;
    const ClassInfo* const info = member ? classNamedBy(*member->object) : nullptr;
    std::string reason = "it is a value";
    if (variable)
        reason = quoted(identifier->name) + " is a constant, declared on " + diagnostics_.lineOf(variable->declared);
    if (info && info->findConstant(member->name.text))
        reason = quoted(member->name.text) + " is a constant of " + info->name();
    failCheck(target.offset, "this cannot be assigned to: " + reason);
}

// Returns whether a call of the name with constant arguments is a constant: a conversion, or a function that only computes.
bool ExpressionChecker::computesConstant(std::string_view name) const {
    if (typeNamed(name).kind != Kind::object) return true;
    return procedures_.find(name).empty() && !findFunctions(name).empty() && functionNature(name) != Nature::acts;
}

bool ExpressionChecker::isConstant(const syntax::Expression& expression) const {
    if (const auto* const unary = std::get_if<syntax::Unary>(&expression.form)) return isConstant(*unary->operand);
    if (const auto* const binary = std::get_if<syntax::Binary>(&expression.form))
        return isConstant(*binary->left) && isConstant(*binary->right);
    if (const auto* const identifier = std::get_if<syntax::Identifier>(&expression.form)) {
        const Variable* const variable = scopes_.find(identifier->name);
        if (variable) return variable->constant || variable->type.kind == Kind::nothing;
        return computesConstant(identifier->name);
    }
    if (const auto* const call = std::get_if<syntax::Call>(&expression.form)) {
        const auto* const callee = std::get_if<syntax::Identifier>(&call->callee->form);
        return callee && !scopes_.find(callee->name) && computesConstant(callee->name) &&
               std::all_of(call->arguments.begin(), call->arguments.end(),
                           [&](const auto& each) { return isConstant(*each); });
    }
    if (const auto* const member = std::get_if<syntax::Member>(&expression.form)) {
        const ClassInfo* const info = classNamedBy(*member->object);
        return info && info->findConstant(member->name.text);
    }
    return std::holds_alternative<Literal>(expression.form);
}

Literal ExpressionChecker::constantValue(const syntax::Expression& expression, const std::optional<Type>& wanted) {
    if (!isConstant(expression))
        failCheck(expression.offset, "this value may contain only literals, constants and functions that only compute");
    Value found = value(expression);
    if (found.type.isNil() && wanted && wanted->isObjectReference()) return {};
    const Type type = wanted ? *wanted : found.type;
    const bool simple = type.isNumber() || type.is(Kind::boolean) || type.is(Kind::string);
    if (!simple) failCheck(expression.offset, "a constant cannot be of type " + nameOf(type));
    warnOfLostFraction(found, type, expression.offset);
    const CodePtr code = convert(std::move(found.code), found.type, type, expression.offset);
    std::ostream nowhere(nullptr);
    Execution execution{nowhere};
    Frame frame(execution);
    try {
        const Slot result = code->evaluate(frame);
        Literal literal;
        switch (type.kind) {
        case Kind::boolean: literal.value = result.boolean != 0; break;
        case Kind::integer: literal.value = result.integer; break;
        case Kind::real: literal.value = result.real; break;
        case Kind::color: literal.value = result.color; break;
        default: literal.value = utf8Of(result.string);
        }
        frame.release({0, 0});
        return literal;
    } catch (const Raised& raised) {
        frame.release({0, 0});
        failCheck(raised.offset(), exceptionMessage(raised.exception()));
    }
}

} // namespace host::language
