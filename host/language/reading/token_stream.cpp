#include "language/reading/token_stream.h"

namespace host::language {
namespace {

std::string described(const Token& token) {
    constexpr std::size_t maxShown = 40;
    switch (token.kind) {
    case TokenKind::endOfFile: return "the end of the program";
    case TokenKind::endOfStatement: return token.lineEnd ? "the end of the line" : "':'";
    case TokenKind::string: return "a text";
    default: return token.text.size() > maxShown ? "this" : "'" + std::string(token.text) + "'";
    }
}

} // namespace

Token TokenStream::take() {
    const Token taken = token_;
    broken_ = true;
    token_ = lexer_.next();
    broken_ = false;
    return taken;
}

Keyword TokenStream::keywordAfter() const {
    try {
        const Token after = Lexer(lexer_).next();
        return after.kind == TokenKind::name ? after.keyword : Keyword::none;
    } catch (const SyntaxError&) {
        return Keyword::none;
    }
}

void TokenStream::skipLine() {
    while (broken_ || !atLineEnd()) {
        if (broken_) lexer_.skipLine();
        try {
            take();
        } catch (const SyntaxError&) { // in a line that is skipped anyway
        }
    }
}

void TokenStream::skipTo(Keyword keyword) {
    while (broken_ || !(at(keyword) || atLineEnd())) {
        if (broken_) lexer_.skipCharacter();
        try {
            take();
        } catch (const SyntaxError&) { // in text that is skipped anyway
        }
    }
}

void TokenStream::expect(TokenKind kind, std::string_view wanted) {
    if (!accept(kind)) failExpected(wanted);
}

void TokenStream::expect(Keyword keyword, std::string_view wanted) {
    if (!accept(keyword)) failExpected(wanted);
}

Token TokenStream::expectName(std::string_view wanted) {
    if (!at(TokenKind::name) || token_.keyword != Keyword::none) failExpected(wanted);
    return take();
}

void TokenStream::failExpected(std::string_view wanted, std::string_view hint) const {
    if (token_.quoted) {
        throw SyntaxError{*token_.quoted,
                          std::string(wanted) + " is expected here; ' starts a comment, and text is in double quotes"};
    }
    throw SyntaxError{token_.offset, std::string(wanted) + " is expected here, not " + described(token_) +
                                         (hint.empty() ? "" : "; ") + std::string(hint)};
}

} // namespace host::language
