// Checks names without a receiver: functions and procedures, and suggestions for unknown names.
#include "language/checking/expression_checker.h"
#include "language/reading/foreign_spellings.h"
#include "language/reading/keywords.h"
#include "language/words.h"

#include "text/nearest_name.h"

namespace host::language {

ClassInfo* ExpressionChecker::classNamedBy(const syntax::Expression& expression) const {
    const auto* const identifier = std::get_if<syntax::Identifier>(&expression.form);
    return identifier && !scopes_.find(identifier->name) ? registry().find(identifier->name) : nullptr;
}

void ExpressionChecker::failUnknownName(std::string_view name, Offset offset, bool called) const {
    const std::string what = (called ? "there is no function or array " : "there is no variable ") + quoted(name);
    const std::string_view hint = hintFor(called ? Foreign::call : Foreign::name, name);
    if (!hint.empty()) failCheck(offset, what + "; " + std::string(hint));
    NearestName nearest(name);
    if (!called) scopes_.offerNames(nearest);
    for (const auto& entry : procedures_.visible())
        nearest.offer(entry.first);
    for (const Word& word : words())
        if (word.kind == WordKind::function || word.kind == WordKind::generic) nearest.offer(word.name);
    if (called) scopes_.offerNames(nearest);
    for (const auto& info : registry().classes())
        nearest.offer(info->name());
    for (const Word& word : words())
        nearest.offer(word.name);
    failCheck(offset, what + nearest.suggestion());
}

std::string ExpressionChecker::remedyFor(Foreign where, std::string_view member, const NearestName& nearest) const {
    if (const std::string_view hint = hintFor(where, member); !hint.empty()) return "; " + std::string(hint);
    if (!isFunction(member)) return nearest.suggestion();
    return "; it is a function: '" + nameOfFunction(member) + "(value, ...)'";
}

bool ExpressionChecker::isFunction(std::string_view name) const {
    return !procedures_.find(name).empty() || !findFunctions(name).empty();
}

std::string ExpressionChecker::nameOfFunction(std::string_view name) const {
    const OverloadSet own = procedures_.find(name);
    return (own.empty() ? findFunctions(name) : own).front()->signature.name;
}

void ExpressionChecker::requireVariable(const syntax::Name& name, std::string_view declaration) {
    if (scopes_.find(name.text) || registry().find(name.text)) return;
    const std::string remedy = "; '" + std::string(declaration) + "' declares a variable";
    if (isFunction(name.text)) failCheck(name.offset, quoted(name.text) + " is a function" + remedy + " of this name");
    NearestName nearest(name.text);
    scopes_.offerNames(nearest);
    scopes_.declare(name.text, Type(), name.offset); // so that its uses do not cause further errors
    failCheck(name.offset,
              "there is no variable " + quoted(name.text) + (nearest.name().empty() ? remedy : nearest.suggestion()));
}

Operand ExpressionChecker::function(std::string_view name, const Arguments& arguments, Offset offset) {
    if (const OverloadSet own = procedures_.find(name); !own.empty()) return callProcedure(own, arguments, offset);
    const Generic generic = genericOf(name);
    if (generic == Generic::newArray) return newArray(arguments, std::nullopt);
    if (generic != Generic::none) return arrayBound(name, generic, arguments, offset);
    const OverloadSet overloads = findFunctions(name);
    if (overloads.empty()) failUnknownName(name, offset, !arguments.empty());
    return callOne(overloads.front()->signature.name, overloads, nullptr, &arguments, offset);
}

bool ExpressionChecker::makesArray(const syntax::Expression& expression) const {
    const auto* const call = std::get_if<syntax::Call>(&expression.form);
    const auto* const callee = call ? std::get_if<syntax::Identifier>(&call->callee->form) : nullptr;
    return callee && genericOf(callee->name) == Generic::newArray && !scopes_.find(callee->name) &&
           procedures_.find(callee->name).empty();
}

} // namespace host::language
