// The words of the language.
#pragma once

#include "language/source.h"

#include "chromabridge/host_abi.h"

#include <string_view>

namespace host::language {

enum class TokenKind : std::uint8_t {
    endOfFile,
    endOfStatement, // a line's end or a colon
    name,           // a keyword too: see Token::keyword
    integer,
    real,
    color,
    string, // the text still stands in its quotes
    // Symbols
    plus,
    minus,
    star,
    slash,
    backslash,
    caret,
    ampersand,
    equal,
    notEqual,
    less,
    greater,
    lessEqual,
    greaterEqual,
    openParenthesis,
    closeParenthesis,
    comma,
    dot,
};

// Keywords are recognised by where they stand: behind a dot each of them is a member's name.
enum class Keyword : std::uint8_t {
    none,
    andOperator,
    as,
    catchBlock,
    dim,
    downTo,
    each,
    elseBranch,
    elseIf,
    end,
    falseValue,
    finally,
    forLoop,
    ifBranch,
    in,
    is,
    isA,
    mod,
    newObject,
    next,
    nil,
    notOperator,
    orOperator,
    print,
    reDim,
    step,
    then,
    to,
    trueValue,
    tryBlock,
    wend,
    whileLoop,
    xorOperator,
};

struct Token {
    TokenKind kind = TokenKind::endOfFile;
    Keyword keyword = Keyword::none;
    bool lineEnd = false; // of endOfStatement: a line's end rather than a colon
    Offset offset = 0;
    std::string_view text; // as written
    union {
        HostInteger integer;
        double real;
        HostColor color;
    } value = {};
};

} // namespace host::language
