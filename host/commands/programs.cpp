// The commands run, check and repl.
#include "commands/start.h"

#include "entries/leaks.h"
#include "language/language.h"
#include "repl/repl.h"
#include "text/json.h"
#include "text/terminal.h"

#include <nlohmann/json.hpp>

#include <csignal>
#include <cstdio>
#include <iostream>
#include <iterator>
#include <optional>

#include <unistd.h>

namespace host::commands {
namespace {

bool isText(const Program& program) { return !program.text.empty(); }

// A program's text, and its name in messages.
struct NamedText {
    std::string name;
    std::optional<std::string> text; // none if it cannot be read, after a message on stderr
};

NamedText fromFile(const std::string& file) {
    if (file != "-") return {file, language::readProgram(file)};
    return {"standard input", std::string(std::istreambuf_iterator<char>(std::cin), std::istreambuf_iterator<char>())};
}

NamedText fromLines(const std::vector<std::string>& lines) {
    std::string text;
    for (const std::string& line : lines)
        text += line + "\n";
    return {"-e", text};
}

void require(bool isGiven) {
    if (!isGiven) throw std::invalid_argument("a program is required: FILE, - or -e TEXT");
}

std::vector<std::string> argumentsOf(const Program& program) {
    std::vector<std::string> arguments = program.arguments;
    if (isText(program) && !program.file.empty()) arguments.insert(arguments.begin(), program.file);
    return arguments;
}

// Terminates this process by the signal, so that the parent process sees the signal.
void endBySignal(int signal) {
    std::cout.flush();
    std::fflush(stdout);
    std::signal(signal, SIG_DFL);
    std::raise(signal);
}

// Adds the program's problems to the list. Returns whether there is an error.
bool addProblems(const std::string& name, const std::string& text, nlohmann::ordered_json& list) {
    bool failed = false;
    for (const language::Problem& problem : language::problemsIn(text)) {
        list.push_back({{"file", name},
                        {"line", problem.line},
                        {"column", problem.column},
                        {"level", problem.isError ? "error" : "warning"},
                        {"message", problem.message}});
        failed = failed || problem.isError;
    }
    return failed;
}

} // namespace

int run(const Start& start, const RunOptions& options) {
    const Program& program = options.program;
    require(isText(program) || !program.file.empty());
    startHost(start);
    language::setProgramArguments(argumentsOf(program));
    const NamedText source = isText(program) ? fromLines(program.text) : fromFile(program.file);
    if (!source.text) return failure;
    const int result = language::runText(source.name, *source.text, std::cout, std::cerr, showsColors(STDERR_FILENO));
    if (language::wasInterrupted()) endBySignal(SIGINT);
    const std::string leaks = options.checkLeaks ? describeLeaks() : "";
    if (leaks.empty()) return result;
    std::cerr << "chromahost: still alive at the end: " << leaks << "\n";
    return leaked;
}

int check(const Start& start, const CheckOptions& options, bool json) {
    require(!options.text.empty() || !options.files.empty());
    startHost(start);
    std::vector<NamedText> sources;
    if (!options.text.empty()) sources.push_back(fromLines(options.text));
    for (const std::string& file : options.files)
        sources.push_back(fromFile(file));
    bool failed = false;
    nlohmann::ordered_json problems = nlohmann::ordered_json::array();
    for (const auto& [name, text] : sources) {
        const bool isWrong = !text  ? true
                             : json ? addProblems(name, *text, problems)
                                    : language::checkText(name, *text, std::cerr, showsColors(STDERR_FILENO)) != success;
        failed = failed || isWrong;
    }
    if (json) writeJson(problems, std::cout);
    return failed ? failure : success;
}

int prompt(const Start& start) {
    startHost(start);
    return repl::runPrompt();
}

} // namespace host::commands
