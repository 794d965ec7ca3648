' Variables: their start values, their blocks, names in any case.
Dim i, j As Integer, d As Double
Dim s As String, b As Boolean, c As Color, o As Probe
Print i, j, d, s, b, c, o '> 0 0 0  False #00000000 Nil
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
Print p.next.number '> 5
