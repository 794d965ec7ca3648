' Angles are in radians. Outside its domain a function returns not-a-number, whose sign is not shown.
Print Round(1e6 * (Sin(Pi / 6) + Cos(Pi / 3) + Tan(Pi / 4))), Round(1e6 * ATan(1) * 4), Round(6 * ASin(0.5) / Pi) '> 2000000 3141593 1
Print Round(6 * ACos(0.5) / Pi), Round(4 * ATan2(1, -1) / Pi), Round(4 * ATan2(-1, -1) / Pi) '> 2 3 -3
Print Round(1e6 * Exp(1)), Log(Exp(2)), Log10(1000), Log(0), Log(-1), ASin(2), 0 / 0, -(0 / 0), Str(0 / 0) '> 2718282 2 3 -inf nan nan nan nan nan
Print 7.5 Mod 2, -7.5 Mod 2, 7 Mod 2.5, 7 Mod 2, 1.5 Mod 0 '> 1.5 -1.5 2 1 nan
' A number that Print shows as a half is a half: Format rounds it away from 0, as Round does.
Print Round(2.5), Format(2.5, "0"), Format(-2.5, "0"), Format(1.005, "0.00"), Format(0.285, "0%"), Format(0.125, "0.##") '> 3 3 -3 1.01 29% 0.13
Print Format(9.995, "0.00"), Format(99.5, "#"), Format(0.4, "#") & ".", Format(-0.004, "0.00"), Format(-(0 / 0), "0") '> 10.00 100 . 0.00 nan
' The 10,000th number of the generator for this seed is published: 9981545732273789042.
RandomSeed 5489
For i As Integer = 1 To 9999
  Dim skipped As Double = Random
  If skipped < 0 Or skipped >= 1 Then Print "beyond"
Next
Print Random '> 0.5411006783847329
RandomSeed 5489
For i As Integer = 1 To 9999
  Dim skipped As Integer = RandomInRange(-2, 2)
  If skipped < -2 Or skipped > 2 Then Print "beyond"
Next
Print RandomInRange(1, 1000000), RandomInRange(-3, -3) '> 789043 -3
Try
  Print RandomInRange(2, 1)
Catch e As OutOfBoundsException
  Print e.Message '> There is no integer from 2 to 1.
End Try
