// Objects of plugin classes: calls of every shape, and the moment at which each object goes. The class Probe keeps a list of
// the objects that went, each as "-" and its number.
#include "programs.h"

namespace {

TEST(Objects, AreCalledInEveryShape) {
    expectPrinted(R"(Dim p As New Probe(6)
Dim colored As New Probe(&c000009)
Dim a, b, c As Double
Print p.Number, colored.Number, (New Probe(1, 0.5, 4)).Number, (New Probe(1.5, 1.5)).Number, (New Probe).Number '> 6 9 6 3 0
Print Probe.blueOf(&hFF0102), Probe.blueOf(RGB(1, 2, 3)), Probe.make(&c000007).Number '> 2 3 7
p.split a, b
Print a, b '> 6 3
p.split(b, a, c)
Print a, b, c, p.successor.number, p.successor().self().Number '> 3 6 2 7 7
If False Then p.successor Else p.split a, b
Print a, b '> 6 3
Print p.label, p.label(), p.label("x"), p.label("x", True) '> #6 #6 x6 [x6]
Print Probe.make(3).Number, PROBE.kAnswer, Probe.kName, Probe.kAnswer + 1 '> 3 42 Probe 43
Dim v(2) As Double
v(0) = 2
v(1) = 3
Print Probe.sum(1), Probe.sum(2, 1, 2.5, 3), Probe.sum(10, v) '> 0 13 50
p.split v(2), v(0)
Print v '> (3, 3, 6)
p.split(v(1), v(1))
Print v '> (3, 3, 6)
Dim s As String = "a", texts(1) As String
texts(1) = "b"
p.exclaim s
p.exclaim texts(1)
p.exclaim texts(1)
Print s, texts '> a! (, b!!)
p.Number = p.Number * 5
p.Next = p.successor
p.Next.Next = New Probe(40)
Print p.description, p.Next.description, p.Next.Next.Number, p.Next.Next.Next '> probe 30 probe 31 40 Nil
Dim q As Probe = p.self
Dim r As RuntimeException = New OutOfBoundsException("text", 3)
Print p Is q, p = q, p <> p.successor, p Is Nil, colored.Next = Nil '> True True True False True
Print p IsA Probe, r IsA OutOfBoundsException, r IsA NilObjectException, r IsA Object '> True True False True
Print colored.Next IsA Probe, OutOfBoundsException(r).ErrorNumber, r.Message '> False 3 text)");
}

TEST(Objects, GoWithTheLastThatHoldsThem) {
    expectPrinted(R"(If True Then
  Dim a As New Probe(1)
  Dim b As New Probe(2)
  Print "in" & Probe.events '> in
End If
Print Probe.events '> -2-1
Print Probe.make(1).successor.Number & Probe.events '> 2
Print Probe.events '> -2-1
Probe.make(5)
Print Probe.events '> -5
While Probe.make(7).Number = 0
Wend
Print Probe.events '> -7
Dim a As New Probe(1)
a = New Probe(2)
Print Probe.events '> -1
a = a.self
Print "kept" & Probe.events '> kept
a = Nil
Print Probe.events '> -2
Dim v(1) As Probe
v(0) = New Probe(1)
v(1) = v(0)
v(0) = Nil
Print "held" & Probe.events '> held
ReDim v(0)
Print Probe.events '> -1
v.Append New Probe(2)
Dim w() As Probe = v
v = Probe.row(0)
Print "shared" & Probe.events '> shared
w = v
Print Probe.events '> -2
For i As Integer = 1 To 2
  Dim p As New Probe(i)
Next
Print Probe.events '> -1-2
For Each p As Probe In Probe.row(2)
  p = Nil
Next
Print Probe.events '> -0-1
Dim held As Variant = New Probe(1)
Print "held" & Probe.events '> held
held = 3
Print Probe.events '> -1)");
}

TEST(Objects, AreGivenUpByExceptionsOnTheirWay) {
    expectPrinted(R"(Dim p As Probe
Try
  Dim a As New Probe(1)
  For i As Integer = 2 To 9
    Dim b As New Probe(i)
    Print Probe.make(10).makeAndRaise("OutOfBoundsException").Number
  Next
Catch e As OutOfBoundsException
  Print e.Message & Probe.events '> made-99-10-2-1
End Try
Try
  p = New Probe(-1, 0)
Catch e As OutOfBoundsException
  Print e.Message, p, Probe.events '> a is below 0 Nil -0
End Try
Dim e2 As RuntimeException
Try
  Probe.make(1).makeAndRaise "RuntimeException"
Catch e As RuntimeException
  e2 = e
End Try
Print e2, e2.Message '> RuntimeException: made made
' What is given by reference is written before the exception arrives.
Dim d As Double = 5
Dim v(0) As Double
p = New Probe(1)
Try
  p.splitAndRaise d
Catch e As UnsupportedOperationException
End Try
Try
  p.splitAndRaise v(0)
Catch
End Try
Print d, v(0) '> -1 -1)");
}

TEST(Objects, OfTheHostHoldBytes) {
    expectPrinted(R"(Dim m As New MemoryBlock(4)
m.Byte(3) = &h141
Print m.Byte(0), m.Byte(3), m.Size '> 0 65 4
m.Size = 6
Print m.Byte(3), m.Byte(5), m.Size '> 65 0 6
m.Int16Value(0) = -2
Print m.Int16Value(0), m.UInt16Value(0) '> -2 65534
m.LittleEndian = False
Print m.UInt16Value(0) '> 65279
m.SingleValue(0) = 0.5
Print m.SingleValue(0), m.Byte(0) '> 0.5 63
m.StringValue(1, 4) = "abc"
m.StringValue(0, 2) = "abc" ' which is cut, as the other was padded
Print m.StringValue(0, 4), m.Byte(4) '> abbc 0
Dim f As New FolderItem("written by a program")
f.WriteBytes m
Print f.Exists, f.Length, f.ReadBytes.StringValue(0, 4), f.ReadBytes.Size '> True 6 abbc 6
f.Delete
Print f.Exists, f.Name '> False written by a program)");
}

TEST(Objects, OfThePlatformGoAtTheEndOfEveryStatement) {
    expectPrinted(R"(Dim before As Integer = Probe.nativesGone
Print Probe.leaveNative, Probe.nativesGone - before '> True 0
Print Probe.nativesGone - before '> 1
For i As Integer = 1 To 3
  Probe.leaveNative
  Print Probe.nativesGone - before '> 2 | 3 | 4
Next
If Probe.leaveNative Then Print Probe.nativesGone - before '> 5
Dim rounds As Integer
While Probe.leaveNative And rounds < 2
  rounds = rounds + 1
  Print Probe.nativesGone - before '> 6 | 7
Wend
Try
  Print Probe.leaveNative, Probe.make(1).makeAndRaise("IOException")
Catch
  Print Probe.nativesGone - before '> 9
End Try)");
}

} // namespace
