// The words of the language.
#pragma once

#include "language/reading/source.h"

#include "chromabridge/host_abi.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

namespace host::language {

enum class TokenKind : std::uint8_t {
    endOfFile,
    endOfStatement, // a line end or a colon
    name,           // also a keyword; see Token::keyword
    integer,
    real,
    color,
    string,
    // Symbols
    plus,
    minus,
    star,
    slash,
    backslash,
    caret,
    ampersand,
    plusEqual,
    minusEqual,
    starEqual,
    slashEqual,
    ampersandEqual,
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

// Keywords are recognised by their position: after a dot, each of them is the name of a member.
enum class Keyword : std::uint8_t {
    none,
    andOperator,
    as,
    byRef,
    byVal,
    caseBranch,
    catchBlock,
    constant,
    continueLoop,
    dim,
    doLoop,
    downTo,
    each,
    elseBranch,
    elseIf,
    end,
    exit,
    falseValue,
    finally,
    forLoop,
    function,
    ifBranch,
    in,
    is,
    loop,
    mod,
    newObject,
    next,
    nil,
    notOperator,
    optional,
    orOperator,
    paramArray,
    print,
    write,
    raise,
    reDim,
    returnFrom,
    select,
    step,
    sub,
    then,
    to,
    trueValue,
    tryBlock,
    typeOf,
    until,
    wend,
    whileLoop,
    xorOperator,
};

struct Token {
    TokenKind kind = TokenKind::endOfFile;
    Keyword keyword = Keyword::none;
    bool lineEnd = false; // of endOfStatement: a line end, not a colon
    Offset offset = 0;
    std::optional<Offset> quoted = {}; // of a line end: the start of a comment before it that looks like text in quotes
    std::string_view text;             // as written
    std::variant<HostInteger, double, HostColor, std::string> value; // for a literal
};

} // namespace host::language
