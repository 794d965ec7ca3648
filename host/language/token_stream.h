// The tokens of a program with one of lookahead, and the errors of a parser that meets the wrong one.
#pragma once

#include "language/lexer.h"

#include <string_view>

namespace host::language {

class TokenStream {
public:
    explicit TokenStream(std::string_view text) : lexer_(text), token_(lexer_.next()) {}

    const Token& peek() const { return token_; }
    Token take();

    bool at(TokenKind kind) const { return token_.kind == kind; }
    bool at(Keyword keyword) const { return token_.kind == TokenKind::name && token_.keyword == keyword; }
    bool atStatementEnd() const { return at(TokenKind::endOfStatement) || at(TokenKind::endOfFile); }
    bool atLineEnd() const { return at(TokenKind::endOfFile) || (at(TokenKind::endOfStatement) && token_.lineEnd); }

    template <class What>
    bool accept(What what) {
        if (!at(what)) return false;
        take();
        return true;
    }

    // Takes the given token; `wanted` is how the message calls it.
    void expect(TokenKind kind, std::string_view wanted);
    void expect(Keyword keyword, std::string_view wanted);

    // Takes a name that is no keyword.
    Token expectName(std::string_view wanted);

    // "`wanted` is expected here, not 'x'". Throws SyntaxError.
    [[noreturn]] void failExpected(std::string_view wanted) const;

private:
    Lexer lexer_;
    Token token_;
};

} // namespace host::language
