' A propagating exception releases objects.
Dim p As Probe
Try
  Dim a As New Probe(1)
  For i As Integer = 2 To 9
    Dim b As New Probe(i)
    Print Probe.make(10).makeAndRaise("OutOfBoundsException").Number, a, b
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
' A by-reference argument is written before the exception propagates.
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
Print d, v(0) '> -1 -1
