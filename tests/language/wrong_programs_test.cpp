// Programs that people get wrong: each ends soon, with one clear error that names its place, and exit code 1.
#include "programs.h"

#include "language/language.h"

#include <csignal>
#include <sstream>
#include <thread>
#include <unistd.h>

namespace {

std::string repeated(const std::string& text, std::size_t times) {
    std::string all;
    for (std::size_t i = 0; i < times; ++i)
        all += text;
    return all;
}

struct WrongProgram {
    const char* name;
    std::string program;
    const char* firstLine; // its start
};

const WrongProgram wrongPrograms[] = {
    {"MisspeltMember", "Dim p As New Probe(1)\nPrint p.numbr",
     "test.bas:2:9: error: Probe has no member 'numbr', did you mean"},
    {"MisspeltKeyword", "Prnt \"x\"", "test.bas:1:1: error: there is no function or array 'Prnt'"},
    {"WrongType", "Dim i As Integer\ni = \"x\"", "test.bas:2:5: error: this is of type String, but Integer is needed here"},
    {"MissingEndIf", "While True\nIf True Then\nPrint 1\nWend", "test.bas:4:1: error: 'End If' to close the If block that"},
    {"MissingEndSub", "Sub A()\nPrint 1\nSub B()\nEnd Sub", "test.bas:3:1: error: 'End Sub' to close the Sub block that"},
    {"MissingLoop", "Do\nPrint 1", "test.bas:1:1: error: this Do block is never closed: 'Loop' is missing"},
    {"StrayElse", "While False\nElse\nWend", "test.bas:2:1: error: 'Else' belongs to no block"},
    {"NilObject", "Dim p As Probe\nPrint p.number", "test.bas:2:9: uncaught NilObjectException: A member of Nil was used."},
    {"TooFewArguments", "Sub A(x As Integer)\nEnd Sub\nA",
     "test.bas:3:1: error: A cannot be called without arguments. Declared:"},
    {"UnknownClass", "Dim p As Prob", "test.bas:1:10: error: there is no type 'Prob', did you mean 'Probe'?"},
    {"BadLiteral", "Print &hXYZ", "test.bas:1:9: error: a digit of base 16 is expected here"},
    {"OpenText", "Print \"x", "test.bas:1:7: error: this text has no closing quote on its line"},
    {"IndexOutOfBounds", "Dim v(2) As Integer\nv(3) = 1",
     "test.bas:2:1: uncaught OutOfBoundsException: The index 3 is outside"},
    {"DivisionByZero", "Print 1 \\ 0", "test.bas:1:9: uncaught DivideByZeroException: Division by zero."},
    {"DivisionInAConstant", "Const C = 1 \\ 0", "test.bas:1:13: error: Division by zero."},
    {"ConstantAssigned", "Const C = 1\nC = 2", "test.bas:2:1: error: this cannot be assigned to"},
    {"ExitOutsideALoop", "Exit For", "test.bas:1:1: error: this is not inside a For loop"},
    {"ReturnWithoutValue", "Function F() As Integer\nReturn\nEnd Function",
     "test.bas:2:1: error: a Function returns a value"},
    {"DeclaredTwice", "Sub A()\nEnd Sub\nSub a()\nEnd Sub",
     "test.bas:3:5: error: 'a' is declared twice with these parameters"},
    {"CaseOfAnotherType", "Select Case 1\nCase \"x\"\nEnd Select",
     "test.bas:2:6: error: '=' cannot be applied to Integer and String"},
    {"RaisedText", "Raise \"x\"", "test.bas:1:7: error: this is of type String, but RuntimeException is needed here"},
    {"EndlessRecursion", "Sub Down()\nDown\nEnd Sub\nDown",
     "test.bas:2:1: uncaught StackOverflowException: Calls are nested too"},
    {"WrongBracketIn10MB", repeated("Print (1 + 2) ' padding\n", 440000) + "Print (1",
     "test.bas:440001:9: error: ')' is expected here"},
    {"BinaryGarbage",
     "\x7F"
     "ELF\x02\x01\x01" +
         std::string(1000, '\0'),
     "test.bas:1:8: error: a NUL byte cannot stand in a program"},
};

TEST(WrongPrograms, EachGivesOneErrorWithItsPlace) {
    for (const WrongProgram& wrong : wrongPrograms) {
        SCOPED_TRACE(wrong.name);
        const Outcome outcome = runProgram(wrong.program);
        EXPECT_EQ(outcome.exitCode, 1);
        EXPECT_EQ(outcome.errors.substr(0, std::string(wrong.firstLine).size()), wrong.firstLine);
        std::size_t errors = 0;
        for (std::size_t at = outcome.errors.find("test.bas:"); at != std::string::npos;
             at = outcome.errors.find("test.bas:", at + 1))
            ++errors;
        EXPECT_EQ(errors, 1u) << outcome.errors;
    }
}

// The key of the user who has waited long enough.
TEST(WrongPrograms, EndlessLoopsAreInterrupted) {
    const struct {
        const char* program;
        const char* errors;
    } endless[] = {
        {"While True\nWend", "test.bas:1:1: interrupted\n"},
        {"Print 1\nDo\nTry\nPrint 1 \\ 0\nCatch\nFinally\nContinue\nEnd Try\nLoop", "test.bas:2:1: interrupted\n"},
        {"Sub Idle(p As Probe)\nEnd Sub\nFor d As Double = 1 To 2 Step 1e-300\nIdle Probe.make(1)\nNext", "test.bas:"},
    };
    for (const auto& tested : endless) {
        std::thread user([] {
            std::this_thread::sleep_for(std::chrono::milliseconds(100));
            kill(getpid(), SIGINT);
        });
        const Outcome outcome = runProgram(tested.program);
        user.join();
        EXPECT_EQ(outcome.exitCode, 1);
        EXPECT_EQ(outcome.errors.substr(0, std::string(tested.errors).size()), tested.errors);
        EXPECT_NE(outcome.errors.find(": interrupted\n"), std::string::npos);
    }
}

TEST(WrongPrograms, ACheckReportsAllErrorsAndRunsNothing) {
    startHostWithProbe();
    std::ostringstream errors;
    const char* const program = R"(Dim x As
Print x
If 1 > Then
  Prnt 3
Else
  For i As Integer = 1 Too 9
    Print i
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
Print &hGG)";
    EXPECT_EQ(host::language::checkText("test.bas", program, errors), 1);
    std::string places;
    std::istringstream lines(errors.str());
    for (std::string line; std::getline(lines, line);)
        if (line.rfind("test.bas:", 0) == 0) places += line.substr(9, line.find(": error") - 9) + " ";
    EXPECT_EQ(places, "1:9 3:8 4:3 6:24 8:11 11:14 16:10 18:1 19:3 20:9 ") << errors.str();

    std::ostringstream many;
    EXPECT_EQ(host::language::checkText("test.bas", repeated("Print x\n", 5000), many), 1);
    EXPECT_NE(many.str().find("there are more errors\n"), std::string::npos);
    std::ostringstream none;
    EXPECT_EQ(host::language::checkText("test.bas", "While True\nWend", none), 0);
    EXPECT_EQ(none.str(), "");
}

} // namespace
