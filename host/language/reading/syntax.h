// The syntax tree of a program, which the parser builds and the checker reads. Names are views into the source text.
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

// A call or an array element, which have the same form; `callee` determines which it is. Only a statement can omit the
// parentheses.
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

// If(condition, yes, no), which computes only one of the two values.
struct Conditional {
    ExpressionPtr condition;
    ExpressionPtr yes;
    ExpressionPtr no;
};

struct Expression {
    Offset offset; // where a message about it points: the operator of a binary expression, the name of a member
    std::variant<Literal, Identifier, Member, Call, New, Unary, Binary, TypeTest, Conditional> form;
};

// ---- Statements

struct Statement;
using Block = std::vector<Statement>;

// One "name" or "name(bound)" of a Dim.
struct Declarator {
    Name name;
    bool isArray;
    ExpressionPtr upperBound; // null for an empty array
};

// Dim a, b As Type [= value], c = value, d As New Type(arguments). The last form has a New as its value.
struct Dim {
    struct Group {
        std::vector<Declarator> declarators;
        std::optional<Name> type; // none if the value determines it
        ExpressionPtr value;      // null for the type's null value
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
    std::optional<Operator> operation; // of += and similar operators, which change the target by the value
};

// A call for its effect.
struct Evaluation {
    ExpressionPtr call;
};

struct Print {
    std::vector<ExpressionPtr> values;
    bool endsLine; // Write does not
};

// Const Name [As Type] = value, which consists of literals and constants.
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

// The constructs that Exit and Continue can leave.
enum class Surrounding : std::uint8_t { anyLoop, forLoop, whileLoop, doLoop, sub, function };

// Exit For and similar statements, Continue [For].
struct Leave {
    Surrounding what;
    bool continues;
};

// An expression that is typed at a prompt. Its value is shown.
struct Presentation {
    ExpressionPtr value;
};

struct If {
    struct Branch {
        ExpressionPtr condition; // null for Else
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

// One alternative of a Case: "value" and "Is > value" compare with `first`; "first To last" tests a range.
struct CaseTest {
    Operator operation;
    ExpressionPtr first;
    ExpressionPtr last; // null without a range
};

struct Select {
    struct Case {
        std::vector<CaseTest> tests; // empty for Case Else
        Block block;
    };
    ExpressionPtr value;
    std::vector<Case> cases;
};

// The loop's own variable if it has a type, otherwise a variable that is declared before the loop.
struct LoopVariable {
    Name name;
    std::optional<Name> type;
};

struct For {
    LoopVariable variable;
    ExpressionPtr first;
    ExpressionPtr last;
    ExpressionPtr step; // null for 1
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
        std::optional<Name> className; // none for every exception
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
    TypeName type; // of a ParamArray, the type of the array
    bool byRef;
    bool paramArray;
    ExpressionPtr defaultValue; // null: none
};

struct Procedure {
    Name name;
    std::vector<Parameter> parameters;
    std::optional<TypeName> result; // none for a Sub
    Block block;
};

// The usable parts of a statement that has an error: the block that it began, and the names that it may have declared. Uses
// of these names then do not cause further errors.
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
