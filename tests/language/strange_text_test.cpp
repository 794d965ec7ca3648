// Text that nobody would write: each gives one clear error or runs, in bounded time and stack.
#include "programs.h"

#include "language/language.h"

#include <random>

namespace {

std::string repeated(const std::string& text, int times) {
    std::string all;
    for (int i = 0; i < times; ++i)
        all += text;
    return all;
}

void expectError(const Outcome& outcome, const std::string& start) {
    EXPECT_EQ(outcome.exitCode, 1);
    EXPECT_EQ(outcome.errors.substr(0, start.size()), start);
}

TEST(StrangeText, BytesThatAreNoText) {
    expectError(runProgram(std::string("Print 1\nPrint \0 2", 17)),
                "test.bas:2:7: error: a NUL byte cannot stand in a program\nPrint ? 2\n      ^\n");
    expectError(runProgram("Print \"\xC3(\""), "test.bas:1:8: error: a program is UTF-8 text");
    expectError(runProgram("Print \x1B[2J"),
                "test.bas:1:7: error: the control character &h1B has no meaning here\nPrint ?[2J\n");
    for (const char* malformed : {"\xC0\x80", "\xED\xA0\x80", "\xF4\x90\x80\x80", "\xE2\x82", "\x80"})
        expectError(runProgram(std::string("' ") + malformed), "test.bas:1:3: error: a program is UTF-8 text");
}

// The same bytes in every run, so that a failure can be looked at.
TEST(StrangeText, RandomBytesAndRandomWords) {
    std::mt19937 random(1);
    std::string bytes(1 << 20, '\0');
    for (char& byte : bytes)
        byte = static_cast<char>(random());
    EXPECT_EQ(runProgram(bytes).exitCode, 1);

    const char* const words[] = {
        "If ",   "Then ",  "End ",    "Print ", "(",         ")",  "\"",      "1",     "x ",   "= ",    ".",
        ",",     "\n",     ":",       "For ",   "Next ",     "+",  "&",       "_",     "New ", "Try ",  "Dim ",
        "As ",   "Probe ", "To ",     "Catch",  "Else ",     "'",  "-",       "^",     "&h",   "Is ",   "In ",
        "Nil ",  "Not ",   "Double ", "Sub ",   "Function ", "f ", "Return ", "Exit ", "Do ",  "Loop ", "Select Case ",
        "Case ", "Const ", "Raise ",  "Until "};
    for (int program = 0; program < 3000; ++program) {
        std::string text;
        for (int word = 0; word < 12; ++word)
            text += words[random() % std::size(words)];
        const Outcome outcome = runProgram(text);
        EXPECT_EQ(outcome.exitCode == 0, outcome.errors.empty()) << text;
    }
}

TEST(StrangeText, DeepNestingIsRefusedOrRuns) {
    const struct {
        const char* open;
        const char* middle;
        const char* close;
    } nests[] = {{"(", "1", ")"},   {"Not ", "True", ""},    {"- ", "1", ""},
                 {"1 + ", "1", ""}, {"1 ^ ", "1", ""},       {"Abs(", "1", ")"},
                 {"1 & ", "1", ""}, {"Len(Str(", "1", "))"}, {"", "Probe.make(1)", ".successor"}};
    for (const auto& nest : nests) {
        EXPECT_EQ(runProgram("Print " + repeated(nest.open, 100) + nest.middle + repeated(nest.close, 100)).exitCode, 0);
        for (const int depth : {150, 240, 400, 490, 100000}) {
            const Outcome outcome =
                runProgram("Print " + repeated(nest.open, depth) + nest.middle + repeated(nest.close, depth));
            EXPECT_TRUE(outcome.exitCode == 0 || outcome.errors.find("nested more than") != std::string::npos)
                << outcome.errors.substr(0, 200);
        }
    }
    for (const int depth : {100, 400, 490, 100000}) {
        for (const std::string& program : {repeated("If True Then\n", depth) + repeated("End If\n", depth),
                                           repeated("Try\n", depth) + repeated("Catch\nEnd Try\n", depth),
                                           repeated("If True Then ", depth) + "Print 1"}) {
            const Outcome outcome = runProgram(program);
            EXPECT_TRUE(outcome.exitCode == 0 || outcome.errors.find("nested more than") != std::string::npos)
                << outcome.errors.substr(0, 200);
        }
    }
}

TEST(StrangeText, LargePrograms) {
    constexpr int tenMegabytes = 10 * 1024 * 1024;
    const std::string line = "x = x + 1 ' " + std::string(243, 'x') + "\n";
    EXPECT_EQ(runProgram("Dim x As Integer\n" + repeated(line, tenMegabytes / 256) + "Print x").output, "40960\n");
    EXPECT_EQ(runProgram("Print Len(\"" + std::string(tenMegabytes, 'x') + "\")").output, "10485760\n");
    EXPECT_EQ(runProgram("'" + std::string(tenMegabytes, 'x') + "\nPrint 1").output, "1\n");
    EXPECT_EQ(runProgram(std::string(tenMegabytes, '\n') + "Print 1").output, "1\n");
    expectError(runProgram("Print " + std::string(tenMegabytes, 'x')),
                "test.bas:1:7: error: a name has at most 255 characters\n");
    expectError(runProgram(repeated("If True Then\nx = 1\nEnd If\n", 20000)),
                "test.bas:2:1: error: there is no variable 'x'\n");
}

TEST(StrangeText, FilesThatCannotBeRead) {
    startHostWithProbe();
    for (const std::string& path : {testing::TempDir() + "no/such/file", testing::TempDir()}) {
        testing::internal::CaptureStderr();
        EXPECT_EQ(host::language::runFile(path), 1);
        const std::string report = testing::internal::GetCapturedStderr();
        const std::string start = path + ": error: cannot be read: ";
        EXPECT_EQ(report.substr(0, start.size()), start);
    }
}

// A long line is cut around the caret.
TEST(StrangeText, LongLinesInMessages) {
    const Outcome outcome = runProgram("Print \"" + std::string(100000, 'x') + "\" + 1 ' " + std::string(100000, 'y'));
    expectError(outcome, "test.bas:1:100010: error: '+' cannot be applied");
    EXPECT_LT(outcome.errors.size(), 1000u);
    const std::size_t shown = outcome.errors.find('\n') + 1;
    const std::size_t caret = outcome.errors.rfind('\n', outcome.errors.size() - 2) + 1;
    const std::size_t column = outcome.errors.find('^', caret) - caret;
    EXPECT_EQ(outcome.errors[shown + column], '+');
}

} // namespace
