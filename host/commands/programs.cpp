// run, check and repl.
#include "commands/start.h"

#include "language/language.h"
#include "language/library/program_arguments.h"
#include "model/leaks.h"
#include "repl/repl.h"
#include "text/json.h"
#include "text/terminal.h"

#include <nlohmann/json.hpp>

#include <csignal>
#include <cstdio>
#include <fstream>
#include <iostream>
#include <iterator>

#include <unistd.h>

namespace host::commands {
namespace {

bool isText(const Program& program) { return !program.text.empty(); }
bool isInput(const Program& program) { return !isText(program) && program.file == "-"; }

std::string nameOf(const Program& program) {
    return isText(program) ? "-e" : isInput(program) ? "standard input" : program.file;
}

// Of one that is no file.
std::string textOf(const Program& program) {
    if (!isText(program)) return {std::istreambuf_iterator<char>(std::cin), std::istreambuf_iterator<char>()};
    std::string text;
    for (const std::string& line : program.text)
        text += line + "\n";
    return text;
}

void require(const Program& program) {
    if (!isText(program) && program.file.empty()) throw std::invalid_argument("a program is required: FILE, - or -e TEXT");
}

std::vector<std::string> argumentsOf(const Program& program) {
    std::vector<std::string> arguments = program.arguments;
    if (isText(program) && !program.file.empty()) arguments.insert(arguments.begin(), program.file);
    return arguments;
}

// Ends this process as the signal does, so that whoever started it sees that.
void endBySignal(int signal) {
    std::cout.flush();
    std::fflush(stdout);
    std::signal(signal, SIG_DFL);
    std::raise(signal);
}

int checkAsJson(const Program& program) {
    std::string text;
    if (isText(program) || isInput(program)) {
        text = textOf(program);
    } else {
        std::ifstream file(program.file, std::ios::binary);
        if (!file) throw std::runtime_error(program.file + ": cannot be read");
        text.assign(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
    }
    bool failed = false;
    nlohmann::ordered_json list = nlohmann::ordered_json::array();
    for (const language::Problem& problem : language::problemsIn(text)) {
        list.push_back({{"file", nameOf(program)},
                        {"line", problem.line},
                        {"column", problem.column},
                        {"level", problem.isError ? "error" : "warning"},
                        {"message", problem.message}});
        failed = failed || problem.isError;
    }
    writeJson(list, std::cout);
    return failed ? failure : success;
}

} // namespace

int run(const Start& start, const RunOptions& options) {
    const Program& program = options.program;
    require(program);
    startHost(start);
    language::setProgramArguments(argumentsOf(program));
    const int result = isText(program) || isInput(program) ? language::runText(nameOf(program), textOf(program), std::cout,
                                                                               std::cerr, showsColors(STDERR_FILENO))
                                                           : language::runFile(program.file);
    if (language::wasInterrupted()) endBySignal(SIGINT);
    const std::string leaks = options.checkLeaks ? describeLeaks() : "";
    if (leaks.empty()) return result;
    std::cerr << "chromahost: still alive at the end: " << leaks << "\n";
    return leaked;
}

int check(const Start& start, const Program& program, bool json) {
    require(program);
    startHost(start);
    if (json) return checkAsJson(program);
    if (!isText(program) && !isInput(program)) return language::checkFile(program.file);
    return language::checkText(nameOf(program), textOf(program), std::cerr, showsColors(STDERR_FILENO));
}

int prompt(const Start& start) {
    startHost(start);
    return repl::runPrompt();
}

} // namespace host::commands
