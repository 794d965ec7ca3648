#include "programs.h"

#include "probe.h"

#include "language/language.h"
#include "model/entries.h"
#include "model/objects.h"
#include "model/strings.h"

#include <sstream>

void startHostWithProbe() {
    static const bool started = [] {
        host::startHost();
        registerProbe();
        return true;
    }();
    static_cast<void>(started);
}

Outcome runProgram(const std::string& text) {
    startHostWithProbe();
    takeProbeEvents();
    const std::size_t objects = host::liveObjectCount();
    const std::size_t strings = host::liveStringCount();
    std::ostringstream output;
    std::ostringstream errors;
    const int exitCode = host::language::runText("test.bas", text, output, errors);
    EXPECT_EQ(host::liveObjectCount(), objects) << "objects are left over or were given up twice";
    EXPECT_EQ(host::liveStringCount(), strings) << "strings are left over or were given up twice";
    return {exitCode, output.str(), errors.str()};
}

TEST_P(Printing, PrintsWhatIsExpected) {
    const Outcome outcome = runProgram(GetParam().program);
    EXPECT_EQ(outcome.errors, "");
    EXPECT_EQ(outcome.output, GetParam().output);
    EXPECT_EQ(outcome.exitCode, 0);
}

// Programs with an error do not start; those that end with an exception may print first, which these do not.
TEST_P(Failing, ReportsWhatIsExpected) {
    const Outcome outcome = runProgram(GetParam().program);
    EXPECT_EQ(outcome.errors, GetParam().errors);
    EXPECT_EQ(outcome.output, "");
    EXPECT_EQ(outcome.exitCode, 1);
}
