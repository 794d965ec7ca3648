// Checks the operators: the types that each one accepts, and the type of its result.
#include "language/checking/expression_checker.h"
#include "language/running/operators.h"

#include <iterator>

namespace host::language {
namespace {

using syntax::Operator;

constexpr const char* symbols[] = {"^",  "-", "*", "/",  "\\", "Mod", "+",   "-",   "&",  "=",
                                   "<>", "<", ">", "<=", ">=", "Is",  "Not", "And", "Or", "Xor"};
static_assert(std::size(symbols) == static_cast<std::size_t>(Operator::logicalXor) + 1);

std::string symbolOf(Operator operation) { return symbols[static_cast<std::size_t>(operation)]; }

bool isWhole(const Type& type) { return type.is(Kind::integer) || type.is(Kind::color); }

// Returns a remedy for an operation that operators do not support for a Variant, or "" if neither type is Variant.
std::string hintForVariant(const Type& left, const Type& right, Kind needed) {
    if (!left.is(Kind::variant) && !right.is(Kind::variant)) return {};
    const Type& other = left.is(Kind::variant) ? right : left;
    const bool plain = other.isNumber() || other.is(Kind::boolean) || other.is(Kind::string);
    return "; convert the Variant first, as in " + nameOf(plain ? other : Type::plain(needed)) + "(value)";
}

[[noreturn]] void failOperands(Operator operation, const Type& left, const Type& right, Offset offset,
                               Kind needed = Kind::integer) {
    failCheck(offset, "'" + symbolOf(operation) + "' cannot be applied to " + nameOf(left) + " and " + nameOf(right) +
                          hintForVariant(left, right, needed));
}

} // namespace

// Returns a number as Integer or Double. A colour counts as its number.
CodePtr ExpressionChecker::number(Value value, Kind kind) {
    if (value.type.is(Kind::color)) {
        value.code = converted(std::move(value.code), value.type, Type::plain(Kind::integer), 0);
        value.type = Type::plain(Kind::integer);
    }
    return converted(std::move(value.code), value.type, Type::plain(kind), 0);
}

Operand ExpressionChecker::form(const syntax::Unary& unary, Offset offset) {
    Value operand = value(*unary.operand);
    const bool whole = isWhole(operand.type);
    if (unary.operation == Operator::logicalNot) {
        if (operand.type.is(Kind::boolean))
            return Operand::computed(Type::plain(Kind::boolean), inverted(Kind::boolean, std::move(operand.code)));
        if (whole) {
            return Operand::computed(Type::plain(Kind::integer),
                                     inverted(Kind::integer, number(std::move(operand), Kind::integer)));
        }
    } else if (operand.type.isNumber()) {
        const Kind kind = whole ? Kind::integer : Kind::real;
        const bool isWholeNumber = operand.whole;
        return Operand::computed(Type::plain(kind), negated(kind, number(std::move(operand), kind)))
            .markedAsWhole(isWholeNumber);
    }
    failCheck(offset, "'" + symbolOf(unary.operation) + "' cannot be applied to " + nameOf(operand.type) +
                          hintForVariant(operand.type, operand.type,
                                         unary.operation == Operator::logicalNot ? Kind::boolean : Kind::integer));
}

Operand ExpressionChecker::form(const syntax::Binary& form, Offset offset) {
    Value left = value(*form.left);
    return binary(form.operation, std::move(left), *form.right, offset);
}

Operand ExpressionChecker::binary(Operator operation, Value left, const syntax::Expression& with, Offset offset) {
    Value right = value(with);
    switch (operation) {
    case Operator::join: {
        CodePtr first = text(std::move(left));
        return Operand::computed(Type::plain(Kind::string), joined(std::move(first), text(std::move(right)), offset));
    }
    case Operator::logicalAnd:
    case Operator::logicalOr:
    case Operator::logicalXor: return logic(operation, std::move(left), std::move(right), offset);
    case Operator::equal:
    case Operator::notEqual:
    case Operator::less:
    case Operator::greater:
    case Operator::lessEqual:
    case Operator::greaterEqual:
    case Operator::is: return comparison(operation, std::move(left), std::move(right), offset);
    default: return arithmetic(operation, std::move(left), std::move(right), offset);
    }
}

std::vector<CodePtr> ExpressionChecker::textsJoinedTo(std::string_view name, const syntax::Expression& expression) {
    std::vector<const syntax::Expression*> parts;
    const syntax::Expression* rest = &expression;
    while (const auto* const joined = std::get_if<syntax::Binary>(&rest->form)) {
        if (joined->operation != Operator::join) break;
        parts.push_back(joined->right.get());
        rest = joined->left.get();
    }
    const auto* const first = std::get_if<syntax::Identifier>(&rest->form);
    std::vector<CodePtr> texts;
    if (!first || !equalIgnoringCase(first->name, name)) return texts;
    for (auto part = parts.rbegin(); part != parts.rend(); ++part)
        texts.push_back(text(**part));
    return texts;
}

Operand ExpressionChecker::arithmetic(Operator operation, Value left, Value right, Offset offset) {
    const bool strings = left.type.is(Kind::string) || right.type.is(Kind::string);
    if (operation == Operator::add && strings) {
        if (left.type == right.type)
            return Operand::computed(left.type, joined(std::move(left.code), std::move(right.code), offset));
        failCheck(offset, "'+' cannot be applied to " + nameOf(left.type) + " and " + nameOf(right.type) +
                              "; '&' joins values of any type");
    }
    if (!left.type.isNumber() || !right.type.isNumber()) failOperands(operation, left.type, right.type, offset);
    const bool wholeResult = operation == Operator::integerDivide;
    const bool realResult = operation == Operator::divide || operation == Operator::power;
    const bool wholeOperands = isWhole(left.type) && isWhole(right.type);
    const Kind kind = wholeResult || (wholeOperands && !realResult) ? Kind::integer : Kind::real;
    const bool staysWhole = operation != Operator::divide && left.whole && right.whole;
    CodePtr first = number(std::move(left), kind);
    CodePtr second = number(std::move(right), kind);
    return Operand::computed(Type::plain(kind),
                             language::arithmetic(operation, kind, std::move(first), std::move(second), offset))
        .markedAsWhole(staysWhole);
}

Operand ExpressionChecker::comparison(Operator operation, Value left, Value right, Offset offset) {
    const bool identity = operation == Operator::equal || operation == Operator::notEqual || operation == Operator::is;
    const auto compared = [&](Kind kind, CodePtr first, CodePtr second) {
        return Operand::computed(Type::plain(Kind::boolean),
                                 language::comparison(operation, kind, std::move(first), std::move(second)));
    };
    const Type variant = Type::plain(Kind::variant);
    if (identity && (left.type == variant || right.type == variant)) {
        CodePtr first = convert(std::move(left.code), left.type, variant, offset);
        return compared(Kind::variant, std::move(first), convert(std::move(right.code), right.type, variant, offset));
    }
    if (identity && left.type.isArray && right.type.isArray && operation != Operator::is) {
        diagnostics_.warn(
            offset, "this compares whether both are the same array, not their elements; write 'Is' if this is intended");
    }
    if (identity && left.type.isObjectReference() && right.type.isObjectReference())
        return compared(Kind::object, std::move(left.code), std::move(right.code));
    if (operation == Operator::is)
        failCheck(offset, "'Is' compares objects, not " + nameOf(left.type) + " and " + nameOf(right.type));
    if (left.type.isNumber() && right.type.isNumber()) {
        const Kind kind = isWhole(left.type) && isWhole(right.type) ? Kind::integer : Kind::real;
        CodePtr first = number(std::move(left), kind);
        return compared(kind, std::move(first), number(std::move(right), kind));
    }
    const bool booleans = left.type.is(Kind::boolean) && right.type.is(Kind::boolean);
    const bool strings = left.type.is(Kind::string) && right.type.is(Kind::string);
    if (strings || (booleans && identity)) return compared(left.type.kind, std::move(left.code), std::move(right.code));
    failOperands(operation, left.type, right.type, offset);
}

CodePtr ExpressionChecker::comparison(Operator operation, Value left, const syntax::Expression& right) {
    return comparison(operation, std::move(left), value(right), right.offset).read();
}

Operand ExpressionChecker::logic(Operator operation, Value left, Value right, Offset offset) {
    const bool booleans = left.type.is(Kind::boolean) && right.type.is(Kind::boolean);
    if (!booleans && !(isWhole(left.type) && isWhole(right.type)))
        failOperands(operation, left.type, right.type, offset, Kind::boolean);
    if (booleans) {
        return Operand::computed(Type::plain(Kind::boolean),
                                 language::logic(operation, Kind::boolean, std::move(left.code), std::move(right.code)));
    }
    CodePtr first = number(std::move(left), Kind::integer);
    CodePtr second = number(std::move(right), Kind::integer);
    return Operand::computed(Type::plain(Kind::integer),
                             language::logic(operation, Kind::integer, std::move(first), std::move(second)));
}

} // namespace host::language
