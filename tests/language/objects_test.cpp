// Objects of plugin classes: calls of every shape, and the moment at which each object goes. The class Probe keeps a list of the
// objects that went, each as "-" and its number.
#include "probe.h"
#include "programs.h"

namespace {

const PrintingCase calls[] = {
    {"OverloadsByTypeAndNumber", R"(Dim a As New Probe(7)
Dim b As New Probe(&c000009)
Dim c As New Probe(1, 0.5, 4)
Dim d As Probe = New Probe(1.5, 1.5)
Print a.Number, b.Number, c.Number, d.Number, (New Probe).Number)",
     "7 9 6 3 0\n"},
    {"ColorsAndIntegersAreOneNumber",
     R"(Print Probe.blueOf(&hFF0102), Probe.blueOf(RGB(1, 2, 3)), Probe.make(&c000007).Number)", "2 3 7\n"},
    {"WithAndWithoutParentheses", R"(Dim p As New Probe(6)
Dim a, b, c As Double
p.split a, b
Print a, b
p.split(b, a, c)
Print a, b, c, p.successor.number, p.successor().self().Number)",
     "6 3\n3 6 2 7 7\n"},
    {"DefaultsAreFilledIn", R"(Dim p As New Probe(1)
Print p.label, p.label(), p.label("x"), p.label("x", True))",
     "#1 #1 x1 [x1]\n"},
    {"MethodOnOneLineWithElse", R"(Dim p As New Probe(6)
Dim a, b As Double
If False Then p.successor Else p.split b, a
Print a, b)",
     "3 6\n"},
    {"SharedMembers", R"(Print Probe.make(3).Number, PROBE.kAnswer, Probe.kName, Probe.kAnswer + 1)", "3 42 Probe 43\n"},
    {"ManyArgumentsOrAnArray", R"(Dim v(1) As Double
v(0) = 2
v(1) = 3
Print Probe.sum(1), Probe.sum(2, 1, 2.5, 3), Probe.sum(10, v))",
     "0 13 50\n"},
    {"ElementsByReference", R"(Dim p As New Probe(8)
Dim v(2) As Double
p.split v(2), v(0)
Print v
p.split(v(1), v(1))
Print v)",
     "(4, 0, 8)\n(4, 4, 8)\n"},
    {"TextsByReference", R"(Dim p As New Probe(1)
Dim s As String = "a"
Dim v(1) As String
v(1) = "b"
p.exclaim s
p.exclaim v(1)
p.exclaim v(1)
Print s, v)",
     "a! (, b!!)\n"},
    {"Properties", R"(Dim p As New Probe(2)
p.Number = p.Number * 5
p.Next = p.successor
p.Next.Next = New Probe(30)
Print p.description, p.Next.description, p.Next.Next.Number, p.Next.Next.Next)",
     "probe 10 probe 11 30 Nil\n"},
    {"MethodsThatCanBeAssignedTo", R"(Dim m As New MemoryBlock(4)
m.Byte(1) = 200
Print m.Byte(0), m.Byte(1), m.Size)",
     "0 200 4\n"},
    {"IdentityAndClass", R"(Dim p As New Probe(1)
Dim q As Probe = p.self
Dim r As RuntimeException = New OutOfBoundsException("text", 3)
Print p Is q, p = q, p <> p.successor, p Is Nil, p.Next = Nil
Print p IsA Probe, r IsA OutOfBoundsException, r IsA NilObjectException, r IsA Object, p.Next IsA Probe
Print OutOfBoundsException(r).ErrorNumber, r.Message)",
     "True True True False True\nTrue True False True False\n3 text\n"},
};
const bool callsAdded = addCases("Calls", calls);

