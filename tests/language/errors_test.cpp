// Programs that people get wrong: what each report says, and where; endless ones; text that nobody would write.
#include "probe.h"
#include "programs.h"

#include "language/language.h"

#include <csignal>
#include <sstream>
#include <thread>

#include <sys/wait.h>
#include <unistd.h>

namespace {

void expectError(const Outcome& outcome, const std::string& start) {
    EXPECT_EQ(outcome.exitCode, 1);
    EXPECT_EQ(outcome.errors.substr(0, start.size()), start);
}

TEST(Errors, OfNames) {
    expectReports({
        {"Dim counter As Integer\nPrint @countr", {"there is no variable 'countr', did you mean 'counter'?"}},
        {"If True Then\n  Dim inner As Integer\nEnd If\nPrint @inner", {"there is no variable 'inner'"}},
        {"Dim x As Integer = @x", {"there is no variable 'x'"}},
        {"Print @Hxe(255)", {"there is no function or array 'Hxe', did you mean 'Hex'?"}},
        {"Dim d As @Duoble", {"there is no type 'Duoble', did you mean 'Double'?"}},
        {"Dim p As @Prob", {"there is no type 'Prob', did you mean 'Probe'?"}},
        {"Print New @Prob(1)", {"there is no class 'Prob', did you mean 'Probe'?"}},
        {"Print Probe.make(1).@sucessor", {"Probe has no member 'sucessor', did you mean 'successor'?"}},
        {"Print Probe.make(1).@make(2)", {"'make' belongs to the class: write Probe.make"}},
        {"Print Probe.@successor", {"'successor' belongs to the objects of Probe, not to the class"}},
        {"Dim v() As Integer\nv.@Apend 1", {"an array has no member 'Apend', did you mean 'Append'?"}},
        {"Dim a As Integer\nWhile True\n  Dim @A As String\nWend",
         {"'A' is declared already in this block or one around it"}},
        {"Sub A()\nEnd Sub\nSub @a()\nEnd Sub", {"'a' is declared twice with these parameters"}},
        {"Sub @Probe()\nEnd Sub", {"'Probe' is the name of a class"}},
        {"Try\nCatch e As @Probe\nEnd Try", {"'Probe' is no class of exceptions"}},
    });
}

TEST(Errors, OfTypes) {
    expectReports({
        {"Dim s As String\ns = @1", {"this is of type Integer, but String is needed here"}},
        {"Dim p As Probe = @New MemoryBlock(1)", {"this is of type MemoryBlock, but Probe is needed here"}},
        {"If @1 Then Print 1", {"this is of type Integer, but Boolean is needed here"}},
        {"Dim c As Color = @0.5", {"this is of type Double, but Color is needed here"}},
        {"Raise @\"x\"", {"this is of type String, but RuntimeException is needed here"}},
        {"Dim v() As Integer = Array(1, @\"a\")", {"this is of type String, but Integer is needed here"}},
        {"Dim p As Probe\nPrint p @Is 1", {"'Is' compares objects, not Probe and Integer"}},
        {"Print True @< False", {"'<' cannot be applied to Boolean and Boolean"}},
        {"Select Case 1\nCase @\"x\"\nEnd Select", {"'=' cannot be applied to Integer and String"}},
        {"Dim v() As Double\nPrint v.@Append(1)", {"this call gives no value"}},
        {"Dim p As New Probe(1)\np.@description", {"this is a value, but nothing is done with it"}},
        {"Dim p As New Probe(1)\np.@description = \"x\"", {"the property 'description' of Probe is read-only"}},
        {"Probe.@kAnswer = 1", {"this cannot be assigned to"}},
        {"Const C = 1\n@C = 2", {"this cannot be assigned to"}},
        {"Dim i As Integer\nConst C = i @+ 1\nPrint C", {"this value must be made of literals and constants"}},
        {"Const C = 1 @\\ 0", {"Division by zero."}},
        {"Dim i As Integer\nPrint @i(0)", {"this is of type Integer; only an array has elements"}},
        {"Dim v(@3) As Double = Nil", {"an array that gets a value takes its bound from the value"}},
        {"For @s As String = 1 To 2\nNext", {"a For loop counts an Integer or a Double, not a String"}},
        {"For Each i As Integer In @3\nNext", {"this is of type Integer, no array"}},
        {"Print Probe(@New MemoryBlock(1))", {"this is of type MemoryBlock and never is a Probe"}},
        // Columns count characters; a tab stays a tab in the line of the caret.
        {"\tPrint \"äö\t€\" @+ 1", {"'+' cannot be applied to String and Integer; '&' joins values of any type"}},
    });
}

TEST(Errors, OfCalls) {
    const char* const split = "    split(byref whole as double, byref half as double)\n"
                              "    split(byref whole as double, byref half as double, byref third as double)";
    const std::string types = std::string("Probe.split cannot be called with (Integer, Double). Declared:\n") + split;
    const std::string value =
        std::string("Probe.split cannot be called with (Double, Double): a byref argument must be a variable. Declared:\n") +
        split;
    expectReports({
        {"Dim p As @New Probe(\"a\")",
         {"New Probe cannot be called with (String). Declared:\n    Constructor(number as integer)\n"
          "    Constructor(c as color)\n    Constructor(a as double, b as double, factor as double = 1.0)"}},
        {"Print @Len()", {"Len cannot be called without arguments. Declared:\n    Len(text as string) as integer"}},
        {"Dim i As Integer, d As Double\nProbe.make(1).@split i, d", {types.c_str()}},
        {"Dim d As Double\nProbe.make(1).@split d, 0.5", {value.c_str()}},
        {"Dim v() As Integer\nv.@Insert 1", {"'Insert' takes an index and an element"}},
        {"Sub A(n As Integer)\nEnd Sub\n@A \"x\"\nPrint @A(1)",
         {"A cannot be called with (String). Declared:\n    A(n As Integer)", "this call gives no value"}},
        {"Sub A(ByRef n As Integer)\nEnd Sub\n@A 1",
         {"A cannot be called with (Integer): a byref argument must be a variable. Declared:\n    A(ByRef n As Integer)"}},
        {"Sub A(n As Integer = 1, @m As Integer)\nEnd Sub\nSub B(ParamArray v As Integer, @n As Integer)\nEnd Sub",
         {"a parameter behind one with a default needs a default too", "nothing can follow a ParamArray"}},
        {"Sub A()\n@Exit Function\n@Continue\nReturn @1\nEnd Sub\n@Exit For",
         {"this is not inside a Function", "this is not inside a loop", "only a Function returns a value",
          "this is not inside a For loop"}},
        {"Function F() As Integer\n@Return\nEnd Function", {"a Function returns a value"}},
    });
}

TEST(Errors, OfBlocksAndText) {
    expectReports({
        {"Print 1\n@If True Then\n  Print 2\n", {"this If block is never closed: 'End If' is missing"}},
        {"@Do\nPrint 1", {"this Do block is never closed: 'Loop' is missing"}},
        {"\nWhile True\n  Print 2\n@End If",
         {"'Wend' to close the While block that began on line 2 is expected here, not 'End'"}},
        {"While True\nIf True Then\nPrint 1\n@Wend",
         {"'End If' to close the If block that began on line 2 is expected here, not 'Wend'"}},
        {"While True\n@Sub A()\nEnd Sub",
         {"'Wend' to close the While block that began on line 1 is expected here, not 'Sub'"}},
        {"Sub A()\nPrint 1\n@Sub B()\nEnd Sub",
         {"'End Sub' to close the Sub block that began on line 1 is expected here, not 'Sub'"}},
        {"If True Then\nEnd If\n@End If", {"'End' closes no block"}},
        {"While False\n@Else\nWend", {"'Else' belongs to no block"}},
        {"For i As Integer = 1 To 2\nNext @j", {"this Next closes the loop over 'i', not over 'j'"}},
        {"Try\n@End Try", {"'Catch' or 'Finally' is expected here, not 'End'"}},
        {"Const C @5\nConst D As Integer @5", {"'As' or '=' is expected here, not '5'", "'=' is expected here, not '5'"}},
        {"Print @\"abc\nPrint 2", {"this text has no closing quote on its line"}},
        {"Print 1 @€ 2", {"the character '€' has no meaning here"}},
        {"Print 1 +@", {"a value is expected here, not the end of the program"}},
        {"Print 1 @Print 2", {"the end of the statement is expected here, not 'Print'"}},
        {"Print 1 + @_ 2", {"the line continuation '_' must be the last thing on its line"}},
        {"Print @&h12345678123456781", {"this number has more digits than an Integer can hold"}},
        {"Print &h@XYZ", {"a digit of base 16 is expected here"}},
        {"Print @1e999", {"this number is outside the range of a Double"}},
        {"Print @&cFF80", {"a colour is written &cRRGGBB or &cRRGGBBAA"}},
        {repeated("Print (1 + 2) ' padding\n", 40000) + "Print (1@", {"')' is expected here, not the end of the program"}},
        {"Dim a As @Intger\nPrint a, a + 1\nPrint @b, c\nIf @d Then\n  Print True @+ 1\nEnd If", // the first of a statement
         {"there is no type 'Intger', did you mean 'Integer'?", "there is no variable 'b'", "there is no variable 'd'",
          "'+' cannot be applied to Boolean and Integer"}},
    });
}

TEST(Errors, WhileAProgramRuns) {
    expectReports({
        {"Dim p As Probe\nIf p.@number = 1 Then Print 1", {"uncaught NilObjectException: A member of Nil was used."}},
        {"Dim v(2) As Integer\n@v(3) = 1", {"uncaught OutOfBoundsException: The index 3 is outside the range 0 to 2."}},
        {"Print 1 @\\ 0", {"uncaught DivideByZeroException: Division by zero."}},
        {"Sub Down()\n@Down\nEnd Sub\nDown", {"uncaught StackOverflowException: Calls are nested too deeply."}},
        {"Dim a As New Probe(1)\nIf True Then\n\tDim b As New Probe(2)\n\tPrint \"ä\", b.@makeAndRaise(\"IOException\")\nEnd If",
         {"uncaught IOException: made"}},
    });
    EXPECT_EQ(takeProbeEvents(), "-99-2-1");
}

// The key of the user who has waited long enough.
TEST(Errors, EndlessLoopsAreInterrupted) {
    const std::pair<const char*, const char*> endless[] = {
        {"While True\nWend", "test.bas:1:1: interrupted\n"},
        {"Print 1\nDo\nTry\nPrint 1 \\ 0\nCatch\nFinally\nContinue\nEnd Try\nLoop", "test.bas:2:1: interrupted\n"},
        {"Sub Idle(p As Probe)\nEnd Sub\nFor d As Double = 1 To 2 Step 1e-300\nIdle Probe.make(1)\nNext", "test.bas:"}};
    for (const auto& [program, errors] : endless) {
        // Another process, as it is in life: a thread would share more with the one that is interrupted than a user does.
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
    }
}

TEST(Errors, ACheckReportsAllOfThemAndRunsNothing) {
    startHostWithProbe();
    const auto check = [](const std::string& program, int exitCode) {
        std::ostringstream errors;
        EXPECT_EQ(host::language::checkText("test.bas", program, errors), exitCode);
        return errors.str();
    };
    std::istringstream lines(check(R"(Dim x As
Print x
If 1 > Then
  Prnt 3
Else
  For i As Integer = 1 Too 9
    Print wrong
  Next
End If
Sub Bad(a As Duble)
  Print a
End Sub
Bad(3)
Function F() As Integer
  Return "x"
End Function
While True
  Exit Do
Print &hGG)",
                                   1));
    std::string places;
    for (std::string line; std::getline(lines, line);)
        if (line.rfind("test.bas:", 0) == 0) places += line.substr(9, line.find(": error") - 9) + " ";
    EXPECT_EQ(places, "1:9 3:8 4:3 6:24 7:11 10:14 15:10 17:1 18:3 19:9 ");
    EXPECT_NE(check(repeated("Print x\n", 5000), 1).find("there are more errors\n"), std::string::npos);
    EXPECT_EQ(check("While True\nWend", 0), "");
}

