// Members, calls and array elements.
#include "language/checking/class_names.h"
#include "language/checking/expression_checker.h"
#include "language/library/functions.h"
#include "language/reading/diagnostics.h"
#include "language/reading/foreign_spellings.h"
#include "language/reading/lexer.h"
#include "language/running/array_members.h"
#include "language/running/operators.h"
#include "language/running/places.h"

#include "model/resolve.h"
#include "text/nearest_name.h"

#include <algorithm>
#include <iterator>

namespace host::language {
namespace {

using syntax::Name;

constexpr std::string_view upperBoundName = "UBound";
constexpr std::string_view lowerBoundName = "LBound";
constexpr std::string_view newArrayName = "Array";

std::string quoted(std::string_view name) { return "'" + std::string(name) + "'"; }

// Bound functions of the language and of built-in classes autorelease nothing.
bool mayAutorelease(const ClassInfo* owner) { return owner && !owner->isBuiltIn(); }

std::vector<Argument> described(const std::vector<Operand>& operands) {
    std::vector<Argument> arguments;
    for (const Operand& operand : operands)
        arguments.push_back({operand.type(), operand.isAssignable()});
    return arguments;
}

// Whether a new object of the class is a colour that nobody sees, whatever colour the value is of.
bool isInvisible(const ClassInfo& info, const Operand& value) {
    const Property* const property = value.property();
    return property && property->owner == &info && info.name() == "NSColorZRX" && property->name == "colorValue";
}

// Whether the function of the language gives a whole number, of these arguments.
bool givesWhole(std::string_view function, const std::vector<Operand>& arguments) {
    for (const char* const name : {"Floor", "Round", "Ceil"})
        if (function == name) return true;
    for (const char* const name : {"Abs", "Min", "Max"}) {
        if (function == name)
            return std::all_of(arguments.begin(), arguments.end(), [](const Operand& each) { return each.isWhole(); });
    }
    return false;
}

[[noreturn]] void failUnknownMember(const ClassInfo& info, const Name& name) {
    NearestName nearest(name.text);
    for (const ClassInfo* from = &info; from; from = from->super()) {
        for (const Method& method : from->methods())
            nearest.offer(method.signature.name);
        for (const Method& method : from->sharedMethods())
            nearest.offer(method.signature.name);
        for (const Property& property : from->properties())
            nearest.offer(property.name);
        for (const Constant& constant : from->constants())
            nearest.offer(constant.name);
    }
    failCheck(name.offset, info.name() + " has no member " + quoted(name.text) + nearest.suggestion());
}

} // namespace

Type united(const Type& a, const Type& b) {
    const Type variant = Type::plain(Kind::variant);
    if (a.kind == Kind::nothing) return b;
    if (a == variant || b == variant) return variant;
    if (conversionTo(a, b, Purpose::argument)) return a;
    return conversionTo(b, a, Purpose::argument) ? b : variant;
}

// ---- Names

ClassInfo* ExpressionChecker::classNamedBy(const syntax::Expression& expression) const {
    const auto* const identifier = std::get_if<syntax::Identifier>(&expression.form);
    return identifier && !scopes_.find(identifier->name) ? registry().find(identifier->name) : nullptr;
}

void ExpressionChecker::failUnknownName(std::string_view name, Offset offset, bool called) const {
    const std::string what = (called ? "there is no function or array " : "there is no variable ") + quoted(name);
    const std::string_view hint = hintForName(name);
    if (!hint.empty()) failCheck(offset, what + "; " + std::string(hint));
    NearestName nearest(name);
    if (!called) scopes_.offerNames(nearest);
    for (const auto& entry : procedures_.visible())
        nearest.offer(entry.first);
    for (const Method& method : functions())
        nearest.offer(method.signature.name);
    nearest.offer(upperBoundName);
    nearest.offer(lowerBoundName);
    nearest.offer(newArrayName);
    if (called) scopes_.offerNames(nearest);
    for (const auto& info : registry().classes())
        nearest.offer(info->name());
    offerKeywords(name, nearest);
    failCheck(offset, what + nearest.suggestion());
}

Operand ExpressionChecker::function(std::string_view name, const Arguments& arguments, Offset offset) {
    if (const OverloadSet own = procedures_.find(name); !own.empty()) return callProcedure(own, arguments, offset);
    if (equalIgnoringCase(name, upperBoundName)) return arrayBound(upperBoundName, arguments, offset);
    if (equalIgnoringCase(name, lowerBoundName)) return arrayBound(lowerBoundName, arguments, offset);
    if (equalIgnoringCase(name, newArrayName)) return newArray(arguments, std::nullopt);
    const OverloadSet overloads = findFunctions(name);
    if (overloads.empty()) failUnknownName(name, offset, !arguments.empty());
    return callOne(overloads.front()->signature.name, overloads, nullptr, &arguments, offset);
}

Operand ExpressionChecker::callProcedure(const OverloadSet& overloads, const Arguments& arguments, Offset offset) {
    Operands values = operands(arguments);
    const Resolution resolution = resolveCall(overloads.front()->signature.name, overloads, described(values));
    if (!resolution.method) failCheck(offset, resolution.error);
    const auto& procedure = static_cast<const Procedure&>(*resolution.method);
    std::vector<ArgumentCode> bound = bind(resolution, std::move(values), offset);
    return Operand::result(procedure.signature.result, language::callProcedure(procedure, std::move(bound), offset));
}

bool ExpressionChecker::makesArray(const syntax::Expression& expression) const {
    const auto* const call = std::get_if<syntax::Call>(&expression.form);
    const auto* const callee = call ? std::get_if<syntax::Identifier>(&call->callee->form) : nullptr;
    return callee && equalIgnoringCase(callee->name, newArrayName) && !scopes_.find(callee->name) &&
           procedures_.find(callee->name).empty();
}

// Without an element type, the one that takes the values of all the others; of arrays, which have no type in common,
// Variant.
Operand ExpressionChecker::newArray(const Arguments& elements, const std::optional<Type>& elementType) {
    std::vector<Value> values;
    Type common = elementType.value_or(Type());
    for (const syntax::ExpressionPtr& element : elements) {
        values.push_back(value(*element));
        const Type& type = values.back().type;
        if (!elementType) common = type.isArray ? Type::plain(Kind::variant) : united(common, type);
    }
    if (common.kind == Kind::nothing || common.isNil()) common = Type::plain(Kind::variant);
    std::vector<CodePtr> codes;
    for (std::size_t i = 0; i < values.size(); ++i) {
        warnOfLostFraction(values[i], common, elements[i]->offset);
        codes.push_back(convert(std::move(values[i].code), values[i].type, common, elements[i]->offset));
    }
    return Operand::result(common.arrayOf(), makeArrayOf(common, std::move(codes)));
}

Operand ExpressionChecker::arrayBound(std::string_view name, const Arguments& arguments, Offset offset) {
    if (arguments.size() != 1) failCheck(offset, std::string(name) + " takes one array");
    Value array = value(*arguments.front());
    if (!array.type.isArray) failCheck(arguments.front()->offset, "this is of type " + nameOf(array.type) + ", no array");
    CodePtr code = upperBoundOf(std::move(array.code), offset);
    if (name == lowerBoundName) code = transform(std::move(code), [](Slot) { return Slot::ofInteger(0); });
    return Operand::result(Type::plain(Kind::integer), std::move(code));
}

Operand ExpressionChecker::plainConversion(const Type& type, const Arguments& arguments, Offset offset) {
    if (arguments.size() != 1) failCheck(offset, "a conversion to " + nameOf(type) + " takes one value");
    Value found = value(*arguments.front());
    if (type.is(Kind::string)) return Operand::computed(type, text(std::move(found)));
    CodePtr code = convert(std::move(found.code), found.type, type, arguments.front()->offset, Purpose::cast);
    return Operand::computed(type, std::move(code));
}

Operand ExpressionChecker::cast(const ClassInfo& info, const Arguments& arguments, Offset offset) {
    if (arguments.size() != 1)
        failCheck(offset, "a conversion to " + info.name() + " takes one object; 'New " + info.name() + "' makes one");
    Value object = value(*arguments.front());
    const Type target = Type::object(info.name());
    const bool related =
        object.type.kind == Kind::variant ||
        (object.type.kind == Kind::object && !object.type.isNil() &&
         (conversionTo(target, object.type, Purpose::assignment) || conversionTo(object.type, target, Purpose::assignment)));
    if (object.type.isArray || !related)
        failCheck(arguments.front()->offset, "this is of type " + nameOf(object.type) + " and never is a " + info.name());
    return Operand::computed(target, converted(std::move(object.code), Type::plain(Kind::variant), target, offset));
}

// ---- Members

Operand ExpressionChecker::form(const syntax::Member& member, Offset) { return this->member(member, nullptr); }

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
    return element(value(*call.callee), call.arguments, offset);
}