const PrintingCase lifetimes[] = {
    {"VariablesGoAtTheEndOfTheirBlock", R"(If True Then
  Dim a As New Probe(1)
  Dim b As New Probe(2)
  Print "in" & Probe.events
End If
Print Probe.events)",
     "in\n-2-1\n"},
    {"TemporariesGoAtTheEndOfTheirStatement", R"(Print Probe.make(1).successor.Number & Probe.events
Print Probe.events
Probe.make(5)
Print Probe.events
While Probe.make(7).Number = 0
Wend
Print Probe.events)",
     "2\n-2-1\n-5\n-7\n"},
    {"AssigningLetsGoOfTheOldValue", R"(Dim a As New Probe(1)
a = New Probe(2)
Print Probe.events
a = a.self
Print "kept" & Probe.events
a = Nil
Print Probe.events)",
     "-1\nkept\n-2\n"},
    {"ElementsHoldTheirObjects", R"(Dim v(1) As Probe
v(0) = New Probe(1)
v(1) = v(0)
v(0) = Nil
Print "held" & Probe.events
ReDim v(0)
Print Probe.events
v.Append New Probe(2)
Dim w() As Probe = v
v = Probe.row(0)
Print "shared" & Probe.events
w = v
Print Probe.events)",
     "held\n-1\nshared\n-2\n"},
    {"LoopsLetGoInEveryRound", R"(For i As Integer = 1 To 2
  Dim p As New Probe(i)
Next
Print Probe.events
For Each p As Probe In Probe.row(2)
  p = Nil
Next
Print Probe.events)",
     "-1-2\n-0-1\n"},
    {"ExceptionsLetGoOnTheirWay", R"(Try
  Dim a As New Probe(1)
  For i As Integer = 2 To 9
    Dim b As New Probe(i)
    Print Probe.make(10).makeAndRaise("OutOfBoundsException").Number
  Next
Catch e As OutOfBoundsException
  Print e.Message & Probe.events
End Try)",
     "made-99-10-2-1\n"},
    {"AConstructorThatRaisesLeavesNothing", R"(Dim p As Probe
Try
  p = New Probe(-1, 0)
Catch e As OutOfBoundsException
  Print e.Message, p, Probe.events
End Try)",
     "a is below 0 Nil -0\n"},
    {"ReferencesAreWrittenBeforeTheExceptionArrives", R"(Dim p As New Probe(1)
Dim d As Double = 5
Dim v(0) As Double
Try
  p.splitAndRaise d
Catch e As UnsupportedOperationException
End Try
Try
  p.splitAndRaise v(0)
Catch
End Try
Print d, v(0))",
     "-1 -1\n"},
    {"UnknownExceptionClassesAreRuntimeExceptions", R"(Dim e2 As RuntimeException
Try
  Probe.make(1).makeAndRaise "RuntimeException"
Catch e As RuntimeException
  e2 = e
End Try
Print e2, e2.Message)",
     "RuntimeException made\n"},
    {"VariantsHoldTheirObjects", R"(Dim v As Variant = New Probe(1)
Print "held" & Probe.events
v = 3
Print Probe.events)",
     "held\n-1\n"},
};
const bool lifetimesAdded = addCases("Lifetimes", lifetimes);

const PrintingCase pools[] = {
    {"DrainAtTheEndOfEveryStatement", R"(Dim before As Integer = Probe.nativesGone
Print Probe.leaveNative, Probe.nativesGone - before
Print Probe.nativesGone - before
For i As Integer = 1 To 3
  Probe.leaveNative
  Print Probe.nativesGone - before
Next)",
     "True 0\n1\n2\n3\n4\n"},
    {"DrainBehindConditionsAndExceptions", R"(Dim before As Integer = Probe.nativesGone
If Probe.leaveNative Then Print Probe.nativesGone - before
Dim rounds As Integer
While Probe.leaveNative And rounds < 2
  rounds = rounds + 1
  Print Probe.nativesGone - before
Wend
Try
  Print Probe.leaveNative, Probe.make(1).makeAndRaise("IOException")
Catch
  Print Probe.nativesGone - before
End Try)",
     "1\n2\n3\n5\n"},
};
const bool poolsAdded = addCases("Pools", pools);

TEST(UncaughtException, LetsGoOfEverythingAndShowsWhereItWasRaised) {
    const Outcome outcome = runProgram("Dim a As New Probe(1)\nPrint \"before\"\nIf True Then\n\tDim b As New Probe(2)\n"
                                       "\tPrint \"ä\", b.makeAndRaise(\"OutOfBoundsException\")\nEnd If\nPrint \"after\"\n");
    EXPECT_EQ(outcome.output, "before\n");
    EXPECT_EQ(outcome.errors, "test.bas:5:15: uncaught OutOfBoundsException: made\n"
                              "\tPrint \"ä\", b.makeAndRaise(\"OutOfBoundsException\")\n"
                              "\t             ^\n");
    EXPECT_EQ(outcome.exitCode, 1);
    EXPECT_EQ(takeProbeEvents(), "-99-2-1");
}

} // namespace