TEST(StrangeText, BytesThatAreNoText) {
    expectError(runProgram(std::string("Print 1\nPrint \0 2", 17)),
                "test.bas:2:7: error: a NUL byte cannot stand in a program\nPrint ? 2\n      ^\n");
    expectError(runProgram("Print \x1B[2J"),
                "test.bas:1:7: error: the control character &h1B has no meaning here\nPrint ?[2J\n");
    for (const char* malformed : {"\xC3(", "\xC0\x80", "\xED\xA0\x80", "\xF4\x90\x80\x80", "\xE2\x82", "\x80"})
        expectError(runProgram(std::string("' ") + malformed), "test.bas:1:3: error: a program is UTF-8 text");
}

TEST(StrangeText, TheCaretStandsUnderItsColumn) {
    // Each of the first two takes two columns of a terminal, an accent on its own none.
    expectError(runProgram("Print \"\u65E5\u672Ce\u0301\", x"),
                "test.bas:1:15: error: there is no variable 'x'\nPrint \"\u65E5\u672Ce\u0301\", x\n               ^\n");
    // What a terminal would take for the start of a command.
    expectError(runProgram("Print \"\u009B2J\", x"),
                "test.bas:1:14: error: there is no variable 'x'\nPrint \"?2J\", x\n             ^\n");
    std::ostringstream errors;
    host::language::checkText("a.bas", "Print x", errors, true);
    EXPECT_EQ(errors.str(), "\x1B[1ma.bas:1:7:\x1B[0m \x1B[1;31merror\x1B[0m: there is no variable 'x'\nPrint x\n"
                            "      \x1B[1;32m^\x1B[0m\n");
}

