#include "language/running/operators.h"

#include "language/presentation.h"
#include "language/running/frame.h"

#include "model/classes.h"
#include "model/owned.h"
#include "model/variants.h"

#include <cmath>
#include <cstdint>
#include <functional>

namespace host::language {
namespace {

using syntax::Operator;

// Integers wrap around, as in two's complement.
template <class Function>
CodePtr onIntegers(CodePtr left, CodePtr right, Function function) {
    return combine(std::move(left), std::move(right), [function](Slot a, Slot b) {
        const auto result = function(static_cast<std::uintptr_t>(a.integer), static_cast<std::uintptr_t>(b.integer));
        return Slot::ofInteger(static_cast<HostInteger>(result));
    });
}

template <class Function>
CodePtr onReals(CodePtr left, CodePtr right, Function function) {
    return combine(std::move(left), std::move(right),
                   [function](Slot a, Slot b) { return Slot::ofReal(function(a.real, b.real)); });
}

// \ and Mod of Integers. The processor traps if the lowest Integer is divided by -1, so -1 is handled separately.
template <class Function>
CodePtr quotient(CodePtr left, CodePtr right, Offset offset, Function function) {
    return combine(std::move(left), std::move(right), [offset, function](Slot a, Slot b) {
        if (b.integer == 0) throwNew(offset, "DivideByZeroException", "Division by zero.");
        return function(a.integer, b.integer);
    });
}

template <class Value, class Read>
CodePtr comparing(Operator operation, CodePtr left, CodePtr right, Read read) {
    const auto with = [&](auto compare) {
        return combine(std::move(left), std::move(right),
                       [read, compare](Slot a, Slot b) { return Slot::ofBoolean(compare(read(a), read(b))); });
    };
    switch (operation) {
    case Operator::notEqual: return with(std::not_equal_to<Value>());
    case Operator::less: return with(std::less<Value>());
    case Operator::greater: return with(std::greater<Value>());
    case Operator::lessEqual: return with(std::less_equal<Value>());
    case Operator::greaterEqual: return with(std::greater_equal<Value>());
    default: return with(std::equal_to<Value>());
    }
}

// Returns a value that (Slot, Slot&) -> bool computes. The function returns false if it has raised.
template <class Read>
CodePtr readThrough(CodePtr value, Offset offset, Read read) {
    return transform(std::move(value), [read, offset](Slot slot) {
        Slot result;
        if (!read(slot, result)) throwPending(offset);
        return result;
    });
}

CodePtr toVariant(CodePtr value, const Type& from) {
    return makeCode([value = std::move(value), from](Frame& frame) {
        Object* const boxed = newVariant(from, value->evaluate(frame));
        frame.keep(boxed);
        return Slot::ofObject(boxed);
    });
}

} // namespace

CodePtr constant(Slot value) {
    return makeCode([value](Frame&) { return value; });
}

CodePtr stringConstant(std::string text) {
    class Constant final : public Code {
    public:
        explicit Constant(std::string_view text) : string_(newString(text)) {}
        Slot evaluate(Frame&) const override { return Slot::ofString(string_.get()); }

    private:
        Owned<String> string_;
    };
    return std::make_unique<Constant>(text);
}

CodePtr arithmetic(Operator operation, Kind kind, CodePtr left, CodePtr right, Offset offset) {
    const bool integers = kind == Kind::integer;
    const auto with = [&](auto function) {
        return integers ? onIntegers(std::move(left), std::move(right), function)
                        : onReals(std::move(left), std::move(right), function);
    };
    switch (operation) {
    case Operator::add: return with(std::plus<>());
    case Operator::subtract: return with(std::minus<>());
    case Operator::multiply: return with(std::multiplies<>());
    case Operator::power:
        return onReals(std::move(left), std::move(right), [](double a, double b) { return std::pow(a, b); });
    case Operator::integerDivide:
        return quotient(std::move(left), std::move(right), offset, [](HostInteger a, HostInteger b) {
            return Slot::ofInteger(b == -1 ? static_cast<HostInteger>(-static_cast<std::uintptr_t>(a)) : a / b);
        });
    case Operator::modulo:
        if (!integers) return onReals(std::move(left), std::move(right), [](double a, double b) { return std::fmod(a, b); });
        return quotient(std::move(left), std::move(right), offset,
                        [](HostInteger a, HostInteger b) { return Slot::ofInteger(b == -1 ? 0 : a % b); });
    default: return onReals(std::move(left), std::move(right), std::divides<>());
    }
}

CodePtr comparison(Operator operation, Kind kind, CodePtr left, CodePtr right) {
    switch (kind) {
    case Kind::integer:
        return comparing<HostInteger>(operation, std::move(left), std::move(right), [](Slot slot) { return slot.integer; });
    case Kind::real:
        return comparing<double>(operation, std::move(left), std::move(right), [](Slot slot) { return slot.real; });
    case Kind::boolean:
        return comparing<bool>(operation, std::move(left), std::move(right), [](Slot slot) { return slot.boolean != 0; });
    case Kind::string: {
        CodePtr order = combine(std::move(left), std::move(right),
                                [](Slot a, Slot b) { return Slot::ofInteger(compare(a.string, b.string, false)); });
        return comparison(operation, Kind::integer, std::move(order), constant(Slot::ofInteger(0)));
    }
    case Kind::variant:
        return combine(std::move(left), std::move(right), [wanted = operation != Operator::notEqual](Slot a, Slot b) {
            return Slot::ofBoolean(areEqual(heldIn(a.object), heldIn(b.object)) == wanted);
        });
    default: return comparing<Object*>(operation, std::move(left), std::move(right), [](Slot slot) { return slot.object; });
    }
}

CodePtr logic(Operator operation, Kind kind, CodePtr left, CodePtr right) {
    if (kind == Kind::integer) {
        switch (operation) {
        case Operator::logicalAnd: return onIntegers(std::move(left), std::move(right), std::bit_and<>());
        case Operator::logicalOr: return onIntegers(std::move(left), std::move(right), std::bit_or<>());
        default: return onIntegers(std::move(left), std::move(right), std::bit_xor<>());
        }
    }
    if (operation == Operator::logicalXor)
        return comparison(Operator::notEqual, Kind::boolean, std::move(left), std::move(right));
    const bool decisive = operation == Operator::logicalOr;
    return makeCode([left = std::move(left), right = std::move(right), decisive](Frame& frame) {
        const Slot first = left->evaluate(frame);
        return (first.boolean != 0) == decisive ? first : right->evaluate(frame);
    });
}

CodePtr choice(CodePtr condition, CodePtr yes, CodePtr no) {
    return makeCode([condition = std::move(condition), yes = std::move(yes), no = std::move(no)](Frame& frame) {
        return condition->evaluate(frame).boolean != 0 ? yes->evaluate(frame) : no->evaluate(frame);
    });
}

CodePtr negated(Kind kind, CodePtr operand) {
    if (kind == Kind::real) return transform(std::move(operand), [](Slot slot) { return Slot::ofReal(-slot.real); });
    return onIntegers(constant(Slot::ofInteger(0)), std::move(operand), std::minus<>());
}

CodePtr inverted(Kind kind, CodePtr operand) {
    if (kind == Kind::integer)
        return transform(std::move(operand), [](Slot slot) { return Slot::ofInteger(~slot.integer); });
    return transform(std::move(operand), [](Slot slot) { return Slot::ofBoolean(slot.boolean == 0); });
}

CodePtr joined(CodePtr left, CodePtr right, Offset offset) {
    return makeCode([left = std::move(left), right = std::move(right), offset](Frame& frame) {
        const Slot a = left->evaluate(frame);
        const Slot b = right->evaluate(frame);
        requireTextSize(bytesOf(a.string).size() + bytesOf(b.string).size(), offset);
        String* const both = concatenate(a.string, b.string);
        if (!both && (a.string || b.string)) failMemory(offset);
        return frame.keep(Counting::string, Slot::ofString(both));
    });
}

CodePtr asText(CodePtr value, const Type& type) {
    if (type == Type::plain(Kind::string)) return value;
    return makeCode([value = std::move(value), type](Frame& frame) {
        const Slot shown = value->evaluate(frame);
        if (const Held held = type.is(Kind::variant) ? heldIn(shown.object) : Held{}; held.kind == Kind::string) {
            lock(held);
            return frame.keep(Counting::string, held.value);
        }
        return frame.keep(Counting::string, Slot::ofString(newString(textOf(type, shown))));
    });
}

CodePtr converted(CodePtr value, const Type& from, const Type& to, Offset offset, Purpose purpose) {
    const Conversion conversion = conversionTo(to, from, purpose).value_or(Conversion::none);
    switch (conversion) {
    case Conversion::none: return value;
    case Conversion::toVariant: return toVariant(std::move(value), from);
    case Conversion::fromVariant:
        return readThrough(std::move(value), offset,
                           [to, purpose](Slot held, Slot& read) { return readVariant(held.object, to, read, purpose); });
    case Conversion::fromText:
        return readThrough(std::move(value), offset,
                           [to](Slot text, Slot& read) { return readText(text.string, to, read); });
    default: return transform(std::move(value), [conversion](Slot slot) { return convertedNumber(conversion, slot); });
    }
}

} // namespace host::language
