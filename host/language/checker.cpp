#include "language/checker.h"

#include "language/check_error.h"
#include "language/class_names.h"
#include "language/control_flow.h"
#include "language/expression_checker.h"
#include "language/operators.h"
#include "language/places.h"

namespace host::language {
namespace {

const Type booleanType = {Kind::Boolean, false, {}};
const Type integerType = {Kind::Integer, false, {}};

class Checker {
public:
    explicit Checker(Diagnostics& diagnostics) : diagnostics_(diagnostics), expressions_(scopes_) {}

    Program program(const syntax::Block& block) {
        ActionPtr body = inScope(0, [&] { return statements(block); });
        return {std::move(body), scopes_.variableCount()};
    }

private:
    ActionPtr statements(const syntax::Block& block);
    ActionPtr block(const syntax::Block& block, Offset offset) {
        return inScope(offset, [&] { return statements(block); });
    }

    ActionPtr form(const syntax::Dim& dim, Offset offset);
    ActionPtr form(const syntax::ReDim& reDim, Offset offset);
    ActionPtr form(const syntax::Assignment& assignment, Offset offset);
    ActionPtr form(const syntax::Evaluation& evaluation, Offset offset);
    ActionPtr form(const syntax::Print& statement, Offset offset);
    ActionPtr form(const syntax::If& statement, Offset offset);
    ActionPtr form(const syntax::While& loop, Offset offset);
    ActionPtr form(const syntax::For& loop, Offset offset);
    ActionPtr form(const syntax::ForEach& loop, Offset offset);
    ActionPtr form(const syntax::Try& statement, Offset offset);

    ActionPtr declared(const syntax::Declarator& declarator, const syntax::Dim::Group& group, const Type& type,
                       Offset offset);
    CodePtr initialValue(const syntax::Declarator& declarator, const syntax::Dim::Group& group, const Type& type);
    Handler handler(const syntax::Try::Catch& form, Offset offset);

    Variable declare(const syntax::Name& name, Type type);
    Type loopType(const syntax::LoopVariable& form);
    Variable loopVariable(const syntax::LoopVariable& form, const Type& type);
    CodePtr stepValue(const syntax::Expression& expression, const Type& type);

    ActionPtr asStep(ActionPtr action, Offset offset) {
        return step(std::move(action), expressions_.takeNeedsPool(), offset);
    }

    // Runs the check of a part; its error is reported, and the answer then is the null value.
    template <class Check>
    auto attempt(Check check) {
        try {
            return check();
        } catch (const CheckError& error) {
            expressions_.takeNeedsPool();
            if (!error.message.empty()) diagnostics_.add(error.offset, error.message);
            return decltype(check())();
        }
    }

    template <class Check>
    ActionPtr inScope(Offset offset, Check check) {
        scopes_.open();
        ActionPtr body = check();
        return scope(std::move(body), scopes_.close(), offset);
    }

