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

    // Whatever the expression is, a call without a result too. All of these throw CheckError.
    Operand operand(const syntax::Expression& expression);

    // It must have a value.
    Value value(const syntax::Expression& expression);

    // The same for a For Each: of a Dictionary its keys.
    Value valueToWalk(const syntax::Expression& expression);

    // The value converted to the type.
    CodePtr valueAs(const syntax::Expression& expression, const Type& type);

    // The value as a string in the form of Print.
    CodePtr text(const syntax::Expression& expression);

    // When the expression joins texts to that of the variable, as in `name & a & b`: those texts, otherwise nothing.
    std::vector<CodePtr> textsJoinedTo(std::string_view name, const syntax::Expression& expression);

    // New Class(arguments), which a Dim may stand for too.
    Operand newObject(const syntax::New& form, Offset offset);

    // The value of an expression of literals and constants, converted to the type if there is one.
    Literal constantValue(const syntax::Expression& expression, const std::optional<Type>& wanted);

    // The value of the expression is the right side of an operator.
    Operand binary(syntax::Operator operation, Value left, const syntax::Expression& with, Offset offset);

    // The comparison of a value with that of an expression.
    CodePtr comparison(syntax::Operator operation, Value left, const syntax::Expression& right);

    // Fails for a name that no variable, constant or class has. `declaration` is how a message declares the variable.
    void requireVariable(const syntax::Name& name, std::string_view declaration);

    // Whether a function of the language or a procedure has the name.
    bool isFunction(std::string_view name) const;

    // "this cannot be assigned to", with the reason.
    [[noreturn]] void failAssignment(const syntax::Expression& target);

    // Warns when the value may lose a fraction where one of the type is needed.
    void warnOfLostFraction(const Value& value, const Type& type, Offset offset);

    // Code that does not come from here calls functions that may autorelease.
    void requirePool() { needsPool_ = true; }

    // Whether the code made since the last question calls functions that may autorelease.
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
    // The class that a plain name means, when no variable has that name.
    ClassInfo* classNamedBy(const syntax::Expression& expression) const;
    // The function's name as it is declared.
    std::string nameOfFunction(std::string_view name) const;
    // "; remedy" for a member that arrays or plain values do not have; empty for most names.
    std::string remedyFor(Foreign where, std::string_view member, const NearestName& nearest) const;
    [[noreturn]] void failUnknownName(std::string_view name, Offset offset, bool called) const;
    // Whether the expression is a call of the language's own Array.
    bool makesArray(const syntax::Expression& expression) const;

    // Conversions (conversion_checker.cpp).
    Operand plainConversion(const Type& type, const Arguments& arguments, Offset offset);
    Operand cast(const ClassInfo& info, const Arguments& arguments, Offset offset);

    // Arrays (array_checker.cpp).
    Operand newArray(const Arguments& elements, const std::optional<Type>& elementType);
    Operand arrayBound(std::string_view name, Generic bound, const Arguments& arguments, Offset offset);
    Operand arrayMember(Value array, const syntax::Name& name, const Arguments* arguments);
    Operand element(Value array, const Arguments& arguments, Offset offset);

    // Members (member_checker.cpp). `arguments` is null without parentheses.
    Operand member(const syntax::Member& member, const Arguments* arguments);
    Operand sharedMember(ClassInfo& info, const syntax::Name& name, const Arguments* arguments);
    Operand objectMember(ClassInfo& info, CodePtr object, const syntax::Name& name, const Arguments* arguments);

    // Calls (call_checker.cpp).
    Operand callProcedure(const OverloadSet& overloads, const Arguments& arguments, Offset offset);
    // A call of the one of the overloads that suits the arguments. `what` is how messages call it.
    Operand callOne(const std::string& what, const OverloadSet& overloads, CodePtr receiver, const Arguments* arguments,
                    Offset offset);
    void requireNotHidden(const syntax::Expression& callee) const;
    Operands operands(const Arguments& arguments);
    std::vector<ArgumentCode> bind(const Resolution& resolution, Operands operands, Offset offset);

    // Bound functions of the language (null) and of built-in classes autorelease nothing.
    void requirePoolFor(const ClassInfo* owner) { needsPool_ = needsPool_ || (owner && !owner->isBuiltIn()); }

    // Warns of a literal number for a colour that lacks alpha.
    void warnOfInvisible(const syntax::Expression& expression);
    CodePtr read(Operand operand, Offset offset); // fails for a property without getter
    CodePtr convert(CodePtr code, const Type& from, const Type& to, Offset offset, Purpose purpose = Purpose::assignment);

    bool computesConstant(std::string_view name) const;
    bool isConstant(const syntax::Expression& expression) const;

    Scopes& scopes_;
    const Procedures& procedures_;
    Diagnostics& diagnostics_; // for warnings; errors are thrown
    bool needsPool_ = false;
};

// The type that takes values of both; `nothing` stands for none yet.
Type united(const Type& a, const Type& b);

// The value of a declared constant or default.
CodePtr literalCode(const Literal& literal);
Operand literalOperand(const Literal& literal);

} // namespace host::language
