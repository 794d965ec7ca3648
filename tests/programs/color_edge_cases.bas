' How colours treat unusual values, and how each kind of colour is read. Components have single precision,
' whatever the platform's precision is.

Dim infinity As Double = 1e308 * 10
Dim rgbSpace As NSColorSpaceZRX = NSColorSpaceZRX.genericRGBColorSpace
Dim warm As New NSColorZRX(1, 0.5, 0.25, 0.75)
Dim noColor As NSColorZRX
Dim noSpace As NSColorSpaceZRX

Function TextOf(e As RuntimeException) As String
    If TypeOf e Is NSExceptionZRX Then Return NSExceptionZRX(e).name
    If TypeOf e Is OutOfBoundsException Then Return "OutOfBoundsException " & e.Message & Str(e.ErrorNumber)
    If TypeOf e Is NilObjectException Then Return "NilObjectException " & e.Message & Str(e.ErrorNumber)
    Return e.Message
End Function

Function TextOf(c As NSColorZRX) As String
    If c Is Nil Then Return "nil"
    Dim text As String = c.colorSpaceName
    For Each component As Double In c.Components
        text = text & " "
        If component = component Then text = text & Str(component) Else text = text & "NaN"
    Next
    Return text & " " & Str(c.colorValue)
End Function

Function InSpace(count As Integer) As NSColorZRX
    Dim values() As Double
    For i As Integer = 1 To count
        values.Append 0.1
    Next
    Return NSColorZRX.colorWithColorSpace(rgbSpace, values)
End Function

' Nil after the last colour.
Function ColorNumber(which As Integer) As NSColorZRX
    Dim none() As Double = Nil
    If which = 0 Then Return New NSColorZRX(-1, 2, 1 / 3, 7)
    If which = 1 Then Return New NSColorZRX(infinity - infinity, 0.999, 0.1)
    If which = 2 Then Return New NSColorZRX(2.0000001, 0, 0)
    If which = 3 Then Return New NSColorZRX(0, 2.0000001, 0)
    If which = 4 Then Return New NSColorZRX(0, 0, infinity)
    If which = 5 Then Return New NSColorZRX(-1.0000000000000003, 0, 0)
    If which = 6 Then Return New NSColorZRX(0, 0, -1.5)
    If which = 7 Then Return New NSColorZRX(&h01020304)
    If which = 8 Then Return NSColorZRX.colorWithCalibratedRGB(2.5, -0.5, -0.1)
    If which = 9 Then Return NSColorZRX.colorWithSRGB(0.1, 0.2, 0.3, 0.4)
    If which = 10 Then Return NSColorZRX.colorWithDeviceCMYK(0.1, 0.2, 0.3, 0.4, 0.6)
    If which = 11 Then Return NSColorZRX.colorWithColorSpace(noSpace, none)
    If which = 12 Then Return NSColorZRX.colorWithColorSpace(New NSColorSpaceZRX, 0.5, 1)
    If which = 13 Then Return NSColorZRX.colorWithColorSpace(rgbSpace, none)
    If which = 14 Then Return InSpace(0)
    If which = 15 Then Return InSpace(1)
    If which = 16 Then Return InSpace(2)
    If which = 17 Then Return InSpace(4)
    If which = 18 Then Return InSpace(20)
    If which = 19 Then Return InSpace(21)
    If which = 20 Then Return NSColorZRX.colorWithColorSpaceHSV(noSpace, 0, 1, 0.5, 0.25)
    If which = 21 Then Return warm.blendedColorWithFraction(0.25, NSColorZRX.blueColor)
    If which = 22 Then Return warm.blendedColorWithFraction(0.5, noColor)
    If which = 23 Then Return warm.colorUsingColorSpaceName("no such space")
    If which = 24 Then Return NSColorZRX.colorWithDeviceWhite(0.5, 0.75).colorUsingColorSpaceName("")
    If which = 25 Then Return warm.colorUsingColorSpace(noSpace)
    If which = 26 Then Return warm.colorWithAlphaComponent(0.1)
    Return warm
End Function

For i As Integer = 0 To 27
    Try
        Print i, TextOf(ColorNumber(i))
    Catch e As RuntimeException
        Print i, TextOf(e)
    End Try
Next
Dim disabled As NSColorZRX = NSColorZRX.disabledControlTextColor
Print disabled.alphaComponent, disabled.shadowWithLevel(0) Is disabled, disabled.shadowWithLevel(1) Is NSColorZRX.shadowColor
Print NSColorZRX.redColor Is NSColorZRX.redColor, warm.colorSpace Is warm.colorSpace, Left(warm.description, 27)

Function Rounded(ParamArray numbers As Double) As String
    Dim text As String
    For Each number As Double In numbers
        text = text & " " & Format(Round(number * 10000) / 10000, "0.####")
    Next
    Return text
End Function

' No output keeps its previous value.
Sub Read(c As NSColorZRX, form As Integer)
    Dim x As Double = 9, y As Double = 9, z As Double = 9, u As Double = 9, w As Double = 9
    Try
        If form = 0 Then c.getRGB(x, y, z)
        If form = 1 Then c.getRGB(x, y, z, u)
        If form = 2 Then c.getHSV(x, y, z)
        If form = 3 Then c.getHSV(x, y, z, u)
        If form = 4 Then c.getWhite(x)
        If form = 5 Then c.getWhite(x, y)
        If form = 6 Then c.getCMYK(x, y, z, u)
        If form = 7 Then c.getCMYK(x, y, z, u, w)
        Print "   ", form & Rounded(x, y, z, u, w)
    Catch e As RuntimeException
        Print "   ", form & Rounded(x, y, z, u, w), TextOf(e)
    End Try
End Sub

For Each c As NSColorZRX In Array(warm, NSColorZRX.colorWithCalibratedWhite(0.5, 0.75), NSColorZRX.colorWithDeviceCMYK(0.25, 0.5, 0.75, 0.125, 0.5))
    Print TextOf(c), c.numberOfComponents
    Print "   " & Rounded(c.redComponent, c.greenComponent, c.blueComponent, c.hueComponent, c.saturationComponent, c.brightnessComponent)
    Print "   " & Rounded(c.whiteComponent, c.cyanComponent, c.magentaComponent, c.yellowComponent, c.blackComponent, c.alphaComponent)
    For form As Integer = 0 To 7
        Read c, form
    Next
Next
