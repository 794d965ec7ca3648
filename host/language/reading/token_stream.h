// The tokens of a program with one of lookahead, and the errors of a parser that meets the wrong one.
#pragma once

#include "language/reading/lexer.h"

#include <string_view>

namespace host::language {

class TokenStream {
public:
    // Begins with the end of a line that is not there, so that an error in the first word is met like any other.
    explicit TokenStream(std::string_view text, Offset start = 0) : lexer_(text, start) {
        token_.kind = TokenKind::endOfStatement;
        token_.lineEnd = true;
        token_.offset = start;
    }

    const Token& peek() const { return token_; }
    Token take();

    // The keyword of the word behind the next one; none when there is no such word.
    Keyword keywordBehind() const;

    // Gives up the rest of the line, after an error.
    void skipLine();

    // Gives up what stands in front of the keyword, after an error; all of the line when it is not in there.
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

    // Takes the given token; `wanted` is how the message calls it.
    void expect(TokenKind kind, std::string_view wanted);
    void expect(Keyword keyword, std::string_view wanted);

    // Takes a name that is no keyword.
    Token expectName(std::string_view wanted);

    // "`wanted` is expected here, not 'x'; `hint`". Throws SyntaxError.
    [[noreturn]] void failExpected(std::string_view wanted, std::string_view hint = {}) const;

private:
    Lexer lexer_;
    Token token_;
    bool broken_ = false; // the lexer failed behind the token
};

} // namespace host::language
