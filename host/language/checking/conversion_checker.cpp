// Checks conversions that are written as calls: Type(value) and Class(object).
#include "language/checking/expression_checker.h"
#include "language/running/operators.h"

namespace host::language {

Operand ExpressionChecker::plainConversion(const Type& type, const Arguments& arguments, Offset offset) {
    if (arguments.size() != 1) failCheck(offset, "a conversion to " + nameOf(type) + " takes one value");
    Value found = value(*arguments.front());
    if (type.is(Kind::string)) return Operand::computed(type, text(std::move(found)));
    CodePtr code = convert(std::move(found.code), found.type, type, arguments.front()->offset, Purpose::cast);
    return Operand::computed(type, std::move(code));
}

Operand ExpressionChecker::cast(const ClassInfo& info, const Arguments& arguments, Offset offset) {
    if (arguments.size() != 1)
        failCheck(offset, "a conversion to " + info.name() + " takes one object; 'New " + info.name() + "' creates one");
    Value object = value(*arguments.front());
    const Type target = Type::object(info.name());
    const bool related =
        object.type.kind == Kind::variant ||
        (object.type.kind == Kind::object && !object.type.isNil() &&
         (conversionTo(target, object.type, Purpose::assignment) || conversionTo(object.type, target, Purpose::assignment)));
    if (object.type.isArray || !related) {
        const bool constructs = resolveConstruction(info, {{object.type, false}}).error.empty();
        failCheck(arguments.front()->offset, "this is of type " + nameOf(object.type) + " and can never be a " +
                                                 info.name() +
                                                 (constructs ? "; 'New " + info.name() + "(...)' creates one" : ""));
    }
    return Operand::computed(target, converted(std::move(object.code), Type::plain(Kind::variant), target, offset));
}

} // namespace host::language
