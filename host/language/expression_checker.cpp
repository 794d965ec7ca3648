#include "language/expression_checker.h"

#include "language/check_error.h"
#include "language/class_names.h"
#include "language/operators.h"

namespace host::language {

CodePtr literalCode(const Literal& literal) {
    if (const auto* const text = std::get_if<std::string>(&literal.value)) return stringConstant(*text);
    return constant(literal.newSlot());
}

bool ExpressionChecker::takeNeedsPool() { return std::exchange(needsPool_, false); }

Operand ExpressionChecker::operand(const syntax::Expression& expression) {
    return std::visit([&](const auto& alternative) { return form(alternative, expression.offset); }, expression.form);
}

Value ExpressionChecker::value(const syntax::Expression& expression) {
    Operand found = operand(expression);
    if (found.type().kind == Kind::Void) failCheck(expression.offset, "this call gives no value");
    Type type = found.type();
    return {std::move(type), read(std::move(found), expression.offset)};
}

CodePtr ExpressionChecker::valueAs(const syntax::Expression& expression, const Type& type) {
    Value found = value(expression);
    return convert(std::move(found.code), found.type, type, expression.offset);
}

CodePtr ExpressionChecker::text(const syntax::Expression& expression) { return text(value(expression)); }

CodePtr ExpressionChecker::text(Value value) { return asText(std::move(value.code), value.type); }

CodePtr ExpressionChecker::read(Operand operand, Offset offset) {
    const Property* const property = operand.property();
    if (property && !property->getter) failCheck(offset, "'" + property->name + "' can be written but not read");
    return operand.read();
}

CodePtr ExpressionChecker::convert(CodePtr code, const Type& from, const Type& to, Offset offset) {
    if (!isConvertible(from, to))
        failCheck(offset, "this is of type " + nameOf(from) + ", but " + nameOf(to) + " is needed here");
    return converted(std::move(code), from, to, offset);
}

Operand ExpressionChecker::form(const Literal& literal, Offset) {
    return Operand::computed(literal.type(), literalCode(literal));
}

Operand ExpressionChecker::form(const syntax::Reference& reference, Offset offset) {
    if (const Variable* const variable = scopes_.find(reference.name)) {
        if (variable->type.kind == Kind::Void) throw CheckError{offset, {}};
        return Operand::variable(*variable);
    }
    if (registry().find(reference.name))
        failCheck(offset, "'" + std::string(reference.name) + "' is a class; a value is needed here");
    return function(reference.name, {}, offset);
}

Operand ExpressionChecker::form(const syntax::IsA& test, Offset offset) {
    Value object = value(*test.object);
    if (!object.type.isObjectReference()) failCheck(offset, "IsA asks objects, not a value of type " + nameOf(object.type));
    return Operand::computed({Kind::Boolean, false, {}}, isOfClass(std::move(object.code), classOf(test.className)));
}

} // namespace host::language
