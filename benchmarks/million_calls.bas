' A million calls of getRGB from a loop. Time it with: time ./run benchmarks/million_calls.bas
Dim c As New NSColorZRX(1, 0.5, 0)
Dim r, g, b As Double
For i As Integer = 1 To 1000000
    c.getRGB(r, g, b)
Next
Print r, g, b
