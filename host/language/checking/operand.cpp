#include "language/checking/operand.h"

#include "language/running/array_operations.h"
#include "language/running/places.h"

#include <algorithm>

namespace host::language {

Operand Operand::result(Type type, CodePtr code) { return {std::move(type), Result{std::move(code)}}; }

Operand Operand::call(const Method& method, CodePtr receiver, std::vector<ArgumentCode> arguments, Offset offset) {
    return {method.signature.result, Call{&method, std::move(receiver), std::move(arguments), offset}};
}

Operand Operand::computed(Type type, CodePtr code) { return {std::move(type), Computed{std::move(code)}}; }
Operand Operand::variable(const Variable& variable) { return {variable.type, variable.place}; }

Operand Operand::element(Type type, CodePtr array, CodePtr index, Offset offset) {
    return {std::move(type), ElementPlace{std::move(array), std::move(index), offset}};
}

Operand Operand::property(const Property& property, CodePtr object, Offset offset) {
    return {property.type, PropertyPlace{&property, std::move(object), offset}};
}

const Property* Operand::property() const {
    const auto* const place = std::get_if<PropertyPlace>(&form_);
    return place ? place->property : nullptr;
}

bool Operand::isAssignable() const {
    return std::holds_alternative<VariablePlace>(form_) || std::holds_alternative<ElementPlace>(form_);
}

bool Operand::isWritable() const {
    const auto* const call = std::get_if<Call>(&form_);
    return isAssignable() || (property() && property()->setter) || (call && call->method->setter);
}

bool Operand::canBeEmptied() const {
    const auto* const call = std::get_if<Call>(&form_);
    if (call) return isWritable() && call->method->owner->isBuiltIn() && type_.is(Kind::variant);
    return isAssignable() || (isWritable() && property()->getter && property()->owner->isBuiltIn());
}

std::optional<Operand> Operand::twin(Scopes& scopes, Actions& actions) {
    struct Held {
        VariablePlace place;
        Type type;
        CodePtr read() const { return readVariable(place, type); }
    };
    const auto hold = [&](CodePtr code, Type type) {
        const VariablePlace place = scopes.declareHidden(type);
        actions.push_back(writeVariable(place, type, std::move(code)));
        return Held{place, std::move(type)};
    };
    if (const auto* const variable = std::get_if<VariablePlace>(&form_)) return Operand(type_, *variable);
    if (auto* const place = std::get_if<ElementPlace>(&form_)) {
        const Held array = hold(std::move(place->array), type_.arrayOf());
        const Held index = hold(std::move(place->index), Type::plain(Kind::integer));
        place->array = array.read();
        place->index = index.read();
        return element(type_, array.read(), index.read(), place->offset);
    }
    if (auto* const place = std::get_if<PropertyPlace>(&form_)) {
        const Held object = hold(std::move(place->object), Type::object("Object"));
        place->object = object.read();
        return Operand(type_, PropertyPlace{place->property, object.read(), place->offset});
    }
    if (auto* const call = std::get_if<Call>(&form_); call && isWritable()) {
        const std::vector<Parameter>& parameters = call->method->signature.parameters;
        if (std::any_of(parameters.begin(), parameters.end(), [](const Parameter& each) { return each.byRef; }))
            return std::nullopt;
        Call same{call->method, nullptr, {}, call->offset};
        if (call->receiver) {
            const Held receiver = hold(std::move(call->receiver), Type::object("Object"));
            call->receiver = receiver.read();
            same.receiver = receiver.read();
        }
        for (std::size_t i = 0; i < parameters.size(); ++i) {
            const Held argument = hold(std::move(call->arguments[i].value), parameters[i].type);
            call->arguments[i].value = argument.read();
            same.arguments.push_back({argument.read(), nullptr, nullptr});
        }
        return Operand(type_, std::move(same));
    }
    return std::nullopt;
}

CodePtr Operand::read() {
    if (auto* const result = std::get_if<Result>(&form_)) return std::move(result->code);
    if (auto* const call = std::get_if<Call>(&form_))
        return callMethod(*call->method, std::move(call->receiver), std::move(call->arguments), call->offset);
    if (auto* const computed = std::get_if<Computed>(&form_)) return std::move(computed->code);
    if (const auto* const variable = std::get_if<VariablePlace>(&form_)) return readVariable(*variable, type_);
    if (auto* const element = std::get_if<ElementPlace>(&form_))
        return readElement(std::move(element->array), std::move(element->index), type_, element->offset);
    auto& place = std::get<PropertyPlace>(form_);
    return readProperty(*place.property, std::move(place.object), place.offset);
}

ArgumentCode Operand::byReference() {
    if (const auto* const variable = std::get_if<VariablePlace>(&form_))
        return {addressOfVariable(*variable), nullptr, nullptr, Counting::none};
    auto& element = std::get<ElementPlace>(form_);
    return {nullptr, std::move(element.array), std::move(element.index), countingOf(type_)};
}

ActionPtr Operand::assign(CodePtr value) {
    if (const auto* const variable = std::get_if<VariablePlace>(&form_))
        return writeVariable(*variable, type_, std::move(value));
    if (auto* const element = std::get_if<ElementPlace>(&form_))
        return writeElement(std::move(element->array), std::move(element->index), std::move(value), element->offset);
    if (auto* const call = std::get_if<Call>(&form_)) {
        call->arguments.push_back({std::move(value), nullptr, nullptr});
        return callSetter(*call->method, std::move(call->receiver), std::move(call->arguments), call->offset);
    }
    auto& place = std::get<PropertyPlace>(form_);
    return writeProperty(*place.property, std::move(place.object), std::move(value), place.offset);
}

} // namespace host::language
