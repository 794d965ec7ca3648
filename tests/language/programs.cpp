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

namespace {

class PrintingTest : public testing::Test {
public:
    explicit PrintingTest(const PrintingCase& tested) : tested_(tested) {}

    void TestBody() override {
        const Outcome outcome = runProgram(tested_.program);
        EXPECT_EQ(outcome.errors, "") << tested_.program;
        EXPECT_EQ(outcome.output, tested_.output) << tested_.program;
        EXPECT_EQ(outcome.exitCode, 0);
    }

private:
    const PrintingCase& tested_;
};

// A program with an error does not start.
class FailingTest : public testing::Test {
public:
    explicit FailingTest(const FailingCase& tested) : tested_(tested) {}

    void TestBody() override {
        const Outcome outcome = runProgram(tested_.program);
        EXPECT_EQ(outcome.errors, tested_.errors);
        EXPECT_EQ(outcome.output, "");
        EXPECT_EQ(outcome.exitCode, 1);
    }

private:
    const FailingCase& tested_;
};

template <class Test, class Case>
bool addTests(const char* group, const Case* cases, std::size_t count) {
    for (const Case* tested = cases; tested != cases + count; ++tested) {
        testing::RegisterTest(group, tested->name, nullptr, nullptr, __FILE__, __LINE__,
                              [tested]() -> testing::Test* { return new Test(*tested); });
    }
    return true;
}

} // namespace

bool addCases(const char* group, const PrintingCase* cases, std::size_t count) {
    return addTests<PrintingTest>(group, cases, count);
}

bool addCases(const char* group, const FailingCase* cases, std::size_t count) {
    return addTests<FailingTest>(group, cases, count);
}
