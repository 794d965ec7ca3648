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
' Variants are equal if their values are, by the rule for keys of a Dictionary.
Dim two As Variant = 2, same As Variant = 2, word As Variant = "two", other As Variant = "tw" + "o", nan As Variant = Sqrt(-1)
Print two = same, two <> same, two = 2, 2.0 = two, word = other, word = "two", word = "Two", two Is same '> True False True True True True False True
Print two = "2", two = True, two = Nil, nan = nan, two = #00000200, p = Probe.echo(p), p = Probe.echo(New Probe(8)) '> False False False False True True False
Print anything.IndexOf("a"), anything.IndexOf(1.0), anything.IndexOf(Nil), anything.IndexOf(2), Array(p, 0.5).IndexOf(p) '> 1 0 2 -1 0
For Each value As Variant In Array("two", 2.0, #00000300, Nil)
  Select Case value
  Case 1, "two"
    Print "text" '> text
  Case two, 3
    Print "number" '> number | number
  Case Else
    Print "else" '> else
  End Select
Next
