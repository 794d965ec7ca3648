// Variables, arrays, blocks, exceptions, procedures, and how a program's lines are read.
#include "programs.h"

namespace {

TEST(Statements, Variables) {
    expectPrinted(R"(Dim i, j As Integer, d As Double
Dim s As String, b As Boolean, c As Color, o As Probe
Print i, j, d, s, b, c, o '> 0 0 0  False &h00000000 Nil
DIM Counter AS integer = 1
counter = COUNTER + 1
PRINT counter '> 2
Dim e, f As Double = 2
Print e, f '> 2 2
For round As Integer = 1 To 2
  Dim n As Integer
  Dim t As String
  n = n + 1
  t = t + "x"
  Print n, t '> 1 x | 1 x
Next
If True Then
  Dim a As Integer = 1
  Print a '> 1
End If
If True Then
  Dim a As String = "b"
  Print a '> b
End If
Dim p As New Probe(4)
p.Next = Probe.make(5)
Print p.next.number '> 5)");
}

TEST(Statements, Arrays) {
    expectPrinted(R"(Dim v(2) As Integer, w() As String
v(0) = 1
v(2) = v(0) + 4
w.Append "a"
w.Add("b")
Print v, UBound(v), w, UBound(w) '> (1, 0, 5) 2 (a, b) 1
ReDim w(2)
Print w '> (a, b, )
ReDim w(0)
Print w '> (a)
ReDim w(-1)
Print UBound(w) '> -1
Dim d(0) As Double
Dim shared() As Double = d
shared(0) = 7
shared.Append 8
Print d '> (7, 8)
Dim bound As Integer = 2
Dim computed(bound * 2) As Double
Print UBound(computed) '> 4
Dim probes() As Probe
probes.Append Probe.make(1)
probes.Insert(0, Probe.make(2))
probes.Insert(probes.Count, Probe.make(3))
probes.Remove(1)
ReDim probes(2)
Print probes, probes(0).number, probes(1).number '> (probe 2, probe 3, Nil) 2 3)");
}

TEST(Statements, Branches) {
    expectPrinted(R"(For i As Integer = 1 To 4
  If i = 1 Then
    Print "one" '> one
  ElseIf i <= 3 Then
    Print "few" '> few | few
  ElseIf i = 2 Then
    Print "never"
  Else
    Print "many" '> many
  End If
Next
Dim n As Integer
If True Then n = 1 : n = n + 1 Else n = 9
If False Then Print "no" Else Print "else", n '> else 2
If False Then Print "no"
If True Then If False Then Print "no" Else Print "inner" '> inner
For Each i As Integer In Array(1, 5, 50)
  Select Case i
  Case 1, 2
    Print "small" '> small
  Case Is <= 9
    Print "medium" '> medium
  End Select
Next)");
}

TEST(Statements, Loops) {
    expectPrinted(R"(Dim s As String
For i As Integer = 1 To 3 : s = s & i : Next
For i As Integer = 3 DownTo 1 : s = s & i : Next i
For i As Integer = 5 To 1 Step -2 : s = s & i : Next
For i As Integer = 10 DownTo 1 Step 4 : s = s & "," & i : Next
For i As Integer = 2 To 1 : s = s & "never" : Next
For x As Double = 0 To 1 Step 0.25 : s = s & " " & x : Next
Print s '> 123321531,10,6,2 0 0.25 0.5 0.75 1
Dim n As Integer = 9
For n = 1 To 3
Next
Print n '> 4
For n = 1 To 10
  n = n + 4
  Print n '> 5 | 10
Next
n = 2
For i As Integer = 1 To n ' of which the end is taken once
  n = 100
  Print i '> 1 | 2
Next
Dim last As Integer = 1e300, rounds As Integer
For i As Integer = last - 1 To last
  rounds = rounds + 1
Next
Print rounds '> 2
While rounds > 0
  Print rounds '> 2 | 1
  rounds = rounds - 1
Wend
Do
  rounds = rounds + 1
Loop Until rounds >= 3
Do While rounds < 5
  rounds = rounds + 1
  If rounds = 4 Then Continue Do
Loop
Do Until True
  rounds = 100
Loop
Print rounds '> 5
Dim v() As Integer
For Each i As Integer In v
  Print "never"
Next
v.Append 1
v.Append 2
For Each x As Double In v
  Print x / 2 '> 0.5 | 1 | 5 | 5
  If UBound(v) < 3 Then v.Append 10
Next x
n = 0
For Each p As Probe In Probe.row(4)
  n = n + p.Number
Next
Print n '> 6)");
}

TEST(Statements, LeaveLoopsAndProcedures) {
    expectPrinted(R"(For i As Integer = 1 To 3
  Dim text As String = "in " & i
  While True
    If i = 2 Then Continue For
    Exit While
  Wend
  Do
    If i = 3 Then Exit For
    Exit Do
  Loop
  Print text '> in 1
Next
Function Tried(n As Integer) As Integer
  For Each i As Integer In Array(1, 2, 3)
    Try
      If i = n Then Return i * 10
      Continue
    Finally
      Print "finally", i '> finally 1 | finally 2
    End Try
  Next
  Return -1
End Function
Print Tried(2) '> 20
Function Decided() As String
  Try
    Raise New RuntimeException("lost")
  Finally
    Return "kept"
  End Try
End Function
Print Decided() '> kept
If True Then Return
Print "behind the end")");
}

TEST(Statements, Catch) {
    expectPrinted(R"(Dim v() As Double
For i As Integer = 1 To 3
  Try
    If i = 1 Then v(5) = 1
    If i = 2 Then Print 1 \ 0
    Print "quiet" '> OutOfBoundsException: The index 5 is used on an empty array. The index 5 is used on an empty array. | other DivideByZeroException: Division by zero. | quiet
  Catch e As OutOfBoundsException
    Print e, e.Message
  Catch e As RuntimeException
    Print "other", e
  End Try
Next
Try
  Try
    Print 1 Mod 0
  Finally
    Print "inner" '> inner
  End Try
  Print "skipped"
Catch
  Print "caught" '> caught
Finally
  Print "outer" '> outer
End Try
Try
  Print "well" '> well
Finally
  Print "last" '> last
End Try
Try
  Try
    Print 1 Mod 0
  Catch e As DivideByZeroException
    Dim p As Probe
    Print p.Number
  Finally
    Print "finally" '> finally
  End Try
Catch e As NilObjectException
  Print e.Message '> A member of Nil was used.
End Try)");
}

TEST(Statements, ThatRaise) {
    const std::pair<const char*, const char*> cases[] = {
        {"p.Number = 1", "NilObjectException: A member of Nil was used."},
        {"Print p.description", "NilObjectException: A member of Nil was used."},
        {"Print p.successor", "NilObjectException: A member of Nil was used."},
        {"Print none(0)", "NilObjectException: An array that is Nil was used."},
        {"For Each d As Double In none : Next", "NilObjectException: "},
        {"Dim texts() As String = Nil : Print Join(texts)", "NilObjectException: "},
        {"Print v(-1)", "OutOfBoundsException: The index -1 is outside the range 0 to 1."},
        {"v.Insert(3, 5)", "OutOfBoundsException: "},
        {"ReDim v(-2)", "OutOfBoundsException: "},
        {"Print Chr(&hD800)", "OutOfBoundsException: "},
        {"Print Chr(-1)", "OutOfBoundsException: "},
        {"Print Len(Repeat(\"abc\", 1000000000))", "OutOfMemoryException: "},
        {"For j As Integer = 1 To 2 Step UBound(v) - 1 : Next", "RuntimeException: "},
        {"p = Probe.echo(\"text\")", "TypeMismatchException: The variant holds String, not Probe."},
        {"v(0) = Probe.echo(\"text\")", "TypeMismatchException: The variant holds String, not Double."},
        {"v = Probe.echo(m)", "TypeMismatchException: The variant holds MemoryBlock, not Double()."},
        {"p = Probe.echo(m)", "IllegalCastException: The variant holds MemoryBlock, not Probe."},
        {"m.Byte(4) = 1", "OutOfBoundsException: 1 bytes from offset 4 are not inside a memory block of 4 bytes."},
        {"Print m.Byte(4)", "OutOfBoundsException: 1 bytes from offset 4 are not inside a memory block of 4 bytes."},
        {"Print m.Byte(-1)", "OutOfBoundsException: 1 bytes from offset -1 are not inside a memory block of 4 bytes."},
        {"Print m.DoubleValue(0)", "OutOfBoundsException: 8 bytes from offset 0 are not inside a memory block of 4 bytes."},
        {"Print m.StringValue(1, most)", "OutOfBoundsException: "},
        {"m.Size = -1", "OutOfBoundsException: A memory block cannot have -1 bytes."},
        {"Print f.ReadBytes.Size", "IOException: \"/no/such/file\" cannot be read."},
        {"f.Delete", "IOException: \"/no/such/file\" cannot be removed."},
        {"f.WriteBytes(m)", "IOException: \"/no/such/file\" cannot be written."}};
    for (const auto& [statement, message] : cases) {
        const Outcome outcome = runProgram(std::string(R"(Dim none() As Double = Probe.echo(Nil)
Dim p As Probe, v(1) As Double, m As New MemoryBlock(4), most As Integer = 1e300
Dim f As New FolderItem("/no/such/file")
Try
)") + statement + "\nCatch e As RuntimeException\nPrint e & \": \" & e.Message\nEnd Try");
        EXPECT_EQ(outcome.output.substr(0, std::string(message).size()), message) << statement << outcome.errors;
    }
}

TEST(Statements, Procedures) {
    expectPrinted(R"(Function Kind(value As Integer) As String
  Return "integer"
End Function
Function Kind(value As String) As String
  Return "text"
End Function
Print Kind(1), Kind("x") '> integer text
Sub Swap(ByRef a As String, ByRef b As String)
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
Print x, y '> y (z, x)
Sub Fail(ByRef a As Integer)
  a = 7
  Raise New RuntimeException("failed")
End Sub
Dim v() As Integer = Array(1, 2)
Try
  Fail v(1)
Catch e As RuntimeException
  Print v, e.Message '> (1, 7) failed
End Try
Dim count As Integer = 1
Dim hidden As String = "program"
Sub Add(amount As Integer = -2 + 7)
  Dim hidden As Integer = amount
  count = count + hidden
End Sub
Add
Add()
Print count, hidden '> 11 program
Function Factorial(n As Integer) As Double
  Dim below As Integer = n - 1
  If n > 1 Then
    Dim rest As Double = Factorial(below)
    Return (below + 1) * rest
  End If
  Return 1
End Function
Print Factorial(5), Factorial(20) '> 120 2432902008176640000
Function Down(n As Integer, o As Probe) As Integer
  Return Down(n + 1, o) + 1
End Function
For i As Integer = 1 To 2
  Try
    Print Down(0, Probe.make(1))
  Catch e As StackOverflowException
    Print "too deep" '> too deep | too deep
  End Try
Next
Function Pick(o As Probe) As Probe
  Dim other As Probe = Probe.make(2)
  If o.number = 1 Then Return other
  Return o
End Function
Print Pick(Probe.make(1)).number, Pick(Probe.make(3)).number '> 2 3)");
}

TEST(Statements, LinesAreReadInEveryForm) {
    const std::pair<const char*, const char*> cases[] = {
        {"' first\n// second\nRem third\nPrint 1 ' behind\nPrint 8 / 2 // behind\nPrint \"'//Rem\" Rem behind\n",
         "1\n4\n'//Rem\n"},
        {"Dim remark As Integer = 5 : Print remark", "5\n"},
        {"Print 1 + _\n  2, _ ' with a comment\n  3\r\nPrint 4 _\r\n + 5", "3 3\n9\n"},
        {"Print 1\rPrint 2\r\nPrint 3\n\n\n", "1\n2\n3\n"},
        {"\xEF\xBB\xBFPrint 1", "1\n"},
        {"", ""}};
    for (const auto& [program, output] : cases)
        EXPECT_EQ(runProgram(program).output, output) << program;
}

} // namespace
