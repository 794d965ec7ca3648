' A palette of equal steps in OKLCH: lightness, chroma and hue as people perceive them. Colours that sRGB cannot show get less
' chroma until they fit, and keep their lightness and hue.
'   ./run examples/oklch.bas

Const Steps = 8
Const WantedChroma = 0.15

For Each lightness As Double In Array(0.85, 0.65, 0.45)
    Print "lightness " & lightness
    For i As Integer = 0 To Steps - 1
        Dim hue As Double = 360 * i / Steps
        Dim strength As Double = Shown(lightness, WantedChroma, hue)
        Dim c As NSColorZRX = FromOKLCH(lightness, strength, hue)
        Print "  hue " & Right("  " & hue, 3) & "  chroma " & Format(strength, "0.000") & "  " & Written(c)
    Next
Next

' The other direction: the web's pure colours in OKLCH.
For Each name As String In Array("red", "yellow", "lime", "cyan", "blue", "magenta", "white")
    Dim value As Color = Color(name)
    Dim red As Integer = (value And &hFF0000) \ &h10000, green As Integer = (value And &hFF00) \ &h100
    Dim c As NSColorZRX = NSColorZRX.colorWithSRGB(red / 255, green / 255, (value And &hFF) / 255)
    Print name & ": " & InOKLCH(c)
Next

' Returns the greatest chroma, up to the wanted one, that sRGB can show, to a thousandth.
Function Shown(lightness As Double, chroma As Double, hue As Double) As Double
    Dim most As Double = chroma
    While most > 0 And Not IsShown(Linear(lightness, most, hue))
        most -= 0.001
    Wend
    Return Max(most, 0)
End Function

Function IsShown(light() As Double) As Boolean
    Const Allowance = 0.0001
    For Each part As Double In light
        If part < -Allowance Or part > 1 + Allowance Then Return False
    Next
    Return True
End Function

Function FromOKLCH(lightness As Double, chroma As Double, hue As Double) As NSColorZRX
    Dim light() As Double = Linear(lightness, chroma, hue)
    Return NSColorZRX.colorWithSRGB(Encoded(light(0)), Encoded(light(1)), Encoded(light(2)))
End Function

' Returns red, green and blue as linear light; below 0 or above 1 outside sRGB.
Function Linear(lightness As Double, chroma As Double, hue As Double) As Double()
    Dim a As Double = chroma * Cos(hue * Pi / 180), b As Double = chroma * Sin(hue * Pi / 180)
    Dim l As Double = (lightness + 0.3963377774 * a + 0.2158037573 * b) ^ 3
    Dim m As Double = (lightness - 0.1055613458 * a - 0.0638541728 * b) ^ 3
    Dim s As Double = (lightness - 0.0894841775 * a - 1.2914855480 * b) ^ 3
    Return Array(4.0767416621 * l - 3.3077115913 * m + 0.2309699292 * s, _
                 -1.2684380046 * l + 2.6097574011 * m - 0.3413193965 * s, _
                 -0.0041960863 * l - 0.7034186147 * m + 1.7076147010 * s)
End Function

Function InOKLCH(c As NSColorZRX) As String
    Dim red, green, blue, alpha As Double
    c.colorUsingColorSpace(NSColorSpaceZRX.sRGBColorSpace).getRGB red, green, blue, alpha
    red = Decoded(red)
    green = Decoded(green)
    blue = Decoded(blue)
    Dim l As Double = (0.4122214708 * red + 0.5363325363 * green + 0.0514459929 * blue) ^ (1 / 3)
    Dim m As Double = (0.2119034982 * red + 0.6806995451 * green + 0.1073969566 * blue) ^ (1 / 3)
    Dim s As Double = (0.0883024619 * red + 0.2817188376 * green + 0.6299787005 * blue) ^ (1 / 3)
    Dim lightness As Double = 0.2104542553 * l + 0.7936177850 * m - 0.0040720468 * s
    Dim a As Double = 1.9779984951 * l - 2.4285922050 * m + 0.4505937099 * s
    Dim b As Double = 0.0259040371 * l + 0.7827717662 * m - 0.8086757660 * s
    Dim chroma As Double = Sqrt(a * a + b * b)
    Dim text As String = "oklch(" & Format(lightness, "0.000") & " " & Format(chroma, "0.000") & " "
    If chroma < 0.0005 Then Return text & "none)" ' a grey has no hue
    Return text & Format((ATan2(b, a) * 180 / Pi + 360) Mod 360, "0.0") & ")"
End Function

' Converts between linear light and the number that sRGB stores for it.
Function Encoded(light As Double) As Double
    Dim inside As Double = Min(Max(light, 0), 1)
    Return If(inside <= 0.0031308, 12.92 * inside, 1.055 * inside ^ (1 / 2.4) - 0.055)
End Function

Function Decoded(part As Double) As Double
    Return If(part <= 0.04045, part / 12.92, ((part + 0.055) / 1.055) ^ 2.4)
End Function

Function Written(c As NSColorZRX) As String
    Dim red, green, blue, alpha As Double
    c.getRGB red, green, blue, alpha
    Return Str(RGB(Integer(Round(red * 255)), Integer(Round(green * 255)), Integer(Round(blue * 255))))
End Function
