#include "language/checking/statement_checker.h"

#include "language/checking/class_names.h"
#include "language/running/array_operations.h"
#include "language/running/operators.h"
#include "language/running/places.h"

#include <limits>

#include <cstdint>

namespace host::language {
namespace {

// Returns whether a call only computes a result. This is true of the language's own functions, except those that advance a
// state.
bool isOnlyAResult(const Method& method) {
    if (method.owner || method.signature.result.kind == Kind::nothing) return false;
    for (const char* const name : {"Input", "Random", "RandomInRange", "Microseconds"})
        if (method.signature.name == name) return false;
    return true;
}

bool isName(const syntax::Expression& expression, std::string_view name) {
    const auto* const identifier = std::get_if<syntax::Identifier>(&expression.form);
    return identifier && equalIgnoringCase(identifier->name, name);
}

} // namespace

ActionPtr StatementChecker::statements(const syntax::Block& block) {
    Actions actions;
    for (const syntax::Statement& statement : block) {
        actions.push_back(attempt([&] {
            return std::visit([&](const auto& alternative) { return form(alternative, statement.offset); }, statement.form);
        }));
    }
    return sequence(std::move(actions));
}

// ---- Declarations

Variable StatementChecker::declare(const syntax::Name& name, Type type) {
    if (mayDeclare(name)) return scopes_.declare(name.text, std::move(type), name.offset);
    return *scopes_.findDeclared(name.text);
}

bool StatementChecker::mayDeclare(const syntax::Name& name) {
    const Variable* const known = scopes_.findDeclared(name.text);
    if (!known) return true;
    if (mode_ == ParseMode::prompt && scopes_.atOutermost()) return true;
    diagnostics_.add(name.offset, quoted(name.text) + " is already declared, on " + diagnostics_.lineOf(known->declared));
    return false;
}

ActionPtr StatementChecker::form(const syntax::Dim& dim, Offset offset) {
    Actions actions;
    for (const syntax::Dim::Group& group : dim.groups) {
        if (!group.type) {
            actions.push_back(inferred(group, offset));
            continue;
        }
        const Type type = attempt([&] { return typeOf(*group.type); });
        for (const syntax::Declarator& declarator : group.declarators)
            actions.push_back(declared(declarator, group, type, offset));
    }
    return sequence(std::move(actions));
}

// A declaration with an error still declares its name, so that its uses do not cause further errors.
ActionPtr StatementChecker::declared(const syntax::Declarator& declarator, const syntax::Dim::Group& group, const Type& type,
                                     Offset offset) {
    const bool known = type.kind != Kind::nothing;
    CodePtr value = attempt([&] { return known ? initialValue(declarator, group, type) : nullptr; });
    const Variable variable = declare(declarator.name, declarator.isArray && known ? type.arrayOf() : type);
    scopes_.expectUse(declarator.name);
    return asStep(writeVariable(variable.place, variable.type, std::move(value)), offset);
}

// Dim name = value: the variable has the type of the value.
ActionPtr StatementChecker::inferred(const syntax::Dim::Group& group, Offset offset) {
    const syntax::Declarator& declarator = group.declarators.front();
    Value value = attempt([&] {
        if (group.declarators.size() > 1)
            failCheck(group.declarators[1].name.offset, "variables with a common value need a type: 'As' is expected");
        Value found = expressions_.value(*group.value);
        if (found.type.isNil()) failCheck(group.value->offset, "Nil has no type: write 'As' and the type of the variable");
        if (declarator.isArray && !found.type.isArray)
            failCheck(group.value->offset, "this is of type " + nameOf(found.type) + ", not an array");
        if (declarator.upperBound)
            failCheck(declarator.upperBound->offset, "an array that gets a value takes its bound from the value");
        return found;
    });
    std::vector<Variable> variables;
    for (const syntax::Declarator& declared : group.declarators) {
        variables.push_back(declare(declared.name, value.type));
        scopes_.expectUse(declared.name);
    }
    if (!value.code) return nullptr; // after an error
    return asStep(writeVariable(variables.front().place, value.type, std::move(value.code)), offset);
}

CodePtr StatementChecker::initialValue(const syntax::Declarator& declarator, const syntax::Dim::Group& group,
                                       const Type& type) {
    if (declarator.isArray && !group.value) {
        CodePtr bound = declarator.upperBound ? expressions_.valueAs(*declarator.upperBound, Type::plain(Kind::integer))
                                              : constant(Slot::ofInteger(-1));
        return makeArray(type, std::move(bound), declarator.name.offset);
    }
    if (declarator.upperBound)
        failCheck(declarator.upperBound->offset, "an array that gets a value takes its bound from the value");
    if (group.value) return expressions_.valueAs(*group.value, declarator.isArray ? type.arrayOf() : type);
    return constant(Slot());
}

ActionPtr StatementChecker::form(const syntax::ReDim& reDim, Offset offset) {
    const syntax::Expression reference{reDim.array.offset, syntax::Identifier{reDim.array.text}};
    Value array = expressions_.value(reference);
    if (!array.type.isArray) failCheck(reDim.array.offset, "this is of type " + nameOf(array.type) + ", not an array");
    CodePtr bound = expressions_.valueAs(*reDim.upperBound, Type::plain(Kind::integer));
    return asStep(resizeArray(std::move(array.code), std::move(bound), reDim.array.offset), offset);
}

// ---- Simple statements

ActionPtr StatementChecker::form(const syntax::Assignment& assignment, Offset offset) {
    if (const auto* const name = std::get_if<syntax::Identifier>(&assignment.target->form))
        expressions_.requireVariable({assignment.target->offset, name->name}, "Dim " + std::string(name->name) + " = ...");
    Operand target = expressions_.operand(*assignment.target);
    if (const Property* const property = target.property(); property && !property->setter) {
        failCheck(assignment.target->offset,
                  "the property " + quoted(property->name) + " of " + property->owner->name() + " is read-only");
    }
    if (!target.isWritable()) expressions_.failAssignment(*assignment.target);
    if (assignment.operation) return changed(assignment, std::move(target), offset);
    if (ActionPtr change = changedInPlace(*assignment.target, *assignment.value)) return asStep(std::move(change), offset);
    CodePtr value = expressions_.valueAs(*assignment.value, target.type());
    return asStep(target.assign(std::move(value)), offset);
}

// Returns null unless the value joins texts to the variable's text, at either end, or is a part of that text.
ActionPtr StatementChecker::changedInPlace(const syntax::Expression& target, const syntax::Expression& value) {
    const auto* const name = std::get_if<syntax::Identifier>(&target.form);
    const Variable* const variable = name ? scopes_.find(name->name) : nullptr;
    if (!variable || !variable->type.is(Kind::string)) return nullptr;
    std::vector<CodePtr> texts = expressions_.textsJoinedTo(name->name, value);
    if (!texts.empty()) return appendToVariable(variable->place, std::move(texts), value.offset);
    const auto* const joined = std::get_if<syntax::Binary>(&value.form);
    if (joined && joined->operation == syntax::Operator::join && isName(*joined->right, name->name))
        return prependToVariable(variable->place, expressions_.text(*joined->left), value.offset);
    return cutInPlace(*variable, *name, value);
}

// Checks name = Mid(name, ...) and similar assignments; returns null for others.
ActionPtr StatementChecker::cutInPlace(const Variable& variable, const syntax::Identifier& name,
                                       const syntax::Expression& value) {
    struct Cut {
        const char* name;
        std::size_t fewest, most; // arguments
        text::Part (*part)(HostInteger length, HostInteger a, HostInteger b);
    };
    static constexpr Cut cuts[] = {
        {"Mid", 2, 3, text::partOfMid},
        {"Left", 2, 2, [](HostInteger length, HostInteger count, HostInteger) { return text::partOfLeft(length, count); }},
        {"Right", 2, 2,
         [](HostInteger length, HostInteger count, HostInteger) { return text::partOfRight(length, count); }}};
    const auto* const call = std::get_if<syntax::Call>(&value.form);
    if (!call || call->arguments.empty() || !isName(*call->arguments.front(), name.name)) return nullptr;
    for (const Cut& cut : cuts) {
        const std::size_t given = call->arguments.size();
        if (!isName(*call->callee, cut.name) || given < cut.fewest || given > cut.most) continue;
        if (scopes_.find(cut.name) || !procedures_.find(cut.name).empty()) continue;
        CodePtr numbers[2] = {nullptr, constant(Slot::ofInteger(std::numeric_limits<HostInteger>::max()))};
        for (std::size_t i = 1; i < given; ++i) {
            Value number = expressions_.value(*call->arguments[i]);
            if (!number.type.is(Kind::integer)) return nullptr;
            numbers[i - 1] = std::move(number.code);
        }
        return cutVariable(variable.place, cut.part, std::move(numbers[0]), std::move(numbers[1]), value.offset);
    }
    return nullptr;
}

// Checks place &= text. The place is emptied before the text is joined, so that nothing else refers to its string, which
// then grows in place.
ActionPtr StatementChecker::joinedInPlace(Operand target, CodePtr text, Offset offset) {
    const Type string = Type::plain(Kind::string), type = target.type();
    return inScope(offset, [&] {
        Actions hold, steps;
        Operand now = *target.twin(scopes_, hold), emptied = *now.twin(scopes_, hold);
        const VariablePlace whole = scopes_.declareHidden(string), added = scopes_.declareHidden(string);
        hold.push_back(writeVariable(whole, string, asText(now.read(), type)));
        hold.push_back(writeVariable(added, string, std::move(text)));
        steps.push_back(asStep(sequence(std::move(hold)), offset));
        steps.push_back(asStep(emptied.assign(constant(Slot())), offset));
        std::vector<CodePtr> texts;
        texts.push_back(readVariable(added, string));
        CodePtr result = converted(readVariable(whole, string), string, type, offset);
        steps.push_back(tryBlock(asStep(appendToVariable(whole, std::move(texts), offset), offset), {},
                                 asStep(target.assign(std::move(result)), offset)));
        return sequence(std::move(steps));
    });
}

// Checks target += value and similar assignments.
ActionPtr StatementChecker::changed(const syntax::Assignment& form, Operand target, Offset offset) {
    const Offset place = form.target->offset;
    const auto* const name = std::get_if<syntax::Identifier>(&form.target->form);
    const bool joinsAny = *form.operation == syntax::Operator::join;
    const bool joins = joinsAny || *form.operation == syntax::Operator::add;
    const bool isText = target.type().is(Kind::string);
    if (target.canBeEmptied() && (isText ? joins : joinsAny && target.type().is(Kind::variant))) {
        Value added = expressions_.value(*form.value);
        if (joinsAny || added.type.is(Kind::string)) {
            CodePtr text = asText(std::move(added.code), added.type);
            if (!name || !isText) return joinedInPlace(std::move(target), std::move(text), place);
            std::vector<CodePtr> texts;
            texts.push_back(std::move(text));
            return asStep(appendToVariable(scopes_.find(name->name)->place, std::move(texts), place), offset);
        }
    }
    return inScope(offset, [&] {
        Actions actions;
        std::optional<Operand> now = target.twin(scopes_, actions);
        const Property* const property = target.property();
        if (!now || (property && !property->getter))
            failCheck(place, "this cannot be changed by an operator such as '+='; assign the new value with '='");
        const Type type = target.type();
        Operand result =
            expressions_.binary(*form.operation, {type, now->read(), now->isWhole()}, *form.value, form.value->offset);
        const Type resultType = result.type();
        if (!conversionTo(type, resultType, Purpose::assignment))
            failCheck(place, "this is of type " + nameOf(type) + ", but the new value of type " + nameOf(resultType));
        expressions_.warnOfLostFraction({resultType, nullptr, result.isWhole()}, type, place);
        actions.push_back(target.assign(converted(result.read(), resultType, type, offset)));
        return asStep(sequence(std::move(actions)), offset);
    });
}

ActionPtr StatementChecker::form(const syntax::Evaluation& evaluation, Offset offset) {
    Operand call = expressions_.operand(*evaluation.call);
    if (!call.hasEffect()) failCheck(evaluation.call->offset, "this value is not used");
    if (const Method* const method = call.method(); method && isOnlyAResult(*method))
        diagnostics_.warn(evaluation.call->offset, "this ignores the result of '" + method->signature.name + "'");
    return asStep(discard(call.read()), offset);
}

ActionPtr StatementChecker::form(const syntax::Print& statement, Offset offset) {
    std::vector<CodePtr> texts;
    for (const syntax::ExpressionPtr& value : statement.values)
        texts.push_back(expressions_.text(*value));
    return asStep(print(std::move(texts), statement.endsLine), offset);
}

ActionPtr StatementChecker::form(const syntax::Const& form, Offset) {
    Literal value = attempt([&] {
        const std::optional<Type> type = form.type ? std::optional<Type>(typeOf(*form.type)) : std::nullopt;
        return expressions_.constantValue(*form.value, type);
    });
    if (std::holds_alternative<std::monostate>(value.value)) {
        declare(form.name, Type()); // after an error
    } else if (mayDeclare(form.name)) {
        scopes_.declareConstant(form.name.text, std::move(value), form.name.offset);
    }
    return sequence({});
}

ActionPtr StatementChecker::form(const syntax::Raise& statement, Offset offset) {
    const Type exception = Type::object("RuntimeException");
    return asStep(raiseException(expressions_.valueAs(*statement.exception, exception), offset), offset);
}

ActionPtr StatementChecker::form(const syntax::Return& statement, Offset offset) {
    const bool wanted = procedure_ && procedure_->result;
    if (wanted && !statement.value) failCheck(offset, "a Function returns a value");
    if (!statement.value) return leave({Completion::Ending::leaveProcedure, 0});
    if (!wanted) failCheck(statement.value->offset, "only a Function returns a value");
    if (resultType_.kind == Kind::nothing) return nullptr; // after an error
    return asStep(returnValue(expressions_.valueAs(*statement.value, resultType_)), offset);
}

ActionPtr StatementChecker::form(const syntax::Leave& statement, Offset offset) {
    using syntax::Surrounding;
    static constexpr const char* names[] = {"loop", "For", "While", "Do", "Sub", "Function"};
    const std::string what = names[static_cast<std::size_t>(statement.what)];
    if (statement.what == Surrounding::sub || statement.what == Surrounding::function) {
        const bool isFunction = statement.what == Surrounding::function;
        if (!procedure_ || procedure_->result.has_value() != isFunction) failCheck(offset, "this is not inside a " + what);
        return leave({Completion::Ending::leaveProcedure, 0});
    }
    for (std::size_t i = loops_.size(); i-- > 0;) {
        if (statement.what != Surrounding::anyLoop && statement.what != loops_[i]) continue;
        return leave({statement.continues ? Completion::Ending::continueLoop : Completion::Ending::exitLoop,
                      static_cast<std::uint16_t>(i + 1)});
    }
    failCheck(offset, "this is not inside a " + what + (statement.what == Surrounding::anyLoop ? "" : " loop"));
}

ActionPtr StatementChecker::form(const syntax::Presentation& presentation, Offset offset) {
    Operand shown = expressions_.operand(*presentation.value);
    if (shown.type().kind == Kind::nothing) return asStep(discard(shown.read()), offset);
    Value value = expressions_.value(*presentation.value);
    expressions_.requirePool(); // describing the value calls further functions
    return asStep(present(std::move(value.code), value.type), offset);
}

ActionPtr StatementChecker::form(const syntax::Broken& broken, Offset offset) {
    const auto declareNames = [&] {
        for (const syntax::Name& name : broken.names)
            if (!scopes_.find(name.text)) scopes_.declare(name.text, Type(), name.offset);
    };
    if (!broken.block) return declareNames(), nullptr;
    return inScope(offset, [&] {
        declareNames();
        return loopBody(syntax::Surrounding::forLoop, *broken.block, offset).body;
    });
}

} // namespace host::language
