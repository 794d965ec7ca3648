' Numbers: a double prints in the shortest form that reads back the same, with an exponent only far from 1.
Print 0.1, 0.1 + 0.2, 1 / 3 '> 0.1 0.30000000000000004 0.3333333333333333
Print 100000.0, 123456789012345.0, 1e15, 0.00001, 0.000001, -0.0 '> 100000 123456789012345 1e+15 0.00001 1e-06 -0
Print 1 / 0, -1 / 0, 0 / 0 = 0 / 0 '> inf -inf False
Dim up = Integer(2.9), down = Integer(-2.9), none = Integer(0 / 0), most As Integer = 1e300
Print up, down, none, most > 2147483646, most < 0 '> 2 -2 0 True False
Dim number As Integer = &hFF8000, c As Color = number
number = c
c = c + 1
Print c, number = 16744448, c And &hFF, c <> number '> #FF800100 True 1 True
Dim big As Integer = 1
For i As Integer = 1 To 30
  big = big * 2
Next
Dim lowest As Integer = -big * 2
If lowest + lowest <> 0 Then lowest = lowest * big * 4 ' 64 bits
Print lowest < 0, lowest - 1 > 0, lowest \ -1 = lowest, lowest Mod -1, Abs(lowest) = lowest '> True True True 0 True
