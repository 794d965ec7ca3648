// The tokens of a program with one token of lookahead, and the errors for unexpected tokens.
#pragma once

#include "language/reading/lexer.h"

#include <string_view>

namespace host::language {

class TokenStream {
public:
    // Starts with a line end that is not in the text, so that an error in the first word is handled like any other.
    explicit TokenStream(std::string_view text, Offset start = 0) : lexer_(text, start) {
        token_.kind = TokenKind::endOfStatement;
        token_.lineEnd = true;
        token_.offset = start;
    }

    const Token& peek() const { return token_; }
    Token take();

    // Returns the keyword after the next token, or Keyword::none if there is no such word.
    Keyword keywordAfter() const;

    // Skips the rest of the line, after an error.
    void skipLine();

    // Skips what is before the keyword, after an error; skips the complete line if the keyword is not in it.
    void skipTo(Keyword keyword);

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

    // Takes the given token. `wanted` names it in the message.
    void expect(TokenKind kind, std::string_view wanted);
    void expect(Keyword keyword, std::string_view wanted);

    // Takes a name that is not a keyword.
    Token expectName(std::string_view wanted);

    // Throws the SyntaxError "`wanted` is expected here, not 'x'; `hint`".
    [[noreturn]] void failExpected(std::string_view wanted, std::string_view hint = {}) const;

private:
    Lexer lexer_;
    Token token_;
    bool broken_ = false; // the lexer failed after the token
};

} // namespace host::language
