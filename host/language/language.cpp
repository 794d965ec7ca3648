#include "language/language.h"

#include "language/checking/checker.h"
#include "language/library/program_arguments.h"
#include "language/running/run.h"
#include "system/interruption.h"

#include <array>
#include <cerrno>
#include <cstring>
#include <fstream>
#include <iostream>
#include <optional>

namespace host::language {
namespace {

// A screenful is enough before a run, because most of the later errors are consequences of the first ones.
constexpr std::size_t maxErrorsOfARun = 20;
constexpr std::size_t maxErrorsOfACheck = 1000;

// Returns null if there are errors.
ActionPtr compile(const Source& source, Checker& checker, Diagnostics& diagnostics) {
    const syntax::Block block = parse(source, diagnostics);
    return checker.check(block, diagnostics);
}

} // namespace

std::optional<std::string> readProgram(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    constexpr std::size_t maxBytes = std::size_t{1} << 26;
    std::string text;
    std::array<char, 1 << 16> chunk;
    while (file.read(chunk.data(), chunk.size()), file.gcount() > 0) {
        text.append(chunk.data(), static_cast<std::size_t>(file.gcount()));
        if (text.size() <= maxBytes) continue;
        std::cerr << path << ": error: has more than 64 MB\n";
        return std::nullopt;
    }
    if (file.is_open() && !file.bad()) return text;
    std::cerr << path << ": error: cannot be read: " << std::strerror(errno) << "\n";
    return std::nullopt;
}

int runText(const std::string& name, std::string text, std::ostream& output, std::ostream& errors, bool colored) {
    const Source source(name, std::move(text), colored);
    Diagnostics diagnostics(source, maxErrorsOfARun);
    Checker checker(ParseMode::program);
    ActionPtr code = compile(source, checker, diagnostics);
    errors << diagnostics.report() << std::flush;
    if (!code) return 1;
    code = scope(std::move(code), checker.endProgram(), 0);
    Execution execution{output};
    execution.variables.resize(checker.scopes().variableCount());
    const std::string report = runCode(source, *code, execution);
    errors << report;
    return execution.exitCode.value_or(report.empty() ? 0 : 1);
}

int checkText(const std::string& name, std::string text, std::ostream& errors, bool colored) {
    const Source source(name, std::move(text), colored);
    Diagnostics diagnostics(source, maxErrorsOfACheck);
    Checker checker(ParseMode::program);
    compile(source, checker, diagnostics);
    errors << diagnostics.report();
    return diagnostics.haveErrors() ? 1 : 0;
}

std::vector<Problem> problemsIn(const std::string& text) {
    const Source source("", text);
    Diagnostics diagnostics(source, maxErrorsOfACheck);
    Checker checker(ParseMode::program);
    compile(source, checker, diagnostics);
    std::vector<Problem> problems;
    for (const Diagnostic& diagnostic : diagnostics.inOrder()) {
        const Source::Place place = source.place(diagnostic.offset);
        problems.push_back({place.line, place.column, diagnostic.level == Level::error, diagnostic.message});
    }
    return problems;
}

void setProgramArguments(std::vector<std::string> arguments) { storedArguments() = std::move(arguments); }
void interrupt() { interruptWanted = 1; }
bool wasInterrupted() { return detail::lastWasInterrupted; }

} // namespace host::language
