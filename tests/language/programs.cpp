#include "programs.h"

#include "probe.h"

#include "language/language.h"
#include "model/entries.h"
#include "model/objects.h"
#include "model/plugin.h"
#include "model/strings.h"

#include <algorithm>
#include <sstream>

namespace {

// The report of a message about the place at the end of the text, of which the rest of its line follows.
std::string report(const std::string& before, const std::string& rest, const std::string& message) {
    const std::size_t start = before.rfind('\n') + 1;
    std::string caret;
    for (const char c : before.substr(start)) {
        const bool continuesCharacter = (c & 0xC0) == 0x80;
        if (!continuesCharacter) caret += c == '\t' ? '\t' : ' ';
    }
    std::ostringstream text;
    text << "test.bas:" << std::count(before.begin(), before.end(), '\n') + 1 << ":" << caret.size() + 1 << ": "
         << (message.rfind("uncaught", 0) == 0 ? "" : "error: ") << message << "\n"
         << before.substr(start) << rest << "\n"
         << caret << "^\n";
    return text.str();
}

} // namespace

void startHostWithProbe() {
    static const bool started = (host::startHost(), registerProbe(), true);
    static_cast<void>(started);
}

void startHostWithPlugins() {
    startHostWithProbe();
    static const bool loaded = (host::loadPlugin(CHROMASIBLING), host::loadPlugin(CHROMABRIDGE), true);
    static_cast<void>(loaded);
}

Outcome runProgram(const std::string& text) {
    startHostWithProbe();
    takeProbeEvents();
    const std::size_t objects = host::liveObjectCount(), strings = host::liveStringCount();
    std::ostringstream output, errors;
    const int exitCode = host::language::runText("test.bas", text, output, errors);
    EXPECT_EQ(host::liveObjectCount(), objects) << "objects are left over or were given up twice";
    EXPECT_EQ(host::liveStringCount(), strings) << "strings are left over or were given up twice";
    return {exitCode, output.str(), errors.str()};
}

std::string repeated(const std::string& text, std::size_t times) {
    std::string all;
    for (std::size_t i = 0; i < times; ++i)
        all += text;
    return all;
}

void expectPrinted(const std::string& program) {
    std::string expected;
    std::istringstream lines(program);
    for (std::string line; std::getline(lines, line);) {
        std::size_t start = line.find("'> ");
        while (start != std::string::npos) {
            start += 3;
            const std::size_t end = line.find(" | ", start);
            expected += line.substr(start, end - start) + "\n";
            start = end;
        }
    }
    const Outcome outcome = runProgram(program);
    EXPECT_EQ(outcome.errors, "") << program;
    EXPECT_EQ(outcome.output, expected);
    EXPECT_EQ(outcome.exitCode, 0);
}

void expectReports(const std::vector<Wrong>& cases) {
    for (const auto& [marked, messages] : cases) {
        SCOPED_TRACE(marked.substr(0, 1000));
        std::string program = marked, expected;
        for (const char* message : messages) {
            const std::size_t place = program.find('@');
            program.erase(place, 1);
            const std::string rest = program.substr(place, program.find('\n', place) - place);
            expected += report(program.substr(0, place), rest.substr(0, rest.find('@')), message);
        }
        const Outcome outcome = runProgram(program);
        EXPECT_EQ(outcome.errors, expected);
        EXPECT_EQ(outcome.output, "");
        EXPECT_EQ(outcome.exitCode, 1);
    }
}
