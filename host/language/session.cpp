#include "language/session.h"

#include "language/checking/checker.h"
#include "language/reading/source.h"
#include "language/running/places.h"
#include "language/running/run.h"

#include "values/platform.h"

#include <iostream>

namespace host::language {

struct Session::State {
    Source source;
    Checker checker;
    Execution execution;
};

Session::Session(std::string name, std::ostream& output, Presenter& presenter, bool colored)
    : state_(new State{{std::move(name), {}, colored}, Checker(ParseMode::prompt), {output, &presenter}}) {}

// Releases the last variable first, as at the end of a block.
Session::~Session() {
    const platform::AutoreleasePool pool;
    Frame frame(state_->execution);
    state_->execution.variables.resize(state_->checker.scopes().variableCount());
    const std::vector<ScopeVariable> variables = state_->checker.endProgram();
    for (auto variable = variables.rbegin(); variable != variables.rend(); ++variable)
        store(frame, variable->place, variable->counting, Slot());
    const Owned<Object> dropped(takePendingException());
}

bool Session::needsMore(std::string_view text) const { return language::needsMore(Source({}, std::string(text)), 0); }

std::string Session::run(std::string_view text, std::ostream& warnings) {
    constexpr std::size_t maxErrors = 20;
    const Offset start = state_->source.append(text);
    Diagnostics diagnostics(state_->source, maxErrors);
    const ActionPtr code = state_->checker.check(parse(state_->source, diagnostics, ParseMode::prompt, start), diagnostics);
    if (diagnostics.haveErrors()) return diagnostics.report();
    warnings << diagnostics.report() << std::flush;
    state_->execution.variables.resize(state_->checker.scopes().variableCount());
    return runCode(state_->source, *code, state_->execution);
}

Session::Meaning Session::meaningOf(std::string_view expression) {
    const Source source({}, std::string(expression));
    Diagnostics diagnostics(source, 1);
    const syntax::Block block = parse(source, diagnostics, ParseMode::prompt);
    const auto* const shown = block.size() == 1 ? std::get_if<syntax::Presentation>(&block.front().form) : nullptr;
    if (diagnostics.haveErrors() || !shown) return {};
    const Checker::Meaning meaning = state_->checker.meaningOf(*shown->value, diagnostics);
    return {meaning.type, meaning.namedClass};
}

std::optional<int> Session::exitCode() const { return state_->execution.exitCode; }

OverloadSet Session::findProcedures(std::string_view name) const { return state_->checker.procedures().find(name); }

std::vector<std::string> Session::names() const {
    std::vector<std::string> names = state_->checker.scopes().names();
    for (const auto& entry : state_->checker.procedures().visible())
        names.push_back(entry.first);
    return names;
}

} // namespace host::language
