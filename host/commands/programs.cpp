// run, check and repl.
#include "commands/start.h"

#include "language/language.h"
#include "model/leaks.h"
#include "repl/repl.h"

#include <iostream>

namespace host::commands {

int run(const Start& start, const RunOptions& options) {
    startHost(start);
    const int result = language::runFile(options.program);
    const std::string leaks = options.checkLeaks ? describeLeaks() : "";
    if (leaks.empty()) return result;
    std::cerr << "chromahost: still alive at the end: " << leaks << "\n";
    return leaked;
}

int check(const Start& start, const std::string& program) {
    startHost(start);
    return language::checkFile(program);
}

int prompt(const Start& start) {
    startHost(start);
    return repl::runPrompt();
}

} // namespace host::commands
