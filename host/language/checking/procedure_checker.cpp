// Checks Subs and Functions. Their declarations are checked before all statements of the block, their bodies at their
// place.
#include "language/checking/class_names.h"
#include "language/checking/flow.h"
#include "language/checking/statement_checker.h"
#include "language/presentation.h"

namespace host::language {
namespace {

Type typeOf(const syntax::TypeName& form) {
    const Type type = language::typeOf(form.name);
    return form.isArray ? type.arrayOf() : type;
}

// Returns the declaration as messages show it.
std::string describe(const Procedure& procedure, const syntax::Procedure& form) {
    std::string text = std::string(form.name.text) + "(";
    for (const Parameter& parameter : procedure.signature.parameters) {
        if (text.back() != '(') text += ", ";
        if (parameter.byRef) text += "ByRef ";
        if (parameter.paramArray) text += "ParamArray ";
        text += parameter.name + " As " + nameOf(parameter.paramArray ? parameter.type.element() : parameter.type);
        if (parameter.defaultValue) text += " = ...";
    }
    text += ")";
    return form.result ? text + " As " + nameOf(procedure.signature.result) : text;
}

} // namespace

void StatementChecker::declareProcedures(const syntax::Block& block) {
    for (const syntax::Statement& statement : block) {
        const auto* const form = std::get_if<syntax::Procedure>(&statement.form);
        if (!form) continue;
        std::unique_ptr<Procedure> procedure = attempt([&] { return declaration(*form); });
        if (procedure) declared_.emplace(form, &procedures_.add(std::move(procedure)));
    }
}

// After some errors, the name is declared without a type. The uses of the procedure then do not repeat the error.
std::unique_ptr<Procedure> StatementChecker::declaration(const syntax::Procedure& form) {
    auto procedure = std::make_unique<Procedure>();
    try {
        if (registry().find(form.name.text))
            failCheck(form.name.offset, "'" + std::string(form.name.text) + "' is the name of a class");
        procedure->signature.name = form.name.text;
        if (form.result) procedure->signature.result = typeOf(*form.result);
        procedure->result = countingOf(procedure->signature.result);
        for (const syntax::Parameter& parameter : form.parameters) {
            Parameter created;
            created.name = parameter.name.text;
            created.type = typeOf(parameter.type);
            created.byRef = parameter.byRef;
            created.paramArray = parameter.paramArray;
            if (parameter.defaultValue)
                created.defaultValue = expressions_.constantValue(*parameter.defaultValue, created.type);
            procedure->parameters.push_back(created.byRef ? Counting::none : countingOf(created.type));
            procedure->signature.parameters.push_back(std::move(created));
        }
    } catch (const CheckError&) {
        if (!scopes_.find(form.name.text)) scopes_.declare(form.name.text, Type(), form.name.offset);
        throw;
    }
    procedure->text = describe(*procedure, form);
    procedure->declaration = procedure->text.c_str();
    procedure->shared = true;
    const Procedure* const same = procedures_.findSame(*procedure);
    if (!same || same->body) return procedure; // a procedure of an earlier check has its body
    for (const auto& [other, created] : declared_) {
        if (created == same) {
            failCheck(form.name.offset, quoted(form.name.text) + " is already declared with these parameters, on " +
                                            diagnostics_.lineOf(other->name.offset));
        }
    }
    return procedure;
}

ActionPtr StatementChecker::form(const syntax::Procedure& form, Offset) {
    if (const auto found = declared_.find(&form); found != declared_.end()) found->second->body = body(form, *found->second);
    return sequence({});
}

ActionPtr StatementChecker::body(const syntax::Procedure& form, Procedure& procedure) {
    procedure_ = &form;
    resultType_ = procedure.signature.result;
    scopes_.beginProcedure();
    ActionPtr code = inScope(form.name.offset, [&] {
        for (std::size_t i = 0; i < form.parameters.size(); ++i) {
            const syntax::Name& name = form.parameters[i].name;
            const Parameter& parameter = procedure.signature.parameters[i];
            if (!mayDeclare(name)) continue;
            if (parameter.byRef) {
                scopes_.declareByReference(name.text, parameter.type, name.offset);
            } else {
                scopes_.declare(name.text, parameter.type, name.offset);
            }
        }
        return block(form.block, form.name.offset);
    });
    procedure.variableCount = scopes_.endProcedure();
    if (form.result && resultType_.kind != Kind::nothing && reachesEnd(form.block)) {
        const std::string start = textOf(resultType_, Slot());
        diagnostics_.warn(form.name.offset, "'" + std::string(form.name.text) +
                                                "' can end without Return, and then returns " +
                                                (start.empty() ? "an empty text" : start));
    }
    procedure_ = nullptr;
    return code;
}

} // namespace host::language