TEST(StrangeText, DeepNestingIsRefusedOrRuns) {
    // What opens a nest, what stands in it, and what closes it.
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
        for (const int depth : {100, 150, 240, 400, 490, 100000}) {
            const std::string opened = isExpression ? "Print " + repeated(open.substr(6), depth) : repeated(open, depth);
            const Outcome outcome = runProgram(opened + middle + repeated(close, depth));
            EXPECT_TRUE(outcome.exitCode == 0 || outcome.errors.find("nested more than") != std::string::npos)
                << outcome.errors.substr(0, 200);
            EXPECT_TRUE(outcome.exitCode == 0 || depth > 100) << open;
        }
    }
}

TEST(StrangeText, LargePrograms) {
    constexpr int megabytes = 4 * 1024 * 1024;
    const std::string line = "x = x + 1 ' " + std::string(243, 'x') + "\n";
    EXPECT_EQ(runProgram("Dim x As Integer\n" + repeated(line, megabytes / 256) + "Print x").output, "16384\n");
    EXPECT_EQ(runProgram("Print Len(\"" + std::string(megabytes, 'x') + "\")").output, "4194304\n");
    EXPECT_EQ(runProgram("'" + std::string(megabytes, 'x') + "\nPrint 1").output, "1\n");
    EXPECT_EQ(runProgram(std::string(megabytes, '\n') + "Print 1").output, "1\n");
    expectError(runProgram("Print " + std::string(megabytes, 'x')),
                "test.bas:1:7: error: a name has at most 255 characters\n");
    expectError(runProgram(repeated("If True Then\nx = 1\nEnd If\n", 20000)),
                "test.bas:2:1: error: there is no variable 'x'\n");

    // A long line is cut around the caret.
    const Outcome outcome = runProgram("Print \"" + std::string(100000, 'x') + "\" + 1 ' " + std::string(100000, 'y'));
    expectError(outcome, "test.bas:1:100010: error: '+' cannot be applied");
    EXPECT_LT(outcome.errors.size(), 1000u);
    const std::size_t shown = outcome.errors.find('\n') + 1;
    const std::size_t caret = outcome.errors.rfind('\n', outcome.errors.size() - 2) + 1;
    EXPECT_EQ(outcome.errors[shown + outcome.errors.find('^', caret) - caret], '+');
}

TEST(StrangeText, FilesThatCannotBeRead) {
    startHostWithProbe();
    for (const std::string& path : {testing::TempDir() + "no/such/file", testing::TempDir()}) {
        testing::internal::CaptureStderr();
        EXPECT_EQ(host::language::runFile(path), 1);
        EXPECT_EQ(testing::internal::GetCapturedStderr().find(path + ": error: cannot be read: "), 0u);
    }
}

} // namespace
