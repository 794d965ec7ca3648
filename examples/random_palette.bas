' A random palette that a seed reproduces: hues far from each other, by the golden angle, from a random one on, with random
' saturation and brightness.
'   ./run examples/random_palette.bas          with the seed 2017
'   ./run examples/random_palette.bas -- 42 8  with a seed and a number of colours

Dim given() As String = Arguments
Dim seed As Integer = 2017, count As Integer = 6
If given.Count > 0 Then seed = Integer(given(0))
If given.Count > 1 Then count = Integer(given(1))
RandomSeed seed
Print "seed " & seed

Const GoldenAngle = 0.381966 ' of a turn: its multiples never come close to each other
Dim hue As Double = Random
For i As Integer = 1 To count
    Dim c As NSColorZRX = NSColorZRX.colorWithColorSpaceHSV(NSColorSpaceZRX.sRGBColorSpace, hue, 0.45 + 0.4 * Random, 0.6 + 0.35 * Random)
    Print "  " & Literal(c) & "  hue " & Format(360 * c.hueComponent, "0")
    hue = (hue + GoldenAngle) Mod 1
Next
Print "throws of two dice: ", RandomInRange(1, 6) + RandomInRange(1, 6), RandomInRange(1, 6) + RandomInRange(1, 6)

Function Literal(c As NSColorZRX) As String
    Return Str(RGB(Level(c.redComponent), Level(c.greenComponent), Level(c.blueComponent)))
End Function

Function Level(part As Double) As Integer
    Return Round(part * 255)
End Function