    Diagnostics& diagnostics_;
    Scopes scopes_;
    ExpressionChecker expressions_;
};

ActionPtr Checker::statements(const syntax::Block& block) {
    Actions actions;
    for (const syntax::Statement& statement : block) {
        actions.push_back(attempt([&] {
            return std::visit([&](const auto& alternative) { return form(alternative, statement.offset); }, statement.form);
        }));
    }
    return sequence(std::move(actions));
}

// ---- Declarations -----------------------------------------------------------------------------------------------------------

Variable Checker::declare(const syntax::Name& name, Type type) {
    const Variable* const known = scopes_.find(name.text);
    if (!known) return scopes_.declare(name.text, std::move(type), name.offset);
    diagnostics_.add(name.offset, "'" + std::string(name.text) + "' is declared already in this block or one around it");
    return *known;
}

ActionPtr Checker::form(const syntax::Dim& dim, Offset offset) {
    Actions actions;
    for (const syntax::Dim::Group& group : dim.groups) {
        const Type type = attempt([&] { return typeOf(group.type); });
        for (const syntax::Declarator& declarator : group.declarators)
            actions.push_back(declared(declarator, group, type, offset));
    }
    return sequence(std::move(actions));
}

// A declaration that fails still declares its name, so that its uses are no errors of their own.
ActionPtr Checker::declared(const syntax::Declarator& declarator, const syntax::Dim::Group& group, const Type& type,
                            Offset offset) {
    const bool known = type.kind != Kind::Void;
    CodePtr value = attempt([&] { return known ? initialValue(declarator, group, type) : nullptr; });
    const Variable variable = declare(declarator.name, declarator.isArray && known ? type.arrayOf() : type);
    return asStep(writeVariable(variable.index, variable.type, std::move(value)), offset);
}

CodePtr Checker::initialValue(const syntax::Declarator& declarator, const syntax::Dim::Group& group, const Type& type) {
    if (declarator.isArray && !group.value) {
        CodePtr bound = declarator.upperBound ? expressions_.valueAs(*declarator.upperBound, integerType)
                                              : constant(Slot::ofInteger(-1));
        return makeArray(type, std::move(bound), declarator.name.offset);
    }
    if (declarator.upperBound)
        failCheck(declarator.upperBound->offset, "an array that gets a value takes its bound from the value");
    if (group.value) return expressions_.valueAs(*group.value, declarator.isArray ? type.arrayOf() : type);
    return constant(Slot());
}

ActionPtr Checker::form(const syntax::ReDim& reDim, Offset offset) {
    const syntax::Expression reference{reDim.array.offset, syntax::Reference{reDim.array.text}};
    Value array = expressions_.value(reference);
    if (!array.type.isArray) failCheck(reDim.array.offset, "this is of type " + nameOf(array.type) + ", no array");
    CodePtr bound = expressions_.valueAs(*reDim.upperBound, integerType);
    return asStep(resizeArray(std::move(array.code), std::move(bound), reDim.array.offset), offset);
}

// ---- Simple statements ------------------------------------------------------------------------------------------------------

ActionPtr Checker::form(const syntax::Assignment& assignment, Offset offset) {
    Operand target = expressions_.operand(*assignment.target);
    if (!target.isWritable()) {
        const Property* const property = target.property();
        failCheck(assignment.target->offset,
                  property ? "the property '" + property->name + "' of " + property->owner->name() + " is read-only"
                           : "this cannot be assigned to");
    }
    CodePtr value = expressions_.valueAs(*assignment.value, target.type());
    return asStep(target.assign(std::move(value)), offset);
}

ActionPtr Checker::form(const syntax::Evaluation& evaluation, Offset offset) {
    Operand call = expressions_.operand(*evaluation.call);
    if (!call.hasEffect()) failCheck(evaluation.call->offset, "this is a value, but nothing is done with it");
    return asStep(discard(call.read()), offset);
}

ActionPtr Checker::form(const syntax::Print& statement, Offset offset) {
    std::vector<CodePtr> texts;
    for (const syntax::ExpressionPtr& value : statement.values)
        texts.push_back(expressions_.text(*value));
    return asStep(print(std::move(texts)), offset);
}

// ---- Blocks -----------------------------------------------------------------------------------------------------------------

// A condition or bound: a step of its own. Null after an error.
CodePtr Checker::stepValue(const syntax::Expression& expression, const Type& type) {
    return attempt([&] {
        CodePtr value = expressions_.valueAs(expression, type);
        return step(std::move(value), expressions_.takeNeedsPool(), expression.offset);
    });
}

ActionPtr Checker::form(const syntax::If& statement, Offset offset) {
    std::vector<Branch> list;
    for (const syntax::If::Branch& branch : statement.branches) {
        CodePtr condition = branch.condition ? stepValue(*branch.condition, booleanType) : nullptr;
        list.push_back({std::move(condition), block(branch.block, offset)});
    }
    return branches(std::move(list));
}

ActionPtr Checker::form(const syntax::While& loop, Offset offset) {
    CodePtr condition = stepValue(*loop.condition, booleanType);
    return whileLoop(std::move(condition), block(loop.block, offset));
}

// The type of a loop's variable; Void after an error.
Type Checker::loopType(const syntax::LoopVariable& form) {
    if (form.type) return attempt([&] { return typeOf(*form.type); });
    return attempt([&] { return expressions_.operand({form.name.offset, syntax::Reference{form.name.text}}).type(); });
}

// The loop's own variable, or the one declared before.
Variable Checker::loopVariable(const syntax::LoopVariable& form, const Type& type) {
    const Variable* const known = form.type ? nullptr : scopes_.find(form.name.text);
    return known ? *known : declare(form.name, type);
}

ActionPtr Checker::form(const syntax::For& loop, Offset offset) {
    return inScope(offset, [&] {
        const Type type = loopType(loop.variable);
        const bool counts = !type.isArray && (type.kind == Kind::Integer || type.kind == Kind::Double);
        if (!counts && type.kind != Kind::Void)
            diagnostics_.add(loop.variable.name.offset, "a For loop counts an Integer or a Double, not a " + nameOf(type));
        const auto bound = [&](const syntax::ExpressionPtr& expression) {
            return expression && counts ? stepValue(*expression, type) : nullptr;
        };
        CodePtr first = bound(loop.first);
        CodePtr last = bound(loop.last);
        CodePtr stepSize = bound(loop.step);
        const std::size_t variable = loopVariable(loop.variable, type).index;
        ActionPtr body = block(loop.block, offset);
        return forLoop({variable, type.kind, std::move(first), std::move(last), std::move(stepSize), loop.down,
                        std::move(body), offset});
    });
}

ActionPtr Checker::form(const syntax::ForEach& loop, Offset offset) {
    return inScope(offset, [&] {
        Value array = attempt([&] {
            Value found = expressions_.value(*loop.array);
            if (!found.type.isArray) failCheck(loop.array->offset, "this is of type " + nameOf(found.type) + ", no array");
            return found;
        });
        const std::size_t held = scopes_.declareHidden(array.type);
        const std::size_t index = scopes_.declareHidden(integerType);
        Actions actions;
        actions.push_back(asStep(writeVariable(held, array.type, std::move(array.code)), offset));

        const Type elementType = array.type.element();
        const Type type = loopType(loop.variable);
        const Variable variable = loopVariable(loop.variable, type);
        if (type.kind != Kind::Void && elementType.kind != Kind::Void && !isConvertible(elementType, type)) {
            diagnostics_.add(loop.variable.name.offset,
                             "the elements are of type " + nameOf(elementType) + ", but the variable is a " + nameOf(type));
        }
        CodePtr element = readElement(readVariable(held, array.type), readVariable(index, integerType), elementType, offset);
        CodePtr converted = language::converted(std::move(element), elementType, type, offset);
        ActionPtr assign = step(writeVariable(variable.index, type, std::move(converted)), false, offset);
        ActionPtr body = block(loop.block, offset);
        actions.push_back(forEachLoop(held, index, std::move(assign), std::move(body), loop.array->offset));
        return sequence(std::move(actions));
    });
}

ActionPtr Checker::form(const syntax::Try& statement, Offset offset) {
    ActionPtr body = block(statement.block, offset);
    std::vector<Handler> handlers;
    for (const syntax::Try::Catch& form : statement.catches)
        handlers.push_back(handler(form, offset));
    ActionPtr finally = statement.finally ? block(*statement.finally, offset) : nullptr;
    return tryBlock(std::move(body), std::move(handlers), std::move(finally));
}

Handler Checker::handler(const syntax::Try::Catch& form, Offset offset) {
    Handler made{nullptr, std::nullopt, nullptr};
    made.body = inScope(offset, [&] {
        if (form.variable) {
            made.info = attempt([&] { return exceptionClassOf(*form.className); });
            made.variable = declare(*form.variable, made.info ? Type::object(made.info->name()) : Type()).index;
        }
        return statements(form.block);
    });
    return made;
}

} // namespace

std::optional<Program> check(const syntax::Block& block, Diagnostics& diagnostics) {
    Program program = Checker(diagnostics).program(block);
    if (!diagnostics.empty()) return std::nullopt;
    return program;
}

} // namespace host::language
