// Variables, arrays, blocks, and how a program's lines are read.
#include "programs.h"

namespace {

const PrintingCase variables[] = {
    {"StartAtZero", R"(Dim i, j As Integer, d As Double
Dim s As String, b As Boolean, c As Color, o As Probe
Print i, j, d, s, b, c, o)",
     "0 0 0  False &h00000000 Nil\n"},
    {"AnyCase", R"(DIM Counter AS integer = 1
counter = COUNTER + 1
PRINT counter)",
     "2\n"},
    {"OneValueForSeveral", R"(Dim a, b As Double = 2
Print a, b)",
     "2 2\n"},
    {"NewAgainInEveryRound", R"(For i As Integer = 1 To 2
  Dim n As Integer
  Dim s As String
  n = n + 1
  s = s + "x"
  Print n, s
Next)",
     "1 x\n1 x\n"},
    {"BlocksNextToEachOtherShareNames", R"(If True Then
  Dim a As Integer = 1
  Print a
End If
If True Then
  Dim a As String = "b"
  Print a
End If)",
     "1\nb\n"},
    {"KeywordsAreMembersBehindADot", R"(Dim p As New Probe(4)
p.Next = Probe.make(5)
Print p.next.number)",
     "5\n"},
};
const bool variablesAdded = addCases("Variables", variables);

const PrintingCase arrays[] = {
    {"BoundsAndElements", R"(Dim v(2) As Integer, w() As String
v(0) = 1
v(2) = v(0) + 4
w.Append "a"
w.Add("b")
Print v, UBound(v), w, UBound(w))",
     "(1, 0, 5) 2 (a, b) 1\n"},
    {"ReDimKeepsWhatFits", R"(Dim v(1) As String
v(0) = "a"
v(1) = "b"
ReDim v(2)
Print v
ReDim v(0)
Print v
ReDim v(-1)
Print UBound(v))",
     "(a, b, )\n(a)\n-1\n"},
    {"AssignmentSharesTheArray", R"(Dim v(0) As Double
Dim w() As Double = v
w(0) = 7
w.Append 8
Print v)",
     "(7, 8)\n"},
    {"BoundsAreComputed", R"(Dim n As Integer = 2
Dim v(n * 2) As Double
Print UBound(v))",
     "4\n"},
};
const bool arraysAdded = addCases("Arrays", arrays);

const PrintingCase branching[] = {
    {"FirstTrueBranchRuns", R"(For i As Integer = 1 To 4
  If i = 1 Then
    Print "one"
  ElseIf i <= 3 Then
    Print "few"
  ElseIf i = 2 Then
    Print "never"
  Else
    Print "many"
  End If
Next)",
     "one\nfew\nfew\nmany\n"},
    {"OnOneLine", R"(Dim n As Integer
If True Then n = 1 : n = n + 1 Else n = 9
If False Then Print "no" Else Print "else", n
If False Then Print "no"
If True Then If False Then Print "no" Else Print "inner")",
     "else 2\ninner\n"},
    {"While", R"(Dim n As Integer = 3
While n > 0
  Print n
  n = n - 1
Wend
While False
Wend)",
     "3\n2\n1\n"},
};
const bool branchingAdded = addCases("Branching", branching);

const PrintingCase counting[] = {
    {"UpAndDown", R"(Dim s As String
For i As Integer = 1 To 3 : s = s & i : Next
For i As Integer = 3 DownTo 1 : s = s & i : Next i
For i As Integer = 5 To 1 Step -2 : s = s & i : Next
For i As Integer = 10 DownTo 1 Step 4 : s = s & "," & i : Next
For i As Integer = 2 To 1 : s = s & "never" : Next
Print s)",
     "123321531,10,6,2\n"},
    {"Doubles", R"(For x As Double = 0 To 1 Step 0.25
  Print x
Next)",
     "0\n0.25\n0.5\n0.75\n1\n"},
    {"OwnVariableAndOlderOne", R"(Dim i As Integer = 9
For i = 1 To 3
Next
Print i
For i = 1 To 10
  i = i + 4
  Print i
Next)",
     "4\n5\n10\n"},
    {"BoundsAreTakenOnce", R"(Dim n As Integer = 2
For i As Integer = 1 To n
  n = 100
  Print i
Next)",
     "1\n2\n"},
    {"EndsAtTheLastInteger", R"(Dim last As Integer = Not 0
last = 1e300
Dim rounds As Integer
For i As Integer = last - 1 To last
  rounds = rounds + 1
Next
Print rounds)",
     "2\n"},
    {"EachElement", R"(Dim v() As Integer
For Each n As Integer In v
  Print "never"
Next
v.Append 1
v.Append 2
For Each x As Double In v
  Print x / 2
  If UBound(v) < 3 Then v.Append 10
Next x)",
     "0.5\n1\n5\n5\n"},
    {"EachOfAResult", R"(Dim total As Integer
For Each p As Probe In Probe.row(4)
  total = total + p.Number
Next
Print total)",
     "6\n"},
};
const bool countingAdded = addCases("Counting", counting);

