// Checks expressions and turns them into code: names, overloads and conversions are resolved here, once.
#pragma once

#include "language/checking/operand.h"
#include "language/checking/scopes.h"
#include "language/reading/foreign_spellings.h"
#include "language/reading/keywords.h"
#include "language/reading/syntax.h"
#include "language/running/control_flow.h"
#include "language/running/procedures.h"

#include "model/resolve.h"
#include "text/nearest_name.h"

namespace host::language {

class ExpressionChecker {
public:
    ExpressionChecker(Scopes& scopes, const Procedures& procedures, Diagnostics& diagnostics)
        : scopes_(scopes), procedures_(procedures), diagnostics_(diagnostics) {}

    // Returns any expression, including a call without a result. All of these functions throw CheckError.
    Operand operand(const syntax::Expression& expression);

    // Returns the value of an expression that must have one.
    Value value(const syntax::Expression& expression);

    // Returns the value that a For Each walks through. For a Dictionary these are its keys.
    Value valueToWalk(const syntax::Expression& expression);

    // Returns the value converted to the type.
    CodePtr valueAs(const syntax::Expression& expression, const Type& type);

    // Returns the value as a string in the form of Print.
    CodePtr text(const syntax::Expression& expression);

    // Returns the texts that the expression joins to the variable's text, as in `name & a & b`; empty if it does not.
    std::vector<CodePtr> textsJoinedTo(std::string_view name, const syntax::Expression& expression);

    // Returns the object of New Class(arguments). A Dim can have the same form.
    Operand newObject(const syntax::New& form, Offset offset);

    // Returns the value of an expression of literals and constants, converted to the type if there is one.
    Literal constantValue(const syntax::Expression& expression, const std::optional<Type>& wanted);

    // Returns the operation with `left` and, as its right side, the value of the expression.
    Operand binary(syntax::Operator operation, Value left, const syntax::Expression& with, Offset offset);

    // Returns the comparison of a value with the value of an expression.
    CodePtr comparison(syntax::Operator operation, Value left, const syntax::Expression& right);

    // Throws for a name that no variable, constant or class has. `declaration` is how a message declares the variable.
    void requireVariable(const syntax::Name& name, std::string_view declaration);

    // Returns whether a function of the language or a procedure has the name.
    bool isFunction(std::string_view name) const;

    // Throws "this cannot be assigned to" with the reason.
    [[noreturn]] void failAssignment(const syntax::Expression& target);

    // Warns if the value may lose a fraction where a value of the type is needed.
    void warnOfLostFraction(const Value& value, const Type& type, Offset offset);

    // Records that code from elsewhere calls functions that may autorelease.
    void requirePool() { needsPool_ = true; }

    // Returns whether the code created since the last call of this function calls functions that may autorelease.
    bool takeNeedsPool();

private:
    using Arguments = std::vector<syntax::ExpressionPtr>;
    using Operands = std::vector<Operand>;

    Operand form(const Literal& literal, Offset offset);
    Operand form(const syntax::Identifier& identifier, Offset offset);
    Operand form(const syntax::Member& member, Offset offset);
    Operand form(const syntax::Call& call, Offset offset);
    Operand form(const syntax::New& form, Offset offset) { return newObject(form, offset); }
    Operand form(const syntax::Unary& unary, Offset offset);
    Operand form(const syntax::Binary& form, Offset offset);
    Operand form(const syntax::TypeTest& test, Offset offset);
    Operand form(const syntax::Conditional& form, Offset offset);

    // Operators (operator_checker.cpp).
    CodePtr number(Value value, Kind kind);
    Operand arithmetic(syntax::Operator operation, Value left, Value right, Offset offset);
    Operand comparison(syntax::Operator operation, Value left, Value right, Offset offset);
    Operand logic(syntax::Operator operation, Value left, Value right, Offset offset);
    CodePtr text(Value value);

    // Names (name_checker.cpp).
    Operand function(std::string_view name, const Arguments& arguments, Offset offset);
    // Returns the class that a plain name means, or null if a variable has that name.
    ClassInfo* classNamedBy(const syntax::Expression& expression) const;
    // Returns the function's name as it is declared.
    std::string nameOfFunction(std::string_view name) const;
    // Returns "; remedy" for a member that arrays or plain values do not have; empty for most names.
    std::string remedyFor(Foreign where, std::string_view member, const NearestName& nearest) const;
    [[noreturn]] void failUnknownName(std::string_view name, Offset offset, bool called) const;
    // Returns whether the expression is a call of the language's own Array.
    bool makesArray(const syntax::Expression& expression) const;

    // Conversions (conversion_checker.cpp).
    Operand plainConversion(const Type& type, const Arguments& arguments, Offset offset);
    Operand cast(const ClassInfo& info, const Arguments& arguments, Offset offset);

    // Arrays (array_checker.cpp).
    Operand newArray(const Arguments& elements, const std::optional<Type>& elementType);
    Operand arrayBound(std::string_view name, Generic bound, const Arguments& arguments, Offset offset);
    Operand arrayMember(Value array, const syntax::Name& name, const Arguments* arguments);
    Operand element(Value array, const Arguments& arguments, Offset offset);

    // Members (member_checker.cpp). `arguments` is null if there are no parentheses.
    Operand member(const syntax::Member& member, const Arguments* arguments);
    Operand sharedMember(ClassInfo& info, const syntax::Name& name, const Arguments* arguments);
    Operand objectMember(ClassInfo& info, CodePtr object, const syntax::Name& name, const Arguments* arguments);

    // Calls (call_checker.cpp).
    Operand callProcedure(const OverloadSet& overloads, const Arguments& arguments, Offset offset);
    // Returns the call of the overload that matches the arguments. `what` names the callee in messages.
    Operand callOne(const std::string& what, const OverloadSet& overloads, CodePtr receiver, const Arguments* arguments,
                    Offset offset);
    void requireNotHidden(const syntax::Expression& callee) const;
    Operands operands(const Arguments& arguments);
    std::vector<ArgumentCode> bind(const Resolution& resolution, Operands operands, Offset offset);

    // Bound functions of the language (null) and of built-in classes autorelease nothing.
    void requirePoolFor(const ClassInfo* owner) { needsPool_ = needsPool_ || (owner && !owner->isBuiltIn()); }

    // Warns about a literal number for a colour if the number has no alpha.
    void warnOfInvisible(const syntax::Expression& expression);
    CodePtr read(Operand operand, Offset offset); // throws for a property without a getter
    CodePtr convert(CodePtr code, const Type& from, const Type& to, Offset offset, Purpose purpose = Purpose::assignment);

    bool computesConstant(std::string_view name) const;
    bool isConstant(const syntax::Expression& expression) const;

    Scopes& scopes_;
    const Procedures& procedures_;
    Diagnostics& diagnostics_; // for warnings; errors are thrown
    bool needsPool_ = false;
};

// Returns the type that takes values of both; `nothing` means that there is no type yet.
Type united(const Type& a, const Type& b);

// Returns the value of a declared constant or default.
CodePtr literalCode(const Literal& literal);
Operand literalOperand(const Literal& literal);

} // namespace host::language
