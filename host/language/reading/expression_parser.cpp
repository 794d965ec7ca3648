#include "language/reading/expression_parser.h"

namespace host::language {
namespace {

using syntax::Expression;
using syntax::ExpressionPtr;
using syntax::Operator;

enum Precedence : int { logicalXor, logicalOr, logicalAnd, logicalNot, relation, join, sum, product, sign, power };

struct BinaryOperator {
    TokenKind token;
    Keyword keyword;
    Operator operation;
    Precedence precedence;
};

constexpr BinaryOperator binaryOperators[] = {
    {TokenKind::caret, Keyword::none, Operator::power, power},
    {TokenKind::star, Keyword::none, Operator::multiply, product},
    {TokenKind::slash, Keyword::none, Operator::divide, product},
    {TokenKind::backslash, Keyword::none, Operator::integerDivide, product},
    {TokenKind::name, Keyword::mod, Operator::modulo, product},
    {TokenKind::plus, Keyword::none, Operator::add, sum},
    {TokenKind::minus, Keyword::none, Operator::subtract, sum},
    {TokenKind::ampersand, Keyword::none, Operator::join, join},
    {TokenKind::equal, Keyword::none, Operator::equal, relation},
    {TokenKind::notEqual, Keyword::none, Operator::notEqual, relation},
    {TokenKind::less, Keyword::none, Operator::less, relation},
    {TokenKind::greater, Keyword::none, Operator::greater, relation},
    {TokenKind::lessEqual, Keyword::none, Operator::lessEqual, relation},
    {TokenKind::greaterEqual, Keyword::none, Operator::greaterEqual, relation},
    {TokenKind::name, Keyword::is, Operator::is, relation},
    {TokenKind::name, Keyword::andOperator, Operator::logicalAnd, logicalAnd},
    {TokenKind::name, Keyword::orOperator, Operator::logicalOr, logicalOr},
    {TokenKind::name, Keyword::xorOperator, Operator::logicalXor, logicalXor},
};

const BinaryOperator* binaryOperator(const Token& token) {
    if (token.kind == TokenKind::name && token.keyword == Keyword::none) return nullptr;
    for (const BinaryOperator& candidate : binaryOperators)
        if (candidate.token == token.kind && candidate.keyword == token.keyword) return &candidate;
    return nullptr;
}

template <class Form>
ExpressionPtr make(Offset offset, Form form) {
    return std::make_unique<Expression>(Expression{offset, std::move(form)});
}

template <class Value>
ExpressionPtr literal(Offset offset, Value value) {
    return make(offset, Literal{std::move(value)});
}

} // namespace

ExpressionPtr ExpressionParser::binary(int lowest) {
    Nesting nesting(depth_, tokens_.peek().offset);
    return operators(prefix(), lowest, nesting);
}

ExpressionPtr ExpressionParser::expressionFrom(ExpressionPtr first) {
    Nesting nesting(depth_, tokens_.peek().offset);
    return operators(std::move(first), 0, nesting);
}

// Parses the operators after `left` that bind at least as tightly as `lowest`.
ExpressionPtr ExpressionParser::operators(ExpressionPtr left, int lowest, Nesting& nesting) {
    for (;;) {
        const Offset offset = tokens_.peek().offset;
        const BinaryOperator* const found = binaryOperator(tokens_.peek());
        if (!found || found->precedence < lowest) return left;
        tokens_.take();
        ExpressionPtr right = binary(found->precedence + 1);
        left = make(offset, syntax::Binary{found->operation, std::move(left), std::move(right)});
        nesting.deepen(offset);
    }
}

ExpressionPtr ExpressionParser::prefix() {
    const Offset offset = tokens_.peek().offset;
    if (tokens_.accept(TokenKind::minus)) return make(offset, syntax::Unary{Operator::negate, binary(sign)});
    if (tokens_.accept(Keyword::notOperator)) return make(offset, syntax::Unary{Operator::logicalNot, binary(relation)});
    return postfix();
}

ExpressionPtr ExpressionParser::postfix() {
    Nesting nesting(depth_, tokens_.peek().offset);
    ExpressionPtr value = primary();
    for (;;) {
        const Offset offset = tokens_.peek().offset;
        if (tokens_.accept(TokenKind::dot)) {
            const Token name = tokens_.expectName("a member's name");
            value = make(name.offset, syntax::Member{std::move(value), {name.offset, name.text}});
        } else if (tokens_.at(TokenKind::openParenthesis)) {
            const Offset place = value->offset;
            value = make(place, syntax::Call{std::move(value), parenthesised()});
        } else {
            return value;
        }
        nesting.deepen(offset);
    }
}

ExpressionPtr ExpressionParser::primary() {
    const Token token = tokens_.peek();
    if (token.kind == TokenKind::openParenthesis) {
        tokens_.take();
        ExpressionPtr inner = expression();
        tokens_.expect(TokenKind::closeParenthesis, "')'");
        return inner;
    }
    if (token.kind == TokenKind::name) {
        switch (token.keyword) {
        case Keyword::none: tokens_.take(); return make(token.offset, syntax::Identifier{token.text});
        case Keyword::nil: tokens_.take(); return literal(token.offset, std::monostate());
        case Keyword::trueValue: tokens_.take(); return literal(token.offset, true);
        case Keyword::falseValue: tokens_.take(); return literal(token.offset, false);
        case Keyword::newObject: tokens_.take(); return make(token.offset, newObject());
        case Keyword::typeOf: tokens_.take(); return make(token.offset, typeTest());
        case Keyword::ifBranch: tokens_.take(); return make(token.offset, conditional());
        default: tokens_.failExpected("a value");
        }
    }
    switch (token.kind) {
    case TokenKind::integer:
    case TokenKind::real:
    case TokenKind::color:
    case TokenKind::string:
        tokens_.take();
        return std::visit([&](const auto& value) { return literal(token.offset, value); }, token.value);
    default: tokens_.failExpected("a value");
    }
}

syntax::TypeTest ExpressionParser::typeTest() {
    ExpressionPtr object = postfix();
    tokens_.expect(Keyword::is, "'Is' and a class");
    const Token name = tokens_.expectName("a class");
    return {std::move(object), {name.offset, name.text}};
}

syntax::Conditional ExpressionParser::conditional() {
    tokens_.expect(TokenKind::openParenthesis, "'('");
    ExpressionPtr condition = expression();
    tokens_.expect(TokenKind::comma, "','");
    ExpressionPtr yes = expression();
    tokens_.expect(TokenKind::comma, "',' and the other value");
    ExpressionPtr no = expression();
    tokens_.expect(TokenKind::closeParenthesis, "')'");
    return {std::move(condition), std::move(yes), std::move(no)};
}

std::vector<ExpressionPtr> ExpressionParser::list() {
    std::vector<ExpressionPtr> values;
    do {
        values.push_back(expression());
    } while (tokens_.accept(TokenKind::comma));
    return values;
}

std::vector<ExpressionPtr> ExpressionParser::parenthesised() {
    tokens_.expect(TokenKind::openParenthesis, "'('");
    std::vector<ExpressionPtr> values;
    if (!tokens_.at(TokenKind::closeParenthesis)) values = list();
    tokens_.expect(TokenKind::closeParenthesis, "',' or ')'");
    return values;
}

syntax::New ExpressionParser::newObject() {
    const Token name = tokens_.expectName("a class");
    syntax::New form{{name.offset, name.text}, {}};
    if (tokens_.at(TokenKind::openParenthesis)) form.arguments = parenthesised();
    return form;
}

} // namespace host::language
