// Splits a program's text into tokens.
#pragma once

#include "language/reading/diagnostics.h"
#include "language/reading/token.h"

#include <optional>
#include <vector>

namespace host::language {

class Lexer {
public:
    // The text must outlive the lexer and its tokens.
    explicit Lexer(std::string_view text, Offset start = 0);

    // Returns the next token; at the end, always endOfFile. Throws SyntaxError.
    Token next();

    // Skips to the end of the line, after an error.
    void skipLine();

    // Skips one byte after an error, but never a line end. The position may be in the middle of the invalid text.
    void skipCharacter();

private:
    Token read();
    void skipBlanksAndComments();
    bool continuesLine();
    Token symbol();
    Token name();
    Token literal();
    bool startsArgument() const;
    Token finish(TokenKind kind, std::size_t start) const;

    char at(std::size_t offset) const { return offset < text_.size() ? text_[offset] : '\0'; }

    std::string_view text_;
    std::size_t position_ = 0;
    // Whether the last token ended an operand. Then `a &b1` joins strings, while `= &b1` starts a binary number.
    bool afterOperand_ = false;
    bool afterDot_ = false;
    // Whether the statement so far consists of names and dots. Then `F &hFF` calls F with a number.
    bool inHead_ = true;
    std::optional<Offset> quoted_; // see Token
};

} // namespace host::language
