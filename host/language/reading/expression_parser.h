// Parses expressions by precedence climbing. Precedence, from the tightest: ^, unary -, * / \ Mod, + -, &, comparisons with
// Is, Not, And, Or, Xor. Operators of one level group to the left.
#pragma once

#include "language/reading/syntax.h"
#include "language/reading/token_stream.h"

namespace host::language {

// The nesting depth at a place of a program. Parser, checker and execution recurse as deep, so the depth is limited to what
// every stack can hold.
class Nesting {
public:
    explicit Nesting(unsigned& depth, Offset offset) : depth_(depth), outer_(depth) { deepen(offset); }
    ~Nesting() { depth_ = outer_; }
    Nesting(const Nesting&) = delete;
    Nesting& operator=(const Nesting&) = delete;

    // Adds one level until this object goes out of scope.
    void deepen(Offset offset) {
        if (++depth_ <= maxDepth) return;
        throw SyntaxError{offset, "this is nested more than " + std::to_string(maxDepth) + " levels deep; split it up",
                          true};
    }

private:
    static constexpr unsigned maxDepth = 500;
    unsigned& depth_;
    unsigned outer_;
};

class ExpressionParser {
public:
    ExpressionParser(TokenStream& tokens, unsigned& depth) : tokens_(tokens), depth_(depth) {}

    syntax::ExpressionPtr expression() { return binary(0); }

    // Parses the rest of an expression that begins with the given one.
    syntax::ExpressionPtr expressionFrom(syntax::ExpressionPtr first);

    // Parses a name with the dots and parentheses that follow it. A statement can begin with such an expression.
    syntax::ExpressionPtr postfix();

    // Parses values separated by commas.
    std::vector<syntax::ExpressionPtr> list();

    // Parses a list in parentheses, which may be empty.
    std::vector<syntax::ExpressionPtr> parenthesised();

    // Parses Class[(arguments)], after the New.
    syntax::New newObject();

private:
    syntax::ExpressionPtr binary(int lowest);
    syntax::ExpressionPtr operators(syntax::ExpressionPtr left, int lowest, Nesting& nesting);
    syntax::ExpressionPtr prefix();
    syntax::ExpressionPtr primary();
    syntax::TypeTest typeTest();
    syntax::Conditional conditional();

    TokenStream& tokens_;
    unsigned& depth_;
};

} // namespace host::language