Operand ExpressionChecker::member(const syntax::Member& member, const Arguments* arguments) {
    if (ClassInfo* const info = classNamedBy(*member.object)) return sharedMember(*info, member.name, arguments);
    Value object = value(*member.object);
    if (object.type.isArray) return arrayMember(std::move(object), member.name, arguments);
    if (object.type.kind == Kind::variant)
        failCheck(member.name.offset, "a Variant has no members; convert it to its class first, as in NSColorZRX(value)");
    if (object.type.kind != Kind::object || object.type.isNil())
        failCheck(member.name.offset, nameOf(object.type) + " has no members");
    ClassInfo* const info = registry().find(object.type.className);
    if (!info) {
        failCheck(member.name.offset, equalIgnoringCase(object.type.className, "Object")
                                          ? "Object has no members; convert it to its class first"
                                          : "the class " + object.type.className + " is not loaded");
    }
    return objectMember(*info, std::move(object.code), member.name, arguments);
}

Operand ExpressionChecker::sharedMember(ClassInfo& info, const Name& name, const Arguments* arguments) {
    if (const Constant* const constant = info.findConstant(name.text); constant && !arguments)
        return literalOperand(constant->value);
    const OverloadSet overloads = info.findSharedMethods(name.text);
    if (overloads.empty()) {
        if (info.findConstant(name.text))
            failCheck(name.offset, quoted(name.text) + " is a constant and takes no arguments");
        if (info.findProperty(name.text) || !info.findMethods(name.text).empty())
            failCheck(name.offset, quoted(name.text) + " belongs to the objects of " + info.name() + ", not to the class");
        failUnknownMember(info, name);
    }
    return callOne(info.name() + "." + overloads.front()->signature.name, overloads, nullptr, arguments, name.offset);
}