const PrintingCase catching[] = {
    {"TheFirstFittingCatchTakesIt", R"(Dim v() As Double
For i As Integer = 1 To 3
  Try
    If i = 1 Then v(5) = 1
    If i = 2 Then Print 1 \ 0
    Print "quiet"
  Catch e As OutOfBoundsException
    Print e, e.Message
  Catch e As RuntimeException
    Print "other", e
  End Try
Next)",
     "OutOfBoundsException The index 5 is used on an empty array.\nother DivideByZeroException\nquiet\n"},
    {"FinallyRunsOnEveryPath", R"(Try
  Try
    Print 1 Mod 0
  Finally
    Print "inner"
  End Try
  Print "skipped"
Catch
  Print "caught"
Finally
  Print "outer"
End Try
Try
  Print "well"
Finally
  Print "last"
End Try)",
     "inner\ncaught\nouter\nwell\nlast\n"},
    {"AnExceptionOfAHandlerGoesOn", R"(Try
  Try
    Print 1 Mod 0
  Catch e As DivideByZeroException
    Dim p As Probe
    Print p.Number
  Finally
    Print "finally"
  End Try
Catch e As NilObjectException
  Print e.Message
End Try)",
     "finally\nA member of Nil was used.\n"},
    {"WhatRaises", R"(Dim none() As Double = Probe.echo(Nil)
Dim p As Probe
Dim v(1) As Double
For i As Integer = 1 To 11
  Try
    If i = 1 Then p.Number = 1
    If i = 2 Then Print p.description
    If i = 3 Then Print p.successor
    If i = 4 Then Print none(0)
    If i = 5 Then Print v(-1)
    If i = 6 Then ReDim v(-2)
    If i = 7 Then p = Probe.echo("text")
    If i = 8 Then p = Probe.echo(New MemoryBlock(1))
    If i = 9 Then v(0) = Probe.echo("text")
    If i = 10 Then For j As Integer = 1 To 2 Step i - 10 : Next
    If i = 11 Then For Each d As Double In none : Next
  Catch e As RuntimeException
    Print i & " " & e
  End Try
Next)",
     "1 NilObjectException\n2 NilObjectException\n3 NilObjectException\n4 NilObjectException\n5 OutOfBoundsException\n"
     "6 OutOfBoundsException\n7 TypeMismatchException\n8 IllegalCastException\n9 TypeMismatchException\n10 RuntimeException\n"
     "11 NilObjectException\n"},
};
const bool catchingAdded = addCases("Catching", catching);

const PrintingCase lines[] = {
    {"Comments", R"(' first
// second
Rem third
Print 1 ' behind
Print 8 / 2 // behind
Print "'//Rem" Rem behind
Dim remark As Integer = 5 : Print remark)",
     "1\n4\n'//Rem\n5\n"},
    {"Continuations", "Print 1 + _\n  2, _ ' with a comment\n  3\r\nPrint 4 _\r\n + 5", "3 3\n9\n"},
    {"LineEndsOfAllKinds", "Print 1\rPrint 2\r\nPrint 3\n\n\n", "1\n2\n3\n"},
    {"ByteOrderMark", "\xEF\xBB\xBFPrint 1", "1\n"},
    {"Empty", "", ""},
};
const bool linesAdded = addCases("Lines", lines);

} // namespace
