#include "language/parser.h"

#include "language/expression_parser.h"
#include "language/utf8.h"
#include "model/types.h"

namespace host::language {
namespace {

using syntax::Block;
using syntax::ExpressionPtr;
using syntax::Name;
using syntax::Statement;

// A block that is being read: how messages call it, the words that close it, and where it began.
struct Opening {
    Offset offset;
    std::string_view name;
    std::string_view closing;
    Keyword first;
    Keyword second; // none: one word closes it
};

class StatementParser {
public:
    explicit StatementParser(const Source& source)
        : source_(source), tokens_(source.text()), expressions_(tokens_, depth_) {}

    Block program() {
        Block block = statements();
        if (!tokens_.at(TokenKind::endOfFile))
            throw SyntaxError{tokens_.peek().offset, "'" + std::string(tokens_.peek().text) + "' closes no block"};
        return block;
    }

private:
    Block statements();
    Block lineOfStatements();
    Statement statement();

    syntax::Dim dim();
    syntax::Dim::Group dimGroup();
    syntax::Declarator declarator();
    syntax::ReDim reDim();
    syntax::Print print();
    syntax::If ifStatement(Offset offset);
    syntax::While whileLoop(Offset offset);
    syntax::Try tryBlock(Offset offset);
    Statement forLoop(Offset offset);
    Statement assignmentOrCall();

    syntax::LoopVariable loopVariable();
    void closeLoop(const Opening& opening, const Name& variable);
    void close(const Opening& opening);
    Name name(std::string_view wanted);

