' Objects, arrays and variants as values.
Dim none As Probe
Print New Probe(1), none, New OutOfBoundsException '> probe 1 Nil OutOfBoundsException
Dim doubles(1) As Double, names() As String
doubles(1) = 0.5
Print doubles, names, Probe.row(2) '> (0, 0.5) () (probe 0, probe 1)
Dim v As Variant = 1.5
Print v '> 1.5
v = "text"
Print v, Probe.echo(#0000FF), Probe.echo(Nil), Probe.echo(Probe.make(1)) '> text #0000FF Nil probe 1
Print Probe.echo(True), Probe.echo(doubles), Probe.echo(-7), Probe.echo(0.25) '> True (0, 0.5) -7 0.25
Print Integer(3.7), String(12) + String(v), Double(3) / 2 '> 3 12text 1.5
v = 3
Dim d As Double = v
Dim p As Probe = Probe.echo(Probe.make(8))
Print d, p.Number, Probe(Probe.echo(p)).Number '> 3 8 8
Dim whole() As Integer = Array(1, 2)
Dim colors() As Color = Array(1, #FF0000)
Dim anything() As Variant = Array(1, "a", Nil)
Dim empty() As String = Array()
Print whole, colors, anything, empty '> (1, 2) (#00000100, #FF0000) (1, a, Nil) ()
Print Array(1, 2.5), Array("a", 1), Array(Nil, New MemoryBlock(1)).Count, Array(Nil, p)(1).number '> (1, 2.5) (a, 1) 2 8
