' Arrays: created, changed, shared, and of objects.
Dim v(2) As Integer, w() As String
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
Print probes, probes(0).number, probes(1).number '> (probe 2, probe 3, Nil) 2 3

' An array inside itself, directly or indirectly.
Dim inner() As Variant = Array(1), outer() As Variant = Array(inner, inner)
inner.Append outer
Print outer, inner '> ((1, (...)), (1, (...))) (1, ((...), (...)))
inner.Pop
outer.Append outer
Print outer '> ((1), (1), (...))
outer.Pop
inner.Pop