    const Source& source_;
    unsigned depth_ = 0;
    TokenStream tokens_;
    ExpressionParser expressions_;
};

bool endsBlock(const TokenStream& tokens) {
    if (tokens.at(TokenKind::endOfFile)) return true;
    if (!tokens.at(TokenKind::name)) return false;
    switch (tokens.peek().keyword) {
    case Keyword::end:
    case Keyword::elseIf:
    case Keyword::elseBranch:
    case Keyword::next:
    case Keyword::wend:
    case Keyword::catchBlock:
    case Keyword::finally: return true;
    default: return false;
    }
}

// Statements up to a word that ends their block, which is left to the caller.
Block StatementParser::statements() {
    Block block;
    for (;;) {
        while (tokens_.accept(TokenKind::endOfStatement)) {
        }
        if (endsBlock(tokens_)) return block;
        block.push_back(statement());
        if (!tokens_.atStatementEnd()) tokens_.failExpected("the end of the statement");
    }
}

// What follows Then or Else on their own line.
Block StatementParser::lineOfStatements() {
    Block block;
    while (!tokens_.atLineEnd() && !tokens_.at(Keyword::elseBranch)) {
        if (tokens_.accept(TokenKind::endOfStatement)) continue;
        block.push_back(statement());
        if (!tokens_.atStatementEnd() && !tokens_.at(Keyword::elseBranch)) tokens_.failExpected("the end of the statement");
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
    case Keyword::print: return after([&] { return print(); });
    case Keyword::ifBranch: return after([&] { return ifStatement(first.offset); });
    case Keyword::whileLoop: return after([&] { return whileLoop(first.offset); });
    case Keyword::tryBlock: return after([&] { return tryBlock(first.offset); });
    case Keyword::forLoop: tokens_.take(); return forLoop(first.offset);
    default: tokens_.failExpected("a statement");
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
    tokens_.expect(Keyword::as, "',' or 'As'");
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
        tokens_.expect(TokenKind::closeParenthesis, "')'");
    }
    return form;
}

syntax::ReDim StatementParser::reDim() {
    syntax::ReDim form{name("an array's name"), nullptr};
    tokens_.expect(TokenKind::openParenthesis, "'('");
    form.upperBound = expressions_.expression();
    tokens_.expect(TokenKind::closeParenthesis, "')'");
    return form;
}

syntax::Print StatementParser::print() {
    if (tokens_.atStatementEnd() || tokens_.at(Keyword::elseBranch)) return {};
    return {expressions_.list()};
}

syntax::If StatementParser::ifStatement(Offset offset) {
    const Opening opening{offset, "If", "End If", Keyword::end, Keyword::ifBranch};
    syntax::If form;
    ExpressionPtr condition = expressions_.expression();
    tokens_.expect(Keyword::then, "'Then'");
    if (!tokens_.atLineEnd()) {
        form.branches.push_back({std::move(condition), lineOfStatements()});
        if (tokens_.accept(Keyword::elseBranch)) form.branches.push_back({nullptr, lineOfStatements()});
        return form;
    }
    form.branches.push_back({std::move(condition), statements()});
    while (tokens_.accept(Keyword::elseIf)) {
        condition = expressions_.expression();
        tokens_.expect(Keyword::then, "'Then'");
        form.branches.push_back({std::move(condition), statements()});
    }
    if (tokens_.accept(Keyword::elseBranch)) form.branches.push_back({nullptr, statements()});
    close(opening);
    return form;
}

syntax::While StatementParser::whileLoop(Offset offset) {
    syntax::While form{expressions_.expression(), {}};
    form.block = statements();
    close({offset, "While", "Wend", Keyword::wend, Keyword::none});
    return form;
}

Statement StatementParser::forLoop(Offset offset) {
    const Opening opening{offset, "For", "Next", Keyword::next, Keyword::none};
    if (tokens_.accept(Keyword::each)) {
        syntax::ForEach form;
        form.variable = loopVariable();
        tokens_.expect(Keyword::in, form.variable.type ? "'In'" : "'As' or 'In'");
        form.array = expressions_.expression();
        form.block = statements();
        closeLoop(opening, form.variable.name);
        return {offset, std::move(form)};
    }
    syntax::For form;
    form.variable = loopVariable();
    tokens_.expect(TokenKind::equal, form.variable.type ? "'='" : "'As' or '='");
    form.first = expressions_.expression();
    form.down = tokens_.accept(Keyword::downTo);
    if (!form.down) tokens_.expect(Keyword::to, "'To' or 'DownTo'");
    form.last = expressions_.expression();
    if (tokens_.accept(Keyword::step)) form.step = expressions_.expression();
    form.block = statements();
    closeLoop(opening, form.variable.name);
    return {offset, std::move(form)};
}

syntax::LoopVariable StatementParser::loopVariable() {
    syntax::LoopVariable variable{name("a variable's name"), std::nullopt};
    if (tokens_.accept(Keyword::as)) variable.type = name("a type");
    return variable;
}

syntax::Try StatementParser::tryBlock(Offset offset) {
    syntax::Try form;
    form.block = statements();
    while (tokens_.accept(Keyword::catchBlock)) {
        syntax::Try::Catch handler;
        if (!tokens_.atStatementEnd()) {
            handler.variable = name("a variable's name or the end of the line");
            tokens_.expect(Keyword::as, "'As'");
            handler.className = name("a class");
        }
        handler.block = statements();
        form.catches.push_back(std::move(handler));
    }
    if (tokens_.accept(Keyword::finally)) form.finally = statements();
    if (form.catches.empty() && !form.finally && tokens_.at(Keyword::end)) tokens_.failExpected("'Catch' or 'Finally'");
    close({offset, "Try", "End Try", Keyword::end, Keyword::tryBlock});
    return form;
}

Statement StatementParser::assignmentOrCall() {
    const Offset offset = tokens_.peek().offset;
    if (!tokens_.at(TokenKind::name) && !tokens_.at(TokenKind::openParenthesis)) tokens_.failExpected("a statement");
    ExpressionPtr target = expressions_.postfix();
    if (tokens_.accept(TokenKind::equal)) return {offset, syntax::Assignment{std::move(target), expressions_.expression()}};
    if (!tokens_.atStatementEnd() && !tokens_.at(Keyword::elseBranch)) {
        if (std::holds_alternative<syntax::Call>(target->form)) tokens_.failExpected("'=' or the end of the statement");
        const Offset place = target->offset;
        syntax::Call call{std::move(target), expressions_.list()};
        target = std::make_unique<syntax::Expression>(syntax::Expression{place, std::move(call)});
    }
    return {offset, syntax::Evaluation{std::move(target)}};
}

// Next, or Next with the name of the loop's variable.
void StatementParser::closeLoop(const Opening& opening, const Name& variable) {
    close(opening);
    if (tokens_.atStatementEnd() || tokens_.at(Keyword::elseBranch)) return;
    const Name closed = name("the loop's variable or the end of the statement");
    if (equalIgnoringCase(closed.text, variable.text)) return;
    throw SyntaxError{closed.offset, "this Next closes the loop over '" + std::string(variable.text) + "', not over '" +
                                         std::string(closed.text) + "'"};
}

void StatementParser::close(const Opening& opening) {
    if (tokens_.at(TokenKind::endOfFile)) {
        throw SyntaxError{opening.offset, "this " + std::string(opening.name) + " block is never closed: '" +
                                              std::string(opening.closing) + "' is missing"};
    }
    const auto expectWord = [&](Keyword word) {
        if (tokens_.accept(word)) return;
        tokens_.failExpected("'" + std::string(opening.closing) + "' to close the " + std::string(opening.name) +
                             " block that began on line " + std::to_string(source_.place(opening.offset).line));
    };
    expectWord(opening.first);
    if (opening.second != Keyword::none) expectWord(opening.second);
}

Name StatementParser::name(std::string_view wanted) {
    const Token token = tokens_.expectName(wanted);
    return {token.offset, token.text};
}

// What the lexer relies on.
void checkText(std::string_view text) {
    constexpr std::size_t largest = std::size_t{1} << 30;
    if (text.size() > largest) throw SyntaxError{0, "a program cannot be larger than 1 GB"};
    const std::size_t invalid = utf8::findInvalid(text);
    const std::size_t null = text.find('\0');
    if (null < invalid) throw SyntaxError{static_cast<Offset>(null), "a NUL byte cannot stand in a program"};
    if (invalid != std::string_view::npos)
        throw SyntaxError{static_cast<Offset>(invalid), "a program is UTF-8 text, and this byte is no part of any"};
}

} // namespace

std::optional<Block> parse(const Source& source, Diagnostics& diagnostics) {
    try {
        checkText(source.text());
        return StatementParser(source).program();
    } catch (const SyntaxError& error) {
        diagnostics.add(error.offset, error.message);
        return std::nullopt;
    }
}

} // namespace host::language
