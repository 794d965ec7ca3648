// Parses statements. Statements with blocks and procedures are in separate source files.
#pragma once

#include "language/reading/expression_parser.h"
#include "language/reading/parser.h"

#include <optional>
#include <string_view>
#include <vector>

namespace host::language {

// A block that is being parsed: its name in messages, the words that close it, and where it began.
struct Opening {
    Offset offset;
    std::string_view name;
    std::string_view closing;
    Keyword first;
    Keyword second; // none if one word closes it
};

class StatementParser {
public:
    StatementParser(const Source& source, Diagnostics& diagnostics, ParseMode mode, Offset start)
        : source_(source), diagnostics_(diagnostics), mode_(mode), tokens_(source.text(), start),
          expressions_(tokens_, depth_) {}

    syntax::Block program(); // throws a fatal SyntaxError

    // Returns whether the program ended inside a block.
    bool endedInBlock() const { return endedInBlock_; }

private:
    // Parses statements up to a word that ends their block, which is left to the caller.
    syntax::Block statements();
    syntax::Block lineOfStatements(); // the statements after Then or Else on the same line
    syntax::Statement statement();
    syntax::Statement statementOrBroken();
    syntax::Broken broken(const SyntaxError& error, Offset start);
    std::string foreignStart(Offset start) const; // a message, or empty

    // Simple statements.
    syntax::Dim dim();
    syntax::Dim::Group dimGroup();
    syntax::Declarator declarator();
    syntax::ReDim reDim();
    syntax::Print print(bool endsLine);
    syntax::Const constant();
    syntax::Raise raise() { return {expressions_.expression()}; }
    syntax::Return returnStatement();
    syntax::Leave leave(bool continues);
    syntax::Statement assignmentOrCall();

    // Statements with blocks (block_parser.cpp).
    syntax::If ifStatement(Offset offset);
    syntax::While whileLoop(Offset offset);
    syntax::Do doLoop(Offset offset);
    syntax::Select select(Offset offset);
    std::vector<syntax::CaseTest> caseTests();
    syntax::CaseTest caseTest();
    syntax::Try tryBlock(Offset offset);
    syntax::Try::Catch catchHead();
    syntax::Statement forLoop(Offset offset);
    syntax::LoopVariable loopVariable();
    void closeLoop(const Opening& opening, const syntax::Name& variable);

    syntax::ExpressionPtr condition();     // of a block; True after an error in it
    syntax::ExpressionPtr conditionThen(); // a condition and the Then after it

    syntax::Block block(const Opening& opening); // up to and including the words that close it
    syntax::Block part(const Opening& opening);  // up to a word that ends this part of the block
    // Takes the words that close the block, or reports that they are missing. `elseIf` is the place of an "Else If" in the
    // block, which needs another End If.
    void close(const Opening& opening, std::optional<Offset> elseIf = {});
    bool closes(const Opening& opening) const;
    bool continues(const Opening& opening) const;
    bool belongsToOpenBlock() const;
    bool isMiddleOfBlock() const;
    bool endsBlock() const;

    // Procedures (procedure_parser.cpp).
    syntax::Statement procedure(Offset offset, bool isFunction);
    std::vector<syntax::Parameter> parameters();
    syntax::Parameter parameter();
    syntax::TypeName typeName();

    syntax::Name name(std::string_view wanted);
    [[noreturn]] static void failDimensions(Offset offset);
    bool atEnd() const { return tokens_.atStatementEnd() || tokens_.at(Keyword::elseBranch); }
    void report(const SyntaxError& error);

    const Source& source_;
    Diagnostics& diagnostics_;
    ParseMode mode_;
    unsigned depth_ = 0;
    TokenStream tokens_;
    ExpressionParser expressions_;
    std::vector<Opening> openings_;
    bool endedInBlock_ = false;
    bool closerLeft_ = false; // the last block left its word to an outer block
};

} // namespace host::language
