#include "language/reading/lexer.h"

#include "language/reading/foreign_spellings.h"
#include "language/reading/keywords.h"

#include "text/characters.h"
#include "text/literals.h"
#include "text/utf8.h"

#include <algorithm>

namespace host::language {
namespace {

[[noreturn]] void fail(std::size_t offset, std::string message) {
    throw SyntaxError{static_cast<Offset>(offset), std::move(message)};
}

[[noreturn]] void failForeign(std::size_t offset, const ForeignSign& foreign) {
    fail(offset, "'" + std::string(foreign.sign) + "' has no meaning here; " + std::string(foreign.hint));
}

} // namespace

Lexer::Lexer(std::string_view text, Offset start) : text_(text), position_(start) {
    constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
    if (start == 0 && text.substr(0, byteOrderMark.size()) == byteOrderMark) position_ = byteOrderMark.size();
    if (start == 0 && text_.substr(position_, 2) == "#!") skipLine(); // the line that names the interpreter
}

Token Lexer::next() {
    const Token token = read();
    afterDot_ = token.kind == TokenKind::dot;
    const bool value =
        token.kind == TokenKind::name && (token.keyword == Keyword::none || token.keyword == Keyword::nil ||
                                          token.keyword == Keyword::trueValue || token.keyword == Keyword::falseValue);
    afterOperand_ = value || token.kind == TokenKind::closeParenthesis ||
                    (token.kind >= TokenKind::integer && token.kind <= TokenKind::string);
    const bool begins =
        token.kind == TokenKind::endOfStatement || token.keyword == Keyword::then || token.keyword == Keyword::elseBranch;
    inHead_ =
        begins ||
        (inHead_ && (token.kind == TokenKind::dot || (token.kind == TokenKind::name && token.keyword == Keyword::none)));
    return token;
}

bool Lexer::startsArgument() const {
    const char base = lower(at(position_ + 1));
    return inHead_ && at(position_) == '&' && position_ > 0 && isBlank(text_[position_ - 1]) &&
           isNamePart(at(position_ + 2)) && (base == 'h' || ((base == 'o' || base == 'b') && isDigit(at(position_ + 2))));
}

void Lexer::skipLine() {
    while (position_ < text_.size() && !isLineEnd(text_[position_]))
        ++position_;
    afterOperand_ = afterDot_ = false;
    inHead_ = true;
}

void Lexer::skipCharacter() {
    if (position_ < text_.size() && !isLineEnd(text_[position_])) ++position_;
}

Token Lexer::read() {
    quoted_.reset();
    skipBlanksAndComments();
    if (position_ >= text_.size()) return finish(TokenKind::endOfFile, position_);
    const char c = text_[position_];
    if (isLineEnd(c) || c == ':') {
        const std::size_t start = position_++;
        if (c == '\r' && at(position_) == '\n') ++position_;
        Token token = finish(TokenKind::endOfStatement, start);
        token.lineEnd = c != ':';
        return token;
    }
    if (isNameStart(c)) return name();
    const bool operatorHere = afterOperand_ && (c == '.' || c == '&') && !startsArgument();
    return startsLiteral(c, at(position_ + 1)) && !operatorHere ? literal() : symbol();
}

void Lexer::skipBlanksAndComments() {
    for (;;) {
        while (isBlank(at(position_)))
            ++position_;
        const char c = at(position_);
        const bool remark =
            lower(c) == 'r' && equalIgnoringCase(text_.substr(position_, 3), "rem") && !isNamePart(at(position_ + 3));
        if (c == '\'' || (c == '/' && at(position_ + 1) == '/') || (remark && !afterDot_)) {
            const std::size_t start = position_;
            while (position_ < text_.size() && !isLineEnd(text_[position_]))
                ++position_;
            const std::string_view comment = text_.substr(start, position_ - start);
            if (comment.size() > 1 && comment.front() == '\'' && comment.back() == '\'' && !isBlank(comment[1]))
                quoted_ = static_cast<Offset>(start);
        } else if (!continuesLine()) {
            return;
        }
    }
}

// Skips "_" and the line end after it.
bool Lexer::continuesLine() {
    if (at(position_) != '_' || isNamePart(at(position_ + 1))) return false;
    const std::size_t start = position_++;
    while (isBlank(at(position_)))
        ++position_;
    const bool comment = at(position_) == '\'' || (at(position_) == '/' && at(position_ + 1) == '/');
    while (comment && position_ < text_.size() && !isLineEnd(text_[position_]))
        ++position_;
    if (!isLineEnd(at(position_))) fail(start, "the line continuation '_' must be the last thing on its line");
    position_ += at(position_) == '\r' && at(position_ + 1) == '\n' ? 2 : 1;
    return true;
}

Token Lexer::finish(TokenKind kind, std::size_t start) const {
    Token token;
    token.kind = kind;
    token.offset = static_cast<Offset>(start);
    token.text = text_.substr(start, position_ - start);
    token.quoted = quoted_;
    return token;
}

Token Lexer::name() {
    const std::size_t start = position_;
    while (isNamePart(at(position_)))
        ++position_;
    Token token = finish(TokenKind::name, start);
    constexpr std::size_t maxLength = 255;
    if (token.text.size() > maxLength) fail(start, "a name has at most " + std::to_string(maxLength) + " characters");
    if (!afterDot_) token.keyword = keywordOf(token.text);
    return token;
}

Token Lexer::literal() {
    const std::size_t start = position_;
    try {
        ScannedLiteral scanned = scanLiteral(text_.substr(start));
        position_ += scanned.size;
        static constexpr TokenKind kinds[] = {TokenKind::integer, TokenKind::real, TokenKind::color, TokenKind::string};
        Token token = finish(kinds[scanned.value.index()], start);
        token.value = std::move(scanned.value);
        return token;
    } catch (const LiteralError& error) {
        const ForeignSign foreign = foreignSignAt(text_.substr(start));
        if (!foreign.sign.empty()) failForeign(start, foreign);
        position_ += std::max<std::size_t>(error.offset, 1);
        fail(start + error.offset, error.message);
    }
}

Token Lexer::symbol() {
    struct Symbol {
        std::string_view text;
        TokenKind kind;
    };
    static constexpr Symbol symbols[] = {
        {"<>", TokenKind::notEqual},
        {"<=", TokenKind::lessEqual},
        {">=", TokenKind::greaterEqual},
        {"+=", TokenKind::plusEqual},
        {"-=", TokenKind::minusEqual},
        {"*=", TokenKind::starEqual},
        {"/=", TokenKind::slashEqual},
        {"&=", TokenKind::ampersandEqual},
        {"+", TokenKind::plus},
        {"-", TokenKind::minus},
        {"*", TokenKind::star},
        {"/", TokenKind::slash},
        {"\\", TokenKind::backslash},
        {"^", TokenKind::caret},
        {"&", TokenKind::ampersand},
        {"=", TokenKind::equal},
        {"<", TokenKind::less},
        {">", TokenKind::greater},
        {"(", TokenKind::openParenthesis},
        {")", TokenKind::closeParenthesis},
        {",", TokenKind::comma},
        {".", TokenKind::dot},
    };
    const std::size_t start = position_;
    const ForeignSign foreign = foreignSignAt(text_.substr(start));
    if (!foreign.sign.empty()) failForeign(start, foreign);
    for (const Symbol& symbol : symbols) {
        if (text_.substr(start, symbol.text.size()) != symbol.text) continue;
        position_ += symbol.text.size();
        return finish(symbol.kind, start);
    }
    const std::string_view rest = text_.substr(start);
    if (static_cast<unsigned char>(rest[0]) < 0x20 || rest[0] == 0x7F) {
        constexpr char digits[] = "0123456789ABCDEF";
        const auto code = static_cast<unsigned char>(rest[0]);
        fail(start,
             std::string("the control character &h") + digits[code >> 4] + digits[code & 15] + " has no meaning here");
    }
    fail(start, "the character '" + std::string(rest.substr(0, utf8::offsetOf(rest, 1))) + "' has no meaning here");
}

} // namespace host::language
