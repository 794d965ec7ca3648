// Checks arrays: their construction, elements and members.
#include "language/checking/expression_checker.h"
#include "language/reading/foreign_spellings.h"
#include "language/running/array_operations.h"
#include "language/running/operators.h"
#include "language/words.h"

#include "text/nearest_name.h"

#include <algorithm>

namespace host::language {

Type united(const Type& a, const Type& b) {
    const Type variant = Type::plain(Kind::variant);
    if (a.kind == Kind::nothing) return b;
    if (a == variant || b == variant) return variant;
    if (conversionTo(a, b, Purpose::argument)) return a;
    return conversionTo(b, a, Purpose::argument) ? b : variant;
}

// Without an element type, the elements have the type that takes all values. Arrays have no type in common, so an array of
// arrays has Variants as elements.
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

Operand ExpressionChecker::arrayBound(std::string_view name, Generic bound, const Arguments& arguments, Offset offset) {
    if (arguments.size() != 1) failCheck(offset, std::string(name) + " takes one array");
    Value array = value(*arguments.front());
    if (!array.type.isArray)
        failCheck(arguments.front()->offset, "this is of type " + nameOf(array.type) + ", not an array");
    CodePtr code = upperBoundOf(std::move(array.code), offset);
    if (bound == Generic::lowerBound) code = transform(std::move(code), [](Slot) { return Slot::ofInteger(0); });
    return Operand::result(Type::plain(Kind::integer), std::move(code));
}

Operand ExpressionChecker::arrayMember(Value array, const syntax::Name& name, const Arguments* arguments) {
    const std::vector<ArrayMember>& members = arrayMembers();
    const auto found = std::find_if(members.begin(), members.end(),
                                    [&](const ArrayMember& member) { return equalIgnoringCase(name.text, member.name); });
    if (found == members.end()) {
        NearestName nearest(name.text);
        for (const ArrayMember& member : members)
            nearest.offer(member.name);
        failCheck(name.offset,
                  "an array has no member " + quoted(name.text) + remedyFor(Foreign::arrayMember, name.text, nearest));
    }
    const std::size_t given = arguments ? arguments->size() : 0;
    if (given < found->fewest || given > found->most)
        failCheck(name.offset, quoted(name.text) + " takes " + std::string(found->takes));
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
    case ArrayUse::append: return Operand::result({}, appendToArray(std::move(array.code), argument(0, element), offset));
    case ArrayUse::insert: {
        CodePtr index = argument(0, integer);
        return Operand::result({}, insertIntoArray(std::move(array.code), std::move(index), argument(1, element), offset));
    }
    case ArrayUse::remove: return Operand::result({}, removeFromArray(std::move(array.code), argument(0, integer), offset));
    case ArrayUse::pop: return Operand::result(element, popFromArray(std::move(array.code), element, offset));
    case ArrayUse::reverse: return Operand::result({}, reverseArray(std::move(array.code), offset));
    case ArrayUse::sort: {
        requireOrder(element, offset);
        return Operand::result({}, sortArray(std::move(array.code), nullptr, element, offset));
    }
    case ArrayUse::sortBy: {
        Value keys = value(*arguments->front());
        if (!keys.type.isArray)
            failCheck(arguments->front()->offset, "this is of type " + nameOf(keys.type) + ", not an array");
        requireOrder(keys.type.element(), arguments->front()->offset);
        return Operand::result({}, sortArray(std::move(array.code), std::move(keys.code), keys.type.element(), offset));
    }
    case ArrayUse::indexOf: {
        CodePtr wanted = argument(0, element);
        return Operand::computed(
            integer, indexInArray(std::move(array.code), std::move(wanted), argument(1, integer), element, offset));
    }
    case ArrayUse::slice: {
        CodePtr start = argument(0, integer);
        return Operand::computed(
            array.type, sliceOfArray(std::move(array.code), std::move(start), argument(1, integer), element, offset));
    }
    case ArrayUse::count: break;
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
    if (!array.type.isArray) {
        const std::string_view hint = hintFor(Foreign::indexedType, nameOf(array.type));
        failCheck(offset, "this is of type " + nameOf(array.type) + "; " +
                              (hint.empty() ? "only an array has elements" : std::string(hint)));
    }
    if (arguments.size() != 1) failCheck(offset, "an array element has one index");
    Type type = array.type.element();
    return Operand::element(std::move(type), std::move(array.code), valueAs(*arguments.front(), Type::plain(Kind::integer)),
                            offset);
}

} // namespace host::language
