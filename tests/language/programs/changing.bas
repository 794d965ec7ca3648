' Assignments such as +=, and variables with the type of their value.
Dim n = 3, text = "äb", real = 1.5, list() = Array(1, 2, 3)
n += 4
real *= 2
n -= 1
Print n, real '> 6 3
real /= 4
Print real '> 0.75

' The parts of a place are computed once.
Dim calls = 0
Function Turn() As Integer
  calls += 1
  Return calls
End Function
list(Turn()) += 40
Print list, calls '> (1, 42, 3) 1
Dim e As New RuntimeException("a", 7)
e.Message &= "b" & 1
e.ErrorNumber -= 5
Print e.Message, e.ErrorNumber '> ab1 2
Dim block As New MemoryBlock(4)
Function Fresh() As MemoryBlock
  calls += 1
  Return block
End Function
block.Byte(Turn()) += 7
block.Byte(3) -= 1
Fresh().Byte(calls - 1) *= 6
Print block.Byte(0), block.Byte(1), block.Byte(2), block.Byte(3), calls '> 0 0 42 255 3

' Text grows in place if nothing else refers to it.
Dim shared As String = text
text = text & "c" & n & text
text &= 1.5
text += "!"
Print text, shared, Len(text) '> äbc6äb1.5! äb 10
text = text & text
Print Len(text) '> 20
Sub Grow()
  shared &= " grown"
End Sub
Function Grown() As String
  Grow()
  Return "said"
End Function
shared = shared & ":" & Grown() & "."
Print shared '> äb:said.
Dim long As String
For i As Integer = 1 To 200000
  long = long & "€"
Next
Dim found As Integer
For i As Integer = 1 To Len(long)
  If Mid(long, i, 1) = "€" Then found += 1
Next
Print Len(long), found '> 200000 200000

' Characters are found from the last position, in both directions.
Const Mixed = "aä€😀x"
For Each i As Integer In Array(5, 2, 4, 1, 3)
  Print i, Mid(Mixed, i, 1), InStr(Mixed, Mid(Mixed, i, 1)), Asc(Mid(Mixed, i))
  '> 5 x 5 120 | 2 ä 2 228 | 4 😀 4 128512 | 1 a 1 97 | 3 € 3 8364
Next
Print Left(Mixed, 2), Right(Mixed, 2), Mid(Mixed, 5), Mid(Mixed, 6), InStr(3, Mixed & Mixed, "ä") '> aä 😀x x  7
' Texts that change in place: their places, what the change reads, and what they share.
Dim texts() As String = Array("a", "b"), same As String = texts(0)
texts(0) &= "x" & 1
texts(0) += texts(0)
Print texts(0), same '> ax1ax1 a
Dim held As New Dictionary
held.Value("k") = "v"
Dim before As Variant = held.Value("k")
held.Value("k") &= 2
held.Value("k") &= held.Value("k")
Print held.Value("k"), before '> v2v2 v
Dim failure As New RuntimeException("m")
failure.Message &= failure.Message & "!"
Dim various() As Variant = Array(1, Nil)
various(0) &= "q"
various(1) &= various.Count
before &= before
Print failure.Message, various, before '> mm! (1q, Nil2) vv
Function Failing(text As String) As String
  texts(1) = text
  Raise New IOException
End Function
Try
  texts(1) &= Failing("changed")
Catch
  Print texts(1) '> changed
End Try
Dim s As String = "höllo wörld", copy As String = s
s = Mid(s, 2)
s = "x" & Len(s) & s
Print s, Len(s), Mid(s, 4, 2), LenB(s) '> x10öllo wörld 13 öl 15
s = Left(s, Len(s) - 2)
s = Right(s, 5)
s &= "!" & s
Print s, Mid(s, 3), copy, InStr(s, "!") '> o wör!o wör wör!o wör höllo wörld 6
s = Mid(s, 2, 3)
s = s & s & "."
s = "<" & s & s
Print s, Len(s) '> < wö wö. wö wö. 15
s = Mid(s, 99)
s = "a" & s
s = Left(s, -1)
Print Len(s), "[" & s & "]" '> 0 []
