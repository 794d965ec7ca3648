// Subs and Functions, and the statements that leave procedures and loops.
#include "programs.h"

namespace {

const PrintingCase calls[] = {
    {"DefaultsAndAnyNumberOfArguments", R"(Print Greet("a"), Greet("b", "?"), Total(), Total(1, 2.5)
Function Greet(name As String, Optional mark As String = "!") As String
  Return name & mark
End Function
Function Total(ParamArray numbers As Double) As Double
  Dim sum As Double
  For Each number As Double In numbers
    sum = sum + number
  Next
  Return sum
End Function)",
     "a! b? 0 3.5\n"},
    {"OverloadsByTypes", R"(Function Kind(value As Integer) As String
  Return "integer"
End Function
Function Kind(value As String) As String
  Return "text"
End Function
Print Kind(1), Kind("x"))",
     "integer text\n"},
    {"ByReference", R"(Sub Swap(ByRef a As String, ByRef b As String)
  Dim kept As String = a
  a = b
  b = kept
End Sub
Sub Rotate(ByRef a As String, ByRef b As String, ByRef c As String)
  Swap a, b
  Swap(b, c)
End Sub
Dim x As String = "x", y() As String = Array("y", "z")
Rotate x, y(0), y(1)
Print x, y)",
     "y (z, x)\n"},
    {"ElementsComeBackWhenItRaises", R"(Sub Fail(ByRef a As Integer)
  a = 7
  Raise New RuntimeException("failed")
End Sub
Dim v() As Integer = Array(1, 2)
Try
  Fail v(1)
Catch e As RuntimeException
  Print v, e.Message
End Try)",
     "(1, 7) failed\n"},
    {"SeeTheProgramAboveAndHideIt", R"(Dim count As Integer = 1
Dim hidden As String = "program"
Sub Add()
  Dim hidden As Integer = 5
  count = count + hidden
End Sub
Add
Add()
Print count, hidden)",
     "11 program\n"},
    {"EachCallHasItsVariables", R"(Function Factorial(n As Integer) As Double
  Dim below As Integer = n - 1
  If n > 1 Then
    Dim rest As Double = Factorial(below)
    Return (below + 1) * rest
  End If
  Return 1
End Function
Print Factorial(5), Factorial(20))",
     "120 2432902008176640000\n"},
    {"DeepRecursionIsAnException", R"(Function Down(n As Integer, o As Probe) As Integer
  Return Down(n + 1, o) + 1
End Function
For i As Integer = 1 To 2
  Try
    Print Down(0, Probe.make(1))
  Catch e As StackOverflowException
    Print e.Message
  End Try
Next)",
     "Calls are nested too deeply.\nCalls are nested too deeply.\n"},
    {"ObjectsLeaveAndDie", R"(Function Pick(o As Probe) As Probe
  Dim other As Probe = Probe.make(2)
  If o.number = 1 Then Return other
  Return o
End Function
Print Pick(Probe.make(1)).number, Pick(Probe.make(3)).number)",
     "2 3\n"},
};
const bool callsAdded = addCases("Procedures", calls);

const PrintingCase leaving[] = {
    {"TheNamedLoop", R"(For i As Integer = 1 To 3
  Dim text As String = "in " & i
  While True
    If i = 2 Then Continue For
    Exit While
  Wend
  Do
    If i = 3 Then Exit For
    Exit Do
  Loop
  Print text
Next)",
     "in 1\n"},
    {"ThroughFinally", R"(Function Tried(n As Integer) As Integer
  For Each i As Integer In Array(1, 2, 3)
    Try
      If i = n Then Return i * 10
      Continue
    Finally
      Print "finally", i
    End Try
  Next
  Return -1
End Function
Print Tried(2))",
     "finally 1\nfinally 2\n20\n"},
    {"FinallyDecides", R"(Function Tried() As String
  Try
    Raise New RuntimeException("lost")
  Finally
    Return "kept"
  End Try
End Function
Print Tried())",
     "kept\n"},
    {"TheProgram", "Print 1\nIf True Then Return\nPrint 2", "1\n"},
};
const bool leavingAdded = addCases("Leaving", leaving);

const PrintingCase blocks[] = {
    {"SelectCase", R"(Const High = 100
For Each i As Integer In Array(1, 5, 50, 500)
  Select Case i
  Case 1, 2
    Print "small"
  Case 3 To 9
    Print "medium"
  Case Is > High
    Print "huge"
  Case Else
    Print "other"
  End Select
Next
Select Case "b"
Case "a" To "c"
  Print "text"
End Select)",
     "small\nmedium\nother\nhuge\ntext\n"},
    {"DoLoops", R"(Dim i As Integer
Do
  i = i + 1
Loop Until i >= 3
Do While i < 5
  i = i + 1
  If i = 4 Then Continue Do
Loop
Do Until True
  i = 100
Loop
Print i)",
     "5\n"},
};
const bool blocksAdded = addCases("MoreBlocks", blocks);

const PrintingCase values[] = {
    {"Constants", R"(Const Size As Double = 2 * 3
Const Name = "x" & "y"
Sub Show(scale As Double = -6)
  Print scale + Size, Name
End Sub
Show
Show(1))",
     "0 xy\n7 xy\n"},
    {"Arrays", R"(Dim n() As Double = Array(1, 2, 3)
n.Insert(0, 9)
n.Remove(1)
n.Append 4
n.Insert(n.Count, 5)
Print n, n.Count, Array(1, 2.5), Array("a", 1), Array(Nil, New MemoryBlock(1)).Count)",
     "(9, 2, 3, 4, 5) 5 (1, 2.5) (a, 1) 2\n"},
    {"Conversions", "Dim v As Variant = \"x\"\nPrint Integer(3.7), String(12) + String(v), Double(3) / 2", "3 12x 1.5\n"},
};
const bool valuesAdded = addCases("MoreValues", values);

} // namespace
