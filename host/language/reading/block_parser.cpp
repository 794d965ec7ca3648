// Parses statements with blocks.
#include "language/reading/statement_parser.h"

#include "values/types.h"

#include <algorithm>

namespace host::language {

using syntax::Block;
using syntax::ExpressionPtr;
using syntax::Name;
using syntax::Operator;
using syntax::Statement;

// ---- Where blocks end

bool StatementParser::endsBlock() const {
    if (tokens_.at(TokenKind::endOfFile)) return true;
    if (!tokens_.at(TokenKind::name)) return false;
    switch (tokens_.peek().keyword) {
    case Keyword::end:
    case Keyword::elseIf:
    case Keyword::elseBranch:
    case Keyword::next:
    case Keyword::wend:
    case Keyword::loop:
    case Keyword::caseBranch:
    case Keyword::catchBlock:
    case Keyword::finally: return true;
    case Keyword::sub:
    case Keyword::function: return !openings_.empty(); // a procedure in a block: the block was not closed
    default: return false;
    }
}

bool StatementParser::closes(const Opening& opening) const {
    return tokens_.at(opening.first) && (opening.second == Keyword::none || tokens_.keywordAfter() == opening.second);
}

bool StatementParser::continues(const Opening& opening) const {
    switch (tokens_.at(TokenKind::name) ? tokens_.peek().keyword : Keyword::none) {
    case Keyword::elseIf:
    case Keyword::elseBranch: return opening.second == Keyword::ifBranch;
    case Keyword::caseBranch: return opening.second == Keyword::select;
    case Keyword::catchBlock:
    case Keyword::finally: return opening.second == Keyword::tryBlock;
    default: return false;
    }
}

bool StatementParser::belongsToOpenBlock() const {
    if (tokens_.at(Keyword::sub) || tokens_.at(Keyword::function)) return true; // they belong to the program
    return std::any_of(openings_.begin(), openings_.end(),
                       [this](const Opening& opening) { return closes(opening) || continues(opening); });
}

bool StatementParser::isMiddleOfBlock() const {
    return tokens_.at(Keyword::elseIf) || tokens_.at(Keyword::elseBranch) || tokens_.at(Keyword::caseBranch) ||
           tokens_.at(Keyword::catchBlock) || tokens_.at(Keyword::finally);
}

// Parses the statements up to the block's next keyword. Reports an Else or a similar word that fits no block, and continues
// after it.
Block StatementParser::part(const Opening& opening) {
    openings_.push_back(opening);
    Block block = statements();
    while (isMiddleOfBlock() && !belongsToOpenBlock()) {
        report({tokens_.peek().offset, "'" + std::string(tokens_.peek().text) + "' belongs to no block"});
        tokens_.skipLine();
        for (Statement& statement : statements())
            block.push_back(std::move(statement));
    }
    openings_.pop_back();
    return block;
}

Block StatementParser::block(const Opening& opening) {
    Block read = part(opening);
    close(opening);
    return read;
}

// Other words than those that close the block are an error. They are left to an outer block that they fit. If there is
// none, they count as the end of this block.
void StatementParser::close(const Opening& opening, std::optional<Offset> elseIf) {
    if (closes(opening)) {
        tokens_.take();
        if (opening.second != Keyword::none) tokens_.take();
        return;
    }
    endedInBlock_ = endedInBlock_ || tokens_.at(TokenKind::endOfFile);
    if (elseIf) {
        report({*elseIf, "'ElseIf' is one word; an If after 'Else' needs a separate 'End If'"});
    } else if (endedInBlock_) {
        report({opening.offset, "this " + std::string(opening.name) + " block is never closed: '" +
                                    std::string(opening.closing) + "' is missing"});
    }
    if (endedInBlock_) return;
    try {
        if (!elseIf) {
            tokens_.failExpected("'" + std::string(opening.closing) + "' to close the " + std::string(opening.name) +
                                 " block that began on line " + std::to_string(source_.place(opening.offset).line));
        }
    } catch (const SyntaxError& error) {
        report(error);
    }
    closerLeft_ = belongsToOpenBlock();
    if (!closerLeft_) tokens_.skipLine();
}

// ---- Conditions

ExpressionPtr StatementParser::condition() {
    const Offset offset = tokens_.peek().offset;
    try {
        return expressions_.expression();
    } catch (const SyntaxError& error) {
        report(error);
        tokens_.skipLine();
        return std::make_unique<syntax::Expression>(syntax::Expression{offset, Literal{true}});
    }
}

ExpressionPtr StatementParser::conditionThen() {
    const Offset offset = tokens_.peek().offset;
    try {
        ExpressionPtr value = expressions_.expression();
        tokens_.expect(Keyword::then, "'Then'");
        return value;
    } catch (const SyntaxError& error) {
        report(error);
        tokens_.skipTo(Keyword::then);
        tokens_.accept(Keyword::then);
        return std::make_unique<syntax::Expression>(syntax::Expression{offset, Literal{true}});
    }
}

// ---- Branches

syntax::If StatementParser::ifStatement(Offset offset) {
    const Opening opening{offset, "If", "End If", Keyword::end, Keyword::ifBranch};
    syntax::If form;
    ExpressionPtr condition = conditionThen();
    if (!tokens_.atLineEnd()) {
        form.branches.push_back({std::move(condition), lineOfStatements()});
        if (tokens_.accept(Keyword::elseBranch)) form.branches.push_back({nullptr, lineOfStatements()});
        return form;
    }
    form.branches.push_back({std::move(condition), part(opening)});
    while (tokens_.accept(Keyword::elseIf)) {
        condition = conditionThen();
        form.branches.push_back({std::move(condition), part(opening)});
    }
    std::optional<Offset> elseIf;
    if (tokens_.accept(Keyword::elseBranch)) {
        if (tokens_.at(Keyword::ifBranch)) elseIf = tokens_.peek().offset;
        form.branches.push_back({nullptr, part(opening)});
    }
    close(opening, elseIf);
    return form;
}

syntax::Select StatementParser::select(Offset offset) {
    const Opening opening{offset, "Select", "End Select", Keyword::end, Keyword::select};
    if (!tokens_.accept(Keyword::caseBranch)) {
        try {
            tokens_.failExpected("'Case'");
        } catch (const SyntaxError& error) {
            report(error);
        }
    }
    syntax::Select form{condition(), {}};
    const Offset start = tokens_.peek().offset;
    if (!part(opening).empty()) report({start, "a statement before the first Case is never reached"});
    while (tokens_.accept(Keyword::caseBranch)) {
        syntax::Select::Case branch;
        try {
            if (!tokens_.accept(Keyword::elseBranch)) branch.tests = caseTests();
            if (!tokens_.atStatementEnd()) tokens_.failExpected("',' or the end of the line");
        } catch (const SyntaxError& error) {
            report(error);
            tokens_.skipLine();
        }
        branch.block = part(opening);
        form.cases.push_back(std::move(branch));
    }
    close(opening);
    return form;
}

std::vector<syntax::CaseTest> StatementParser::caseTests() {
    std::vector<syntax::CaseTest> tests;
    do {
        tests.push_back(caseTest());
    } while (tokens_.accept(TokenKind::comma));
    return tests;
}

syntax::CaseTest StatementParser::caseTest() {
    if (!tokens_.accept(Keyword::is)) {
        ExpressionPtr first = expressions_.expression();
        ExpressionPtr last = tokens_.accept(Keyword::to) ? expressions_.expression() : nullptr;
        return {Operator::equal, std::move(first), std::move(last)};
    }
    struct Comparison {
        TokenKind token;
        Operator operation;
    };
    static constexpr Comparison comparisons[] = {
        {TokenKind::equal, Operator::equal},         {TokenKind::notEqual, Operator::notEqual},
        {TokenKind::less, Operator::less},           {TokenKind::greater, Operator::greater},
        {TokenKind::lessEqual, Operator::lessEqual}, {TokenKind::greaterEqual, Operator::greaterEqual},
    };
    for (const Comparison& comparison : comparisons)
        if (tokens_.accept(comparison.token)) return {comparison.operation, expressions_.expression(), nullptr};
    tokens_.failExpected("a comparison such as '>'");
}

syntax::Try StatementParser::tryBlock(Offset offset) {
    const Opening opening{offset, "Try", "End Try", Keyword::end, Keyword::tryBlock};
    syntax::Try form;
    form.block = part(opening);
    while (tokens_.accept(Keyword::catchBlock)) {
        syntax::Try::Catch handler = catchHead();
        handler.block = part(opening);
        form.catches.push_back(std::move(handler));
    }
    if (tokens_.accept(Keyword::finally)) form.finally = part(opening);
    if (form.catches.empty() && !form.finally && closes(opening)) tokens_.failExpected("'Catch' or 'Finally'");
    close(opening);
    return form;
}

// After an error the variable has the type of any exception, so that its uses do not cause further errors.
syntax::Try::Catch StatementParser::catchHead() {
    syntax::Try::Catch handler;
    if (tokens_.atStatementEnd()) return handler;
    try {
        handler.variable = name("a variable's name or the end of the line");
        handler.className = Name{handler.variable->offset, "RuntimeException"};
        tokens_.expect(Keyword::as, "'As' and a class of exceptions");
        handler.className = name("a class");
    } catch (const SyntaxError& error) {
        report(error);
        tokens_.skipLine();
    }
    return handler;
}

// ---- Loops

syntax::While StatementParser::whileLoop(Offset offset) {
    syntax::While form{condition(), {}};
    form.block = block({offset, "While", "Wend", Keyword::wend, Keyword::none});
    return form;
}

syntax::Do StatementParser::doLoop(Offset offset) {
    const auto limit = [this]() -> ExpressionPtr {
        const Offset place = tokens_.peek().offset;
        if (tokens_.accept(Keyword::whileLoop)) return condition();
        if (!tokens_.accept(Keyword::until)) return nullptr;
        return std::make_unique<syntax::Expression>(
            syntax::Expression{place, syntax::Unary{Operator::logicalNot, condition()}});
    };
    syntax::Do form;
    form.before = limit();
    form.block = block({offset, "Do", "Loop", Keyword::loop, Keyword::none});
    form.after = limit();
    return form;
}

Statement StatementParser::forLoop(Offset offset) {
    const Opening opening{offset, "For", "Next", Keyword::next, Keyword::none};
    syntax::For form;
    syntax::ForEach each;
    bool isEach = false;
    try {
        isEach = tokens_.accept(Keyword::each);
        if (isEach) {
            each.variable = loopVariable();
            tokens_.expect(Keyword::in, each.variable.type ? "'In'" : "'As' or 'In'");
            each.array = expressions_.expression();
        } else {
            form.variable = loopVariable();
            tokens_.expect(TokenKind::equal, form.variable.type ? "'='" : "'As' or '='");
            form.first = expressions_.expression();
            form.down = tokens_.accept(Keyword::downTo);
            if (!form.down) tokens_.expect(Keyword::to, "'To' or 'DownTo'");
            form.last = expressions_.expression();
            if (tokens_.accept(Keyword::step)) form.step = expressions_.expression();
        }
        if (!tokens_.atStatementEnd()) tokens_.failExpected("the end of the statement");
    } catch (const SyntaxError& error) {
        syntax::Broken left = broken(error, offset);
        left.block = block(opening);
        tokens_.skipLine(); // a name after Next
        return {offset, std::move(left)};
    }
    syntax::Block& body = isEach ? each.block : form.block;
    body = part(opening);
    closeLoop(opening, isEach ? each.variable.name : form.variable.name);
    if (isEach) return {offset, std::move(each)};
    return {offset, std::move(form)};
}

syntax::LoopVariable StatementParser::loopVariable() {
    syntax::LoopVariable variable{name("a variable's name"), std::nullopt};
    if (tokens_.accept(Keyword::as)) variable.type = name("a type");
    return variable;
}

// Parses Next, or Next with the name of the loop's variable.
void StatementParser::closeLoop(const Opening& opening, const Name& variable) {
    const bool closed = closes(opening);
    close(opening);
    if (!closed || atEnd()) return;
    const Name given = name("the loop's variable or the end of the statement");
    if (equalIgnoringCase(given.text, variable.text)) return;
    report({given.offset, "this Next closes the loop over '" + std::string(variable.text) + "', not over '" +
                              std::string(given.text) + "'"});
}

} // namespace host::language
