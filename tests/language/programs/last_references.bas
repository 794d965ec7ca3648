' The last reference destroys an object, which is reported as "-" and its number.
If True Then
  Dim a As New Probe(1)
  Dim b As New Probe(2)
  Print a.Number & b.Number & Probe.events '> 12
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
  If p.Number <> i Then Print "never"
Next
Print Probe.events '> -1-2
For Each p As Probe In Probe.row(2)
  p = Nil
Next
Print Probe.events '> -0-1
Dim held As Variant = New Probe(1)
Print "held" & Probe.events '> held
held = 3
Print Probe.events '> -1
