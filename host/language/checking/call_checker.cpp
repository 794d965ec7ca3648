// Checks calls of procedures, bound functions and constructors.
#include "language/checking/class_names.h"
#include "language/checking/expression_checker.h"
#include "language/library/functions.h"
#include "language/running/array_operations.h"

#include "model/resolve.h"

#include <algorithm>

namespace host::language {
namespace {

std::vector<Argument> described(const std::vector<Operand>& operands) {
    std::vector<Argument> arguments;
    for (const Operand& operand : operands)
        arguments.push_back({operand.type(), operand.isAssignable()});
    return arguments;
}

// Returns the property if `value`, the argument for a new object of the class, is a colour property of the same class;
// otherwise null. Such a value has no alpha.
const Property* colorCopied(const ClassInfo& info, const Operand& value) {
    const Property* const property = value.property();
    return property && property->owner == &info && property->type.is(Kind::color) ? property : nullptr;
}

// Returns whether the function of the language returns a whole number for these arguments.
bool returnsWhole(std::string_view function, const std::vector<Operand>& arguments) {
    const Nature nature = functionNature(function);
    return nature == Nature::returnsWhole ||
           (nature == Nature::keepsWhole &&
            std::all_of(arguments.begin(), arguments.end(), [](const Operand& each) { return each.isWhole(); }));
}

} // namespace

Operand ExpressionChecker::form(const syntax::Call& call, Offset offset) {
    if (const auto* const called = std::get_if<syntax::Member>(&call.callee->form)) return member(*called, &call.arguments);
    if (const auto* const identifier = std::get_if<syntax::Identifier>(&call.callee->form)) {
        if (!scopes_.find(identifier->name)) {
            const ClassInfo* const info = registry().find(identifier->name);
            const Type plain = typeNamed(identifier->name);
            if (plain.kind != Kind::object) return plainConversion(plain, call.arguments, offset);
            return info ? cast(*info, call.arguments, offset) : function(identifier->name, call.arguments, offset);
        }
    }
    Value array = value(*call.callee);
    if (!array.type.isArray) requireNotHidden(*call.callee);
    return element(std::move(array), call.arguments, offset);
}

// Throws if the callee is a variable with the name of a function.
void ExpressionChecker::requireNotHidden(const syntax::Expression& callee) const {
    const auto* const identifier = std::get_if<syntax::Identifier>(&callee.form);
    const Variable* const variable = identifier ? scopes_.find(identifier->name) : nullptr;
    if (!variable || !isFunction(identifier->name)) return;
    failCheck(callee.offset, "this is the variable " + quoted(identifier->name) + " declared on " +
                                 diagnostics_.lineOf(variable->declared) + ", which hides the function " +
                                 quoted(nameOfFunction(identifier->name)));
}

Operand ExpressionChecker::callProcedure(const OverloadSet& overloads, const Arguments& arguments, Offset offset) {
    Operands values = operands(arguments);
    const Resolution resolution = resolveCall(overloads.front()->signature.name, overloads, described(values));
    if (!resolution.method) failCheck(offset, resolution.error);
    const auto& procedure = static_cast<const Procedure&>(*resolution.method);
    std::vector<ArgumentCode> bound = bind(resolution, std::move(values), offset);
    return Operand::result(procedure.signature.result, language::callProcedure(procedure, std::move(bound), offset));
}

Operand ExpressionChecker::newObject(const syntax::New& form, Offset offset) {
    ClassInfo* const info = classOf(form.className);
    if (!info) failCheck(form.className.offset, "'Object' cannot be created; name the object's class");
    Operands values = operands(form.arguments);
    const Resolution resolution = resolveConstruction(*info, described(values));
    if (!resolution.error.empty()) failCheck(offset, resolution.error);
    requirePoolFor(info);
    if (const Property* const copied = values.size() == 1 ? colorCopied(*info, values.front()) : nullptr) {
        diagnostics_.warn(form.arguments.front()->offset, "this creates an invisible colour: " + copied->name +
                                                              " leaves the fourth byte 0, which is alpha here");
    }
    std::vector<ArgumentCode> bound = bind(resolution, std::move(values), offset);
    return Operand::result(Type::object(info->name()), makeObject(*info, resolution.method, std::move(bound), offset));
}

ExpressionChecker::Operands ExpressionChecker::operands(const Arguments& arguments) {
    Operands found;
    for (const syntax::ExpressionPtr& argument : arguments)
        found.push_back(operand(*argument));
    return found;
}

Operand ExpressionChecker::callOne(const std::string& what, const OverloadSet& overloads, CodePtr receiver,
                                   const Arguments* arguments, Offset offset) {
    Operands values = arguments ? operands(*arguments) : Operands();
    const Resolution resolution = resolveCall(what, overloads, described(values));
    if (!resolution.method) failCheck(offset, resolution.error);
    const Method& method = *resolution.method;
    requirePoolFor(method.owner);
    const bool whole = !method.owner && returnsWhole(method.signature.name, values);
    std::vector<ArgumentCode> bound = bind(resolution, std::move(values), offset);
    return Operand::call(method, std::move(receiver), std::move(bound), offset).markedAsWhole(whole);
}

std::vector<ArgumentCode> ExpressionChecker::bind(const Resolution& resolution, Operands operands, Offset offset) {
    const auto argument = [&](std::size_t index, const Type& type) {
        const Type from = operands[index].type();
        return convert(read(std::move(operands[index]), offset), from, type, offset, Purpose::argument);
    };
    std::vector<ArgumentCode> codes;
    for (const Binding& binding : resolution.bindings) {
        const Type& type = binding.parameter->type;
        switch (binding.source) {
        case Binding::Source::argument: codes.push_back({argument(binding.first, type), nullptr, nullptr}); break;
        case Binding::Source::byReference: codes.push_back(operands[binding.first].byReference()); break;
        case Binding::Source::defaultValue:
            codes.push_back({literalCode(*binding.parameter->defaultValue), nullptr, nullptr});
            break;
        case Binding::Source::paramArray: {
            std::vector<CodePtr> elements;
            for (std::size_t i = 0; i < binding.conversions.size(); ++i)
                elements.push_back(argument(binding.first + i, type.element()));
            codes.push_back({makeArrayOf(type.element(), std::move(elements)), nullptr, nullptr});
        }
        }
    }
    return codes;
}

} // namespace host::language
