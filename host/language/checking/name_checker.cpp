// Names that stand alone: functions, procedures, and what was meant by one that nothing has.
#include "language/checking/expression_checker.h"
#include "language/library/functions.h"
#include "language/reading/foreign_spellings.h"
#include "language/reading/lexer.h"

#include "text/nearest_name.h"

namespace host::language {
namespace {

constexpr std::string_view upperBoundName = "UBound";
constexpr std::string_view lowerBoundName = "LBound";
constexpr std::string_view newArrayName = "Array";

} // namespace

ClassInfo* ExpressionChecker::classNamedBy(const syntax::Expression& expression) const {
    const auto* const identifier = std::get_if<syntax::Identifier>(&expression.form);
    return identifier && !scopes_.find(identifier->name) ? registry().find(identifier->name) : nullptr;
}

void ExpressionChecker::failUnknownName(std::string_view name, Offset offset, bool called) const {
    const std::string what = (called ? "there is no function or array " : "there is no variable ") + quoted(name);
    const std::string_view hint = hintForName(name);
    if (!hint.empty()) failCheck(offset, what + "; " + std::string(hint));
    NearestName nearest(name);
    if (!called) scopes_.offerNames(nearest);
    for (const auto& entry : procedures_.visible())
        nearest.offer(entry.first);
    for (const Method& method : functions())
        nearest.offer(method.signature.name);
    nearest.offer(upperBoundName);
    nearest.offer(lowerBoundName);
    nearest.offer(newArrayName);
    if (called) scopes_.offerNames(nearest);
    for (const auto& info : registry().classes())
        nearest.offer(info->name());
    offerKeywords(name, nearest);
    failCheck(offset, what + nearest.suggestion());
}

Operand ExpressionChecker::function(std::string_view name, const Arguments& arguments, Offset offset) {
    if (const OverloadSet own = procedures_.find(name); !own.empty()) return callProcedure(own, arguments, offset);
    if (equalIgnoringCase(name, upperBoundName)) return arrayBound(upperBoundName, arguments, offset);
    if (equalIgnoringCase(name, lowerBoundName)) return arrayBound(lowerBoundName, arguments, offset);
    if (equalIgnoringCase(name, newArrayName)) return newArray(arguments, std::nullopt);
    const OverloadSet overloads = findFunctions(name);
    if (overloads.empty()) failUnknownName(name, offset, !arguments.empty());
    return callOne(overloads.front()->signature.name, overloads, nullptr, &arguments, offset);
}

bool ExpressionChecker::makesArray(const syntax::Expression& expression) const {
    const auto* const call = std::get_if<syntax::Call>(&expression.form);
    const auto* const callee = call ? std::get_if<syntax::Identifier>(&call->callee->form) : nullptr;
    return callee && equalIgnoringCase(callee->name, newArrayName) && !scopes_.find(callee->name) &&
           procedures_.find(callee->name).empty();
}

} // namespace host::language
