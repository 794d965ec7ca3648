// Programs with mistakes, and the text and place of each report; endless programs; malformed text.
#include "probe.h"
#include "programs.h"

#include "language/language.h"

#include <csignal>
#include <ctime>
#include <sstream>
#include <thread>

#include <sys/wait.h>
#include <unistd.h>

namespace {

void expectError(const Outcome& outcome, const std::string& start) {
    EXPECT_EQ(outcome.exitCode, 1);
    EXPECT_EQ(outcome.errors.substr(0, start.size()), start);
}

TEST(Errors, ReleaseTheProgramsObjects) {
    runProgram("Dim a As New Probe(1)\nIf True Then\nDim b As New Probe(2)\nPrint b.makeAndRaise(\"IOException\")\nEnd If");
    EXPECT_EQ(takeProbeEvents(), "-99-2-1");
}

// Interrupts a program as Ctrl-C does.
TEST(Errors, EndlessLoopsAreInterrupted) {
    const std::pair<const char*, const char*> endless[] = {
        {"While True\nWend", "test.bas:1:1: interrupted\n"},
        {"Print 1\nDo\nTry\nPrint 1 \\ 0\nCatch\nFinally\nContinue\nEnd Try\nLoop", "test.bas:"},
        {"Dim a() As Variant = Array(1)\nFor i As Integer = 1 To 40\na = Array(a, a)\nNext\nPrint a",
         "test.bas:5:1: interrupted\n"},
        {"Print Len(Uppercase(Repeat(\"x\", 100000000)))", "test.bas:1:"},
        {"Sub Idle(p As Probe)\nEnd Sub\nFor d As Double = 1 To 2 Step 1e-300\nIdle Probe.make(1)\nNext", "test.bas:"}};
    for (const auto& [program, errors] : endless) {
        // The signal comes from another process, as from a user. A thread would share state with the interrupted one.
        const pid_t user = fork();
        if (user == 0) {
            std::this_thread::sleep_for(std::chrono::milliseconds(200));
            kill(getppid(), SIGINT);
            _exit(0);
        }
        const Outcome outcome = runProgram(program);
        waitpid(user, nullptr, 0);
        expectError(outcome, errors);
        EXPECT_NE(outcome.errors.find(": interrupted\n"), std::string::npos);
        EXPECT_EQ(runProgram("Const C = 1 \\ 0").exitCode, 1) << "a constant that fails must not count as interrupted";
    }
}

TEST(Errors, ACheckReportsEveryErrorAndRunsNothing) {
    startHostWithProbe();
    const auto check = [](const std::string& program, int exitCode) {
        std::ostringstream errors;
        EXPECT_EQ(host::language::checkText("test.bas", program, errors), exitCode);
        return errors.str();
    };
    EXPECT_NE(check(repeated("Print x\n", 5000), 1).find("there are more errors\n"), std::string::npos);
    EXPECT_NE(check(repeated("If True Then Dim unused As Integer\n", 1500), 0).find("there are more warnings\n"),
              std::string::npos);
    EXPECT_EQ(check("While True\nWend", 0), "");
}

TEST(SourceText, InvalidBytesAreReported) {
    expectError(runProgram(std::string("Print 1\nPrint \0 2", 17)),
                "test.bas:2:7: error: a program cannot contain a NUL byte\nPrint ? 2\n      ^\n");
    expectError(runProgram("Print \x1B[2J"),
                "test.bas:1:7: error: the control character &h1B has no meaning here\nPrint ?[2J\n");
    for (const char* const malformed : {"\xC3(", "\xC0\x80", "\xED\xA0\x80", "\xF4\x90\x80\x80", "\xE2\x82", "\x80"})
        expectError(runProgram(std::string("' ") + malformed), "test.bas:1:3: error: a program is UTF-8 text");
}

TEST(SourceText, TheCaretIsBelowItsColumn) {
    // Each of the first two characters takes two columns of a terminal, and the combining accent none.
    expectError(runProgram("Print \"\u65E5\u672Ce\u0301\", x"),
                "test.bas:1:15: error: there is no variable 'x'\nPrint \"\u65E5\u672Ce\u0301\", x\n               ^\n");
    // A character that starts a control sequence of a terminal.
    expectError(runProgram("Print \"\u009B2J\", x"),
                "test.bas:1:14: error: there is no variable 'x'\nPrint \"?2J\", x\n             ^\n");
    std::ostringstream errors;
    host::language::checkText("a.bas", "Print x", errors, true);
    EXPECT_EQ(errors.str(), "\x1B[1ma.bas:1:7:\x1B[0m \x1B[1;31merror\x1B[0m: there is no variable 'x'\nPrint x\n"
                            "      \x1B[1;32m^\x1B[0m\n");
}

TEST(SourceText, DeepNestingRunsOrIsRefused) {
    // The start of a nested construct, its content, and its end.
    const std::tuple<std::string, const char*, const char*> nests[] = {{"Print (", "1", ")"},
                                                                       {"Print Not ", "True", ""},
                                                                       {"Print - ", "1", ""},
                                                                       {"Print 1 + ", "1", ""},
                                                                       {"Print 1 ^ ", "1", ""},
                                                                       {"Print Abs(", "1", ")"},
                                                                       {"Print 1 & ", "1", ""},
                                                                       {"Print Len(Str(", "1", "))"},
                                                                       {"Print ", "Probe.make(1)", ".successor"},
                                                                       {"If True Then\n", "", "End If\n"},
                                                                       {"Try\n", "", "Catch\nEnd Try\n"},
                                                                       {"If True Then ", "Print 1", ""}};
    for (const auto& [open, middle, close] : nests) {
        const bool isExpression = open.rfind("Print ", 0) == 0;
        for (const unsigned depth : {100u, 150u, 240u, 400u, 490u, 100000u}) {
            const std::string opened = isExpression ? "Print " + repeated(open.substr(6), depth) : repeated(open, depth);
            const Outcome outcome = runProgram(opened + middle + repeated(close, depth));
            EXPECT_TRUE(outcome.exitCode == 0 || outcome.errors.find("nested more than") != std::string::npos)
                << outcome.errors.substr(0, 200);
            EXPECT_TRUE(outcome.exitCode == 0 || depth > 100) << open;
        }
    }
}

TEST(SourceText, LargeProgramsRunOrReportAShortError) {
    constexpr int megabytes = 4 * 1024 * 1024;
    const std::string line = "x = x + 1 ' " + std::string(243, 'x') + "\n";
    EXPECT_EQ(runProgram("Dim x As Integer\n" + repeated(line, megabytes / 256) + "Print x").output, "16384\n");
    EXPECT_EQ(runProgram("Print Len(\"" + std::string(megabytes, 'x') + "\")").output, "4194304\n");
    EXPECT_EQ(runProgram("'" + std::string(megabytes, 'x') + "\nPrint 1").output, "1\n");
    EXPECT_EQ(runProgram(std::string(megabytes, '\n') + "Print 1").output, "1\n");
    expectError(runProgram("Print " + std::string(megabytes, 'x')),
                "test.bas:1:7: error: a name has at most 255 characters\n");
    expectError(runProgram(repeated("Print (1 + 2) ' padding\n", 40000) + "Print (1"),
                "test.bas:40001:9: error: ')' is expected here, not the end of the program\n");
    expectError(runProgram(repeated("If True Then\nx = 1\nEnd If\n", 20000)),
                "test.bas:2:1: error: there is no variable 'x'; 'Dim x = ...' declares a variable\n");

    // A long line is cut around the caret.
    const Outcome outcome = runProgram("Print \"" + std::string(100000, 'x') + "\" + 1 ' " + std::string(100000, 'y'));
    expectError(outcome, "test.bas:1:100010: error: '+' cannot be applied");
    EXPECT_LT(outcome.errors.size(), 1000u);
    const std::size_t shown = outcome.errors.find('\n') + 1;
    const std::size_t caret = outcome.errors.rfind('\n', outcome.errors.size() - 2) + 1;
    EXPECT_EQ(outcome.errors[shown + outcome.errors.find('^', caret) - caret], '+');
}

// Programs that would exhaust the machine's memory, and operations that take quadratic time if they are implemented badly.
TEST(LargeValues, AreRefusedOrTakeLinearTime) {
    const std::string tooLong = "Catch e As OutOfMemoryException\nPrint e.Message, Len(s)\nEnd Try\nTry\n";
    const std::string refused = "A text cannot have more than 256 MB. 268435456\n";
    EXPECT_EQ(runProgram("Dim s As String = Repeat(\"x\", 268435456)\nTry\nPrint s & \"y\"\n" + tooLong + "s &= \"y\"\n" +
                         tooLong + "s = \"y\" & s\n" + tooLong + "Finally\nEnd Try")
                  .output,
              refused + refused + refused);
    for (const char* const read : {"ReadText", "ReadBytes"}) {
        expectError(runProgram(std::string("Dim f As New FolderItem(\"/dev/zero\")\nPrint f.") + read),
                    "test.bas:2:9: uncaught IOException: \"/dev/zero\" cannot be read: File too large.");
    }
    std::string procedures;
    for (int i = 0; i < 20000; ++i)
        procedures += "Function F" + std::to_string(i) + "(x As Integer) As Integer\nReturn x + 1\nEnd Function\n";
    const std::string chains = "Dim a() As Variant\nDim d As New Dictionary\nFor i As Integer = 1 To 100000\na = Array(a)\n"
                               "Dim e As New Dictionary\ne.Value(0) = d\nd = e\nNext\n";
    const std::pair<std::string, const char*> programs[] = {
        {procedures + "Print F19999(1)", "2\n"},
        {chains + "d = Nil\nPrint Len(\"\" & a), d", "205 Nil\n"},
        {"Dim a() As String = Array(\"\")\nFor i As Integer = 1 To 300000\na(0) &= \"x\"\nNext\nPrint Len(a(0))",
         "300000\n"},
        {"Dim d As New Dictionary\nd.Value(1) = \"\"\nFor i As Integer = 1 To 300000\nd.Value(1) &= i Mod 7\nNext\nPrint Len(String(d.Value(1)))",
         "300000\n"},
        {"Dim e As New IOException\nFor i As Integer = 1 To 300000\ne.Message += \"x\"\nNext\nPrint Len(e.Message)",
         "300000\n"},
        {"Dim s As String\nFor i As Integer = 1 To 300000\ns = \"x\" & s\nNext\nWhile s <> \"\"\ns = Mid(s, InStr(s, \"x\") + 1)\n"
         "If Len(s) Mod 3 = 0 Then s = Left(s, Len(s) - 1)\nWend\nPrint \"done\"",
         "done\n"},
        {"Dim s As String = Repeat(\"a\u00E4\u20AC\", 100000), n As Integer\nFor i As Integer = 1 To 300000\n"
         "If Mid(s, (i * 7001) Mod 300000 + 1, 1) = \"\u00E4\" And InStr(i, s, \"a\") > 0 Then n += 1\nNext\nPrint n",
         "99999\n"},
        {"Dim m As New MemoryBlock(0)\nFor i As Integer = 1 To 1000000\nm.Size = i\nNext\nPrint m.Size", "1000000\n"},
        {"Dim a() As Integer\nFor i As Integer = 1 To 1000000\na.Insert(0, i)\nNext\nWhile a.Count > 5\na.Remove(0)\nWend\nPrint a",
         "(5, 4, 3, 2, 1)\n"},
    };
    for (const auto& [program, output] : programs) {
        const std::clock_t start = std::clock();
        EXPECT_EQ(runProgram(program).output, output) << program.substr(0, 300);
        EXPECT_LT(std::clock() - start, 12 * CLOCKS_PER_SEC) << program.substr(0, 300);
    }
}

TEST(SourceText, UnreadableFilesAreReported) {
    startHostWithProbe();
    for (const std::string& path : {testing::TempDir() + "no/such/file", testing::TempDir()}) {
        testing::internal::CaptureStderr();
        EXPECT_FALSE(host::language::readProgram(path));
        EXPECT_EQ(testing::internal::GetCapturedStderr().find(path + ": error: cannot be read: "), 0u);
    }
}

} // namespace
