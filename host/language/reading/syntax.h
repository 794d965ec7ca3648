// A program as it is written: the tree that the parser builds and the checker reads. Names are views into the source text.
#pragma once

#include "language/reading/source.h"

#include "model/declarations.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace host::language::syntax {

struct Name {
    Offset offset;
    std::string_view text;
};

// ---- Expressions

struct Expression;
using ExpressionPtr = std::unique_ptr<Expression>;

enum class Operator : std::uint8_t {
    power,
    negate,
    multiply,
    divide,
    integerDivide,
    modulo,
    add,
    subtract,
    join,
    equal,
    notEqual,
    less,
    greater,
    lessEqual,
    greaterEqual,
    is,
    logicalNot,
    logicalAnd,
    logicalOr,
    logicalXor,
};

struct Identifier {
    std::string_view name;
};

struct Member {
    ExpressionPtr object;
    Name name;
};

// A call or an array element, which look alike: `callee` tells. Without parentheses only as a statement.
struct Call {
    ExpressionPtr callee;
    std::vector<ExpressionPtr> arguments;
};

struct New {
    Name className;
    std::vector<ExpressionPtr> arguments;
};

struct Unary {
    Operator operation;
    ExpressionPtr operand;
};

struct Binary {
    Operator operation;
    ExpressionPtr left;
    ExpressionPtr right;
};

// TypeOf object Is class
struct TypeTest {
    ExpressionPtr object;
    Name className;
};

// If(condition, yes, no), of which one is computed.
struct Conditional {
    ExpressionPtr condition;
    ExpressionPtr yes;
    ExpressionPtr no;
};

struct Expression {
    Offset offset; // where a message about it points: the operator of a binary one, the name of a member
    std::variant<Literal, Identifier, Member, Call, New, Unary, Binary, TypeTest, Conditional> form;
};

// ---- Statements

struct Statement;
using Block = std::vector<Statement>;

// One "name" or "name(bound)" of a Dim.
struct Declarator {
    Name name;
    bool isArray;
    ExpressionPtr upperBound; // null: an empty array
};

// Dim a, b As Type [= value], c = value, d As New Type(arguments); the latter is the same with a New as the value.
struct Dim {
    struct Group {
        std::vector<Declarator> declarators;
        std::optional<Name> type; // none: that of the value
        ExpressionPtr value;      // null: the type's null value
    };
    std::vector<Group> groups;
};

struct ReDim {
    Name array;
    ExpressionPtr upperBound;
};

struct Assignment {
    ExpressionPtr target;
    ExpressionPtr value;
    std::optional<Operator> operation; // of += and its like, which change the target by the value
};

// A call made for its effect.
struct Evaluation {
    ExpressionPtr call;
};

struct Print {
    std::vector<ExpressionPtr> values;
    bool endsLine; // Write does not
};

// Const Name [As Type] = value, which is made of literals and constants.
struct Const {
    Name name;
    std::optional<Name> type;
    ExpressionPtr value;
};

struct Raise {
    ExpressionPtr exception;
};

struct Return {
    ExpressionPtr value; // null: none
};

// What Exit and Continue can leave.
enum class Surrounding : std::uint8_t { anyLoop, forLoop, whileLoop, doLoop, sub, function };

// Exit For and its like, Continue [For].
struct Leave {
    Surrounding what;
    bool continues;
};

// An expression typed at a prompt, whose value is shown.
struct Presentation {
    ExpressionPtr value;
};

struct If {
    struct Branch {
        ExpressionPtr condition; // null: Else
        Block block;
    };
    std::vector<Branch> branches;
};

struct While {
    ExpressionPtr condition;
    Block block;
};

// Do [While|Until condition] ... Loop [While|Until condition]
struct Do {
    ExpressionPtr before; // null: none
    ExpressionPtr after;
    Block block;
};

// One of the alternatives of a Case: "value" and "Is > value" compare with `first`, "first To last" asks for a range.
struct CaseTest {
    Operator operation;
    ExpressionPtr first;
    ExpressionPtr last; // null: no range
};

struct Select {
    struct Case {
        std::vector<CaseTest> tests; // none: Case Else
        Block block;
    };
    ExpressionPtr value;
    std::vector<Case> cases;
};

// A loop's own variable when it has a type, otherwise a variable declared before.
struct LoopVariable {
    Name name;
    std::optional<Name> type;
};

struct For {
    LoopVariable variable;
    ExpressionPtr first;
    ExpressionPtr last;
    ExpressionPtr step; // null: 1
    bool down;
    Block block;
};

struct ForEach {
    LoopVariable variable;
    ExpressionPtr array;
    Block block;
};

struct Try {
    struct Catch {
        std::optional<Name> variable;
        std::optional<Name> className; // none: every exception
        Block block;
    };
    Block block;
    std::vector<Catch> catches;
    std::optional<Block> finally;
};

// ---- Procedures

struct TypeName {
    Name name;
    bool isArray;
};

struct Parameter {
    Name name;
    TypeName type; // of a ParamArray: the array's
    bool byRef;
    bool paramArray;
    ExpressionPtr defaultValue; // null: none
};

struct Procedure {
    Name name;
    std::vector<Parameter> parameters;
    std::optional<TypeName> result; // none: a Sub
    Block block;
};

// What an error in a statement has left of it: the names that it may have declared, so that their uses are no errors of
// their own, and the block that it began.
struct Broken {
    std::vector<Name> names;
    std::optional<Block> block;
};

struct Statement {
    Offset offset;
    std::variant<Dim, ReDim, Assignment, Evaluation, Print, Const, Raise, Return, Leave, Presentation, If, While, Do, Select,
                 For, ForEach, Try, Procedure, Broken>
        form;
};

} // namespace host::language::syntax
