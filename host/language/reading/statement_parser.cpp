#include "language/reading/statement_parser.h"

#include "language/reading/foreign_spellings.h"
#include "language/words.h"

#include "text/nearest_name.h"
#include "values/types.h"

#include <utility>

namespace host::language {

using syntax::Block;
using syntax::ExpressionPtr;
using syntax::Name;
using syntax::Statement;

Block StatementParser::program() {
    Block all;
    for (;;) {
        Block block = statements();
        for (Statement& statement : block)
            all.push_back(std::move(statement));
        if (tokens_.at(TokenKind::endOfFile)) return all;
        report({tokens_.peek().offset, "'" + std::string(tokens_.peek().text) + "' closes no block"});
        tokens_.skipLine();
    }
}

void StatementParser::report(const SyntaxError& error) {
    if (error.fatal) throw SyntaxError(error);
    diagnostics_.add(error.offset, error.message);
    if (diagnostics_.full() && mode_ == ParseMode::program) throw SyntaxError{error.offset, {}, true};
}

Block StatementParser::statements() {
    Block block;
    for (;;) {
        try {
            while (tokens_.accept(TokenKind::endOfStatement)) {
            }
        } catch (const SyntaxError& error) {
            report(error);
            tokens_.skipLine();
            continue;
        }
        if (endsBlock()) return block;
        block.push_back(statementOrBroken());
    }
}

Statement StatementParser::statementOrBroken() {
    const Offset start = tokens_.peek().offset;
    const std::size_t openings = openings_.size();
    try {
        Statement read = statement();
        const bool closerLeft = std::exchange(closerLeft_, false);
        if (!closerLeft && !tokens_.atStatementEnd()) tokens_.failExpected("the end of the statement");
        return read;
    } catch (const SyntaxError& error) {
        openings_.resize(openings, Opening());
        const std::string explained = error.fatal ? std::string() : foreignStart(start);
        return {start, broken(explained.empty() ? error : SyntaxError{start, explained}, start)};
    }
}

// Explains an invalid statement by its first word. Either the word is from another language, and a name follows. Or it is
// nearly a keyword, and a keyword follows that cannot follow a name.
std::string StatementParser::foreignStart(Offset start) const {
    TokenStream again(source_.text(), start);
    try {
        again.take();
        const Token first = again.take();
        const std::string message = "no statement begins with " + quoted(first.text);
        const std::string_view hint = hintFor(Foreign::name, first.text);
        if (first.keyword == Keyword::none && !hint.empty() && again.at(TokenKind::name))
            return message + "; " + std::string(hint);
        const bool followed = again.peek().keyword != Keyword::none || tokens_.peek().keyword != Keyword::none;
        if (first.kind != TokenKind::name || first.keyword != Keyword::none || !followed) return {};
        NearestName nearest(first.text);
        for (const Word& word : words())
            if (word.kind == WordKind::statement) nearest.offer(word.name);
        if (!nearest.name().empty()) return message + nearest.suggestion();
    } catch (const SyntaxError&) { // the error that the caller reports
    }
    return {};
}

// Reports the error and skips the rest of its line.
syntax::Broken StatementParser::broken(const SyntaxError& error, Offset start) {
    report(error);
    tokens_.skipLine();
    syntax::Broken form;
    try {
        Lexer again(source_.text(), start);
        Token token = again.next();
        const bool declares = token.keyword == Keyword::dim || token.keyword == Keyword::constant ||
                              token.keyword == Keyword::forLoop || token.keyword == Keyword::sub ||
                              token.keyword == Keyword::function ||
                              (token.keyword == Keyword::none && !hintFor(Foreign::name, token.text).empty());
        if (token.keyword == Keyword::none) token = again.next();
        for (; declares && token.kind != TokenKind::endOfStatement && token.kind != TokenKind::endOfFile;
             token = again.next()) {
            if (token.kind == TokenKind::name && token.keyword == Keyword::none)
                form.names.push_back({token.offset, token.text});
        }
    } catch (const SyntaxError&) { // reported above
    }
    return form;
}

Block StatementParser::lineOfStatements() {
    Block block;
    while (!tokens_.atLineEnd() && !tokens_.at(Keyword::elseBranch)) {
        if (tokens_.accept(TokenKind::endOfStatement)) continue;
        block.push_back(statement());
        if (!atEnd()) tokens_.failExpected("the end of the statement");
    }
    return block;
}

Statement StatementParser::statement() {
    const Token first = tokens_.peek();
    Nesting nesting(depth_, first.offset);
    const auto after = [&](auto read) {
        tokens_.take();
        return Statement{first.offset, read()};
    };
    switch (first.keyword) {
    case Keyword::none: return assignmentOrCall();
    case Keyword::dim: return after([&] { return dim(); });
    case Keyword::reDim: return after([&] { return reDim(); });
    case Keyword::print: return after([&] { return print(true); });
    case Keyword::write: return after([&] { return print(false); });
    case Keyword::constant: return after([&] { return constant(); });
    case Keyword::raise: return after([&] { return raise(); });
    case Keyword::returnFrom: return after([&] { return returnStatement(); });
    case Keyword::exit: return after([&] { return leave(false); });
    case Keyword::continueLoop: return after([&] { return leave(true); });
    case Keyword::ifBranch: return after([&] { return ifStatement(first.offset); });
    case Keyword::whileLoop: return after([&] { return whileLoop(first.offset); });
    case Keyword::doLoop: return after([&] { return doLoop(first.offset); });
    case Keyword::select: return after([&] { return select(first.offset); });
    case Keyword::tryBlock: return after([&] { return tryBlock(first.offset); });
    case Keyword::forLoop: tokens_.take(); return forLoop(first.offset);
    case Keyword::sub: tokens_.take(); return procedure(first.offset, false);
    case Keyword::function: tokens_.take(); return procedure(first.offset, true);
    default: return assignmentOrCall();
    }
}

syntax::Dim StatementParser::dim() {
    syntax::Dim form;
    do {
        form.groups.push_back(dimGroup());
    } while (tokens_.accept(TokenKind::comma));
    return form;
}

syntax::Dim::Group StatementParser::dimGroup() {
    syntax::Dim::Group form;
    do {
        form.declarators.push_back(declarator());
    } while (tokens_.accept(TokenKind::comma));
    if (tokens_.accept(TokenKind::equal)) {
        form.value = expressions_.expression();
        return form;
    }
    tokens_.expect(Keyword::as, "',', 'As' or '='");
    const Offset offset = tokens_.peek().offset;
    if (tokens_.accept(Keyword::newObject)) {
        syntax::New value = expressions_.newObject();
        form.type = value.className;
        form.value = std::make_unique<syntax::Expression>(syntax::Expression{offset, std::move(value)});
        return form;
    }
    form.type = name("a type");
    if (tokens_.accept(TokenKind::equal)) form.value = expressions_.expression();
    return form;
}

syntax::Declarator StatementParser::declarator() {
    syntax::Declarator form{name("a variable's name"), false, nullptr};
    if (tokens_.accept(TokenKind::openParenthesis)) {
        form.isArray = true;
        if (!tokens_.at(TokenKind::closeParenthesis)) form.upperBound = expressions_.expression();
        if (tokens_.at(TokenKind::comma)) failDimensions(tokens_.peek().offset);
        tokens_.expect(TokenKind::closeParenthesis, "')'");
        if (tokens_.at(TokenKind::openParenthesis)) failDimensions(tokens_.peek().offset);
    }
    return form;
}

void StatementParser::failDimensions(Offset offset) {
    throw SyntaxError{offset, "an array has one dimension; the elements of a Variant() can be arrays"};
}

syntax::ReDim StatementParser::reDim() {
    syntax::ReDim form{name("an array's name"), nullptr};
    tokens_.expect(TokenKind::openParenthesis, "'('");
    form.upperBound = expressions_.expression();
    tokens_.expect(TokenKind::closeParenthesis, "')'");
    return form;
}

syntax::Print StatementParser::print(bool endsLine) {
    if (tokens_.peek().quoted) {
        diagnostics_.warn(*tokens_.peek().quoted,
                          "this prints an empty line: ' starts a comment, and text is in double quotes");
    }
    if (atEnd()) return {{}, endsLine};
    const bool likeACall = tokens_.at(TokenKind::openParenthesis);
    try {
        return {expressions_.list(), endsLine};
    } catch (const SyntaxError& error) {
        if (!likeACall || !tokens_.at(TokenKind::comma) || tokens_.peek().offset != error.offset) throw;
        throw SyntaxError{error.offset, "Print takes its values without parentheses: Print a, b"};
    }
}

syntax::Const StatementParser::constant() {
    syntax::Const form{name("a constant's name"), std::nullopt, nullptr};
    if (tokens_.accept(Keyword::as)) form.type = name("a type");
    tokens_.expect(TokenKind::equal, form.type ? "'='" : "'As' or '='");
    form.value = expressions_.expression();
    return form;
}

syntax::Return StatementParser::returnStatement() {
    if (atEnd()) return {};
    return {expressions_.expression()};
}

syntax::Leave StatementParser::leave(bool continues) {
    using syntax::Surrounding;
    if (tokens_.accept(Keyword::forLoop)) return {Surrounding::forLoop, continues};
    if (tokens_.accept(Keyword::whileLoop)) return {Surrounding::whileLoop, continues};
    if (tokens_.accept(Keyword::doLoop)) return {Surrounding::doLoop, continues};
    if (continues) return {Surrounding::anyLoop, true};
    if (tokens_.accept(Keyword::sub)) return {Surrounding::sub, false};
    if (tokens_.accept(Keyword::function)) return {Surrounding::function, false};
    tokens_.failExpected("'For', 'While', 'Do', 'Sub' or 'Function'", "'Quit' ends the program");
}

struct Change {
    TokenKind token;
    syntax::Operator operation;
};
constexpr Change changes[] = {
    {TokenKind::plusEqual, syntax::Operator::add},       {TokenKind::minusEqual, syntax::Operator::subtract},
    {TokenKind::starEqual, syntax::Operator::multiply},  {TokenKind::slashEqual, syntax::Operator::divide},
    {TokenKind::ampersandEqual, syntax::Operator::join},
};

// At a prompt, an expression is allowed here too.
Statement StatementParser::assignmentOrCall() {
    const Offset offset = tokens_.peek().offset;
    const bool prompt = mode_ == ParseMode::prompt;
    const bool startsPlace =
        (tokens_.at(TokenKind::name) && tokens_.peek().keyword == Keyword::none) || tokens_.at(TokenKind::openParenthesis);
    if (prompt && !startsPlace) return {offset, syntax::Presentation{expressions_.expression()}};
    if (!startsPlace) tokens_.failExpected("a statement");
    ExpressionPtr target = expressions_.postfix();
    if (tokens_.accept(TokenKind::equal))
        return {offset, syntax::Assignment{std::move(target), expressions_.expression(), std::nullopt}};
    for (const Change& change : changes) {
        if (!tokens_.accept(change.token)) continue;
        return {offset, syntax::Assignment{std::move(target), expressions_.expression(), change.operation}};
    }
    const bool startsArgument = tokens_.at(TokenKind::string) || tokens_.at(TokenKind::integer) ||
                                tokens_.at(TokenKind::real) || tokens_.at(TokenKind::color) || tokens_.at(Keyword::none) ||
                                tokens_.at(Keyword::newObject);
    if (prompt && !startsArgument) return {offset, syntax::Presentation{expressions_.expressionFrom(std::move(target))}};
    if (!atEnd()) {
        if (std::holds_alternative<syntax::Call>(target->form)) tokens_.failExpected("'=' or the end of the statement");
        const Offset place = target->offset;
        syntax::Call call{std::move(target), expressions_.list()};
        target = std::make_unique<syntax::Expression>(syntax::Expression{place, std::move(call)});
    }
    return {offset, syntax::Evaluation{std::move(target)}};
}

Name StatementParser::name(std::string_view wanted) {
    const Token token = tokens_.expectName(wanted);
    return {token.offset, token.text};
}

} // namespace host::language