Operand ExpressionChecker::objectMember(ClassInfo& info, CodePtr object, const Name& name, const Arguments* arguments) {
    if (const Property* const property = info.findProperty(name.text)) {
        if (property->invokeGetter || property->invokeSetter) needsPool_ = needsPool_ || mayAutorelease(property->owner);
        Operand place = Operand::property(*property, std::move(object), name.offset);
        if (!arguments) return place;
        if (!property->type.isArray)
            failCheck(name.offset, quoted(property->name) + " is a property and takes no arguments");
        return element({property->type, read(std::move(place), name.offset)}, *arguments, name.offset);
    }
    const OverloadSet overloads = info.findMethods(name.text);
    if (overloads.empty()) {
        if (info.findConstant(name.text) || !info.findSharedMethods(name.text).empty()) {
            failCheck(name.offset,
                      quoted(name.text) + " belongs to the class: write " + info.name() + "." + std::string(name.text));
        }
        failUnknownMember(info, name);
    }
    const std::string what = info.name() + "." + overloads.front()->signature.name;
    return callOne(what, overloads, std::move(object), arguments, name.offset);
}

Operand ExpressionChecker::arrayMember(Value array, const Name& name, const Arguments* arguments) {
    enum class Use { append, insert, remove, count, pop, reverse, sort, sortBy, indexOf, slice };
    struct ArrayMember {
        const char* name;
        Use use;
        std::size_t fewest, most; // arguments
        const char* takes;
    };
    static constexpr ArrayMember members[] = {{"Append", Use::append, 1, 1, "one element"},
                                              {"Add", Use::append, 1, 1, "one element"},
                                              {"Insert", Use::insert, 2, 2, "an index and an element"},
                                              {"Remove", Use::remove, 1, 1, "one index"},
                                              {"Count", Use::count, 0, 0, "no arguments"},
                                              {"Pop", Use::pop, 0, 0, "no arguments"},
                                              {"Reverse", Use::reverse, 0, 0, "no arguments"},
                                              {"Sort", Use::sort, 0, 0, "no arguments"},
                                              {"SortBy", Use::sortBy, 1, 1, "an array of keys"},
                                              {"IndexOf", Use::indexOf, 1, 2, "an element and, perhaps, where to start"},
                                              {"Slice", Use::slice, 1, 2, "an index and, perhaps, a count"}};
    const ArrayMember* const found = std::find_if(std::begin(members), std::end(members), [&](const ArrayMember& member) {
        return equalIgnoringCase(name.text, member.name);
    });
    if (found == std::end(members)) {
        NearestName nearest(name.text);
        for (const ArrayMember& member : members)
            nearest.offer(member.name);
        failCheck(name.offset, "an array has no member " + quoted(name.text) + nearest.suggestion());
    }
    const std::size_t given = arguments ? arguments->size() : 0;
    if (given < found->fewest || given > found->most) failCheck(name.offset, quoted(name.text) + " takes " + found->takes);
    const Type element = array.type.element();
    const Type integer = Type::plain(Kind::integer);
    const Offset offset = name.offset;
    const auto argument = [&](std::size_t index, const Type& type) {
        return index < given ? valueAs(*(*arguments)[index], type) : nullptr;
    };
    const auto requireOrder = [&](const Type& type, Offset place) {
        if (!isOrdered(type)) failCheck(place, "elements of type " + nameOf(type) + " have no order");
    };
    switch (found->use) {
    case Use::append: return Operand::result({}, appendToArray(std::move(array.code), argument(0, element), offset));
    case Use::insert: {
        CodePtr index = argument(0, integer);
        return Operand::result({}, insertIntoArray(std::move(array.code), std::move(index), argument(1, element), offset));
    }
    case Use::remove: return Operand::result({}, removeFromArray(std::move(array.code), argument(0, integer), offset));
    case Use::pop: return Operand::result(element, popFromArray(std::move(array.code), element, offset));
    case Use::reverse: return Operand::result({}, reverseArray(std::move(array.code), offset));
    case Use::sort: {
        requireOrder(element, offset);
        return Operand::result({}, sortArray(std::move(array.code), nullptr, element, offset));
    }
    case Use::sortBy: {
        Value keys = value(*arguments->front());
        if (!keys.type.isArray) failCheck(arguments->front()->offset, "this is of type " + nameOf(keys.type) + ", no array");
        requireOrder(keys.type.element(), arguments->front()->offset);
        return Operand::result({}, sortArray(std::move(array.code), std::move(keys.code), keys.type.element(), offset));
    }
    case Use::indexOf: {
        if (element.is(Kind::variant)) failCheck(offset, "Variants cannot be compared; convert them first");
        CodePtr wanted = argument(0, element);
        return Operand::computed(
            integer, indexInArray(std::move(array.code), std::move(wanted), argument(1, integer), element, offset));
    }
    case Use::slice: {
        CodePtr start = argument(0, integer);
        return Operand::computed(
            array.type, sliceOfArray(std::move(array.code), std::move(start), argument(1, integer), element, offset));
    }
    case Use::count: break;
    }
    return Operand::computed(integer, transform(upperBoundOf(std::move(array.code), offset),
                                                [](Slot bound) { return Slot::ofInteger(bound.integer + 1); }));
}

