' Calls of plugin classes with every form of arguments.
Dim p As New Probe(6)
Dim colored As New Probe(#000009)
Dim a, b, c As Double
Print p.Number, colored.Number, (New Probe(1, 0.5, 4)).Number, (New Probe(1.5, 1.5)).Number, (New Probe).Number '> 6 9 6 3 0
Print Probe.blueOf(&hFF0102), Probe.blueOf(RGB(1, 2, 3)), Probe.make(#00000700).Number '> 2 3 7
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
Print TypeOf p Is Probe, TypeOf r Is OutOfBoundsException, TypeOf r Is NilObjectException, TypeOf r Is Object '> True True False True
Print TypeOf colored.Next Is Probe, OutOfBoundsException(r).ErrorNumber, r.Message '> False 3 text
