#include "language/session.h"

#include "language/checking/expression_checker.h"
#include "language/running/places.h"
#include "language/running/run.h"

#include "model/platform.h"

#include <iostream>

namespace host::language {

Session::Session(std::string name, std::ostream& output, Presenter& presenter, bool colored)
    : source_(std::move(name), {}, colored), checker_(ParseMode::prompt), execution_{output, &presenter} {}

// The last variable goes first, as at the end of a block.
Session::~Session() {
    const platform::AutoreleasePool pool;
    Frame frame(execution_);
    execution_.variables.resize(checker_.scopes().variableCount());
    const std::vector<ScopeVariable> variables = checker_.endProgram();
    for (auto variable = variables.rbegin(); variable != variables.rend(); ++variable)
        store(frame, variable->place, variable->counting, Slot());
    const Owned<Object> dropped(takePendingException());
}

bool Session::needsMore(std::string_view text) const { return language::needsMore(Source({}, std::string(text)), 0); }

std::string Session::run(std::string_view text, std::ostream& warnings) {
    constexpr std::size_t maxErrors = 20;
    const Offset start = source_.append(text);
    Diagnostics diagnostics(source_, maxErrors);
    const ActionPtr code = checker_.check(parse(source_, diagnostics, ParseMode::prompt, start), diagnostics);
    if (diagnostics.haveErrors()) return diagnostics.report();
    warnings << diagnostics.report() << std::flush;
    execution_.variables.resize(checker_.scopes().variableCount());
    return runCode(source_, *code, execution_);
}

Checker::Meaning Session::meaningOf(std::string_view expression) {
    const Source source({}, std::string(expression));
    Diagnostics diagnostics(source, 1);
    const syntax::Block block = parse(source, diagnostics, ParseMode::prompt);
    const auto* const shown = block.size() == 1 ? std::get_if<syntax::Presentation>(&block.front().form) : nullptr;
    return !diagnostics.haveErrors() && shown ? checker_.meaningOf(*shown->value, diagnostics) : Checker::Meaning();
}

std::vector<std::string> Session::arrayMembers() { return arrayMemberNames(); }

std::vector<std::string> Session::names() const {
    std::vector<std::string> names = checker_.scopes().names();
    for (const auto& entry : checker_.procedures().visible())
        names.push_back(entry.first);
    return names;
}

} // namespace host::language