Value ExpressionChecker::valueToWalk(const syntax::Expression& expression) {
    Value found = value(expression);
    ClassInfo* const dictionary = registry().find("Dictionary");
    if (!dictionary || found.type != Type::object(dictionary->name())) return found;
    Operand keys = objectMember(*dictionary, std::move(found.code), {expression.offset, "Keys"}, nullptr);
    const Type type = keys.type();
    return {type, keys.read()};
}

Operand ExpressionChecker::element(Value array, const Arguments& arguments, Offset offset) {
    if (!array.type.isArray) failCheck(offset, "this is of type " + nameOf(array.type) + "; only an array has elements");
    if (arguments.size() != 1) failCheck(offset, "an array element has one index");
    Type type = array.type.element();
    return Operand::element(std::move(type), std::move(array.code), valueAs(*arguments.front(), Type::plain(Kind::integer)),
                            offset);
}

// ---- Calls

Operand ExpressionChecker::newObject(const syntax::New& form, Offset offset) {
    ClassInfo* const info = classOf(form.className);
    if (!info) failCheck(form.className.offset, "an Object has to be of some class; 'Object' alone cannot be made");
    Operands values = operands(form.arguments);
    const Resolution resolution = resolveConstruction(*info, described(values));
    if (!resolution.error.empty()) failCheck(offset, resolution.error);
    needsPool_ = needsPool_ || mayAutorelease(info);
    if (values.size() == 1 && isInvisible(*info, values.front())) {
        diagnostics_.warn(form.arguments.front()->offset,
                          "this makes an invisible colour: colorValue leaves the fourth byte 0, which is alpha here");
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
    needsPool_ = needsPool_ || mayAutorelease(method.owner);
    const bool whole = !method.owner && givesWhole(method.signature.name, values);
    std::vector<ArgumentCode> bound = bind(resolution, std::move(values), offset);
    return Operand::call(method, std::move(receiver), std::move(bound), offset).markedWhole(whole);
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
