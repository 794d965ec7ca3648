' Procedures: overloads, references, defaults, depth.
Function Kind(value As Integer) As String
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
Print Pick(Probe.make(1)).number, Pick(Probe.make(3)).number '> 2 3
