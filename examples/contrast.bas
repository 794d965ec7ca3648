' The contrast of each of the system's text colours on each of its backgrounds, as the contrast ratio of the Web Content
' Accessibility Guidelines: 4.5 for text (AA), 7 for comfort (AAA), 3 for large text only.
'   ./run examples/contrast.bas

Dim texts As New Dictionary
texts.Value("text") = NSColorZRX.textColor
texts.Value("control text") = NSColorZRX.controlTextColor
texts.Value("disabled control text") = NSColorZRX.disabledControlTextColor
texts.Value("selected text") = NSColorZRX.selectedTextColor
texts.Value("selected control text") = NSColorZRX.selectedControlTextColor
texts.Value("alternate selected text") = NSColorZRX.alternateSelectedControlTextColor
texts.Value("selected menu item") = NSColorZRX.selectedMenuItemTextColor
texts.Value("window frame text") = NSColorZRX.windowFrameTextColor
texts.Value("header text") = NSColorZRX.headerTextColor

Dim backgrounds As New Dictionary
backgrounds.Value("text") = NSColorZRX.textBackgroundColor
backgrounds.Value("control") = NSColorZRX.controlBackgroundColor
backgrounds.Value("window") = NSColorZRX.windowBackgroundColor
backgrounds.Value("selected text") = NSColorZRX.selectedTextBackgroundColor
backgrounds.Value("selection") = NSColorZRX.selectedControlColor
backgrounds.Value("other selection") = NSColorZRX.secondarySelectedControlColor
backgrounds.Value("alternate selection") = NSColorZRX.alternateSelectedControlColor
backgrounds.Value("menu item") = NSColorZRX.selectedMenuItemColor
backgrounds.Value("header") = NSColorZRX.headerColor

Dim counts As New Dictionary ' of pairs, by their grade
For Each background As Variant In backgrounds
    Print "on " & background
    For Each text As Variant In texts
        Dim ratio As Double = Contrast(NSColorZRX(texts.Value(text)), NSColorZRX(backgrounds.Value(background)))
        Dim grade As String = Graded(ratio)
        counts.Value(grade) = Integer(counts.Lookup(grade, 0)) + 1
        Print "  " & Padded(String(text), 24) & Right("    " & Format(ratio, "0.00"), 6) & "  " & grade
    Next
Next
Print "Of " & (texts.Count * backgrounds.Count) & " pairs:"
For Each grade As Variant In counts
    Print "  " & Padded(String(grade), 16) & counts.Value(grade)
Next

Function Graded(ratio As Double) As String
    Select Case ratio
    Case Is >= 7
        Return "AAA"
    Case Is >= 4.5
        Return "AA"
    Case Is >= 3
        Return "large text only"
    Case Else
        Return "too little"
    End Select
End Function

' Returns 1 for equal colours up to 21 for black on white. A translucent text counts as its mixture with the background.
Function Contrast(text As NSColorZRX, background As NSColorZRX) As Double
    Dim white() As Double = Array(1.0, 1.0, 1.0)
    Dim below() As Double = LaidOver(background, white)
    Dim a As Double = Luminance(LaidOver(text, below)), b As Double = Luminance(below)
    Return (Max(a, b) + 0.05) / (Min(a, b) + 0.05)
End Function

' Returns the red, green and blue in sRGB of a colour over an opaque one.
Function LaidOver(c As NSColorZRX, below() As Double) As Double()
    Dim red, green, blue, alpha As Double
    c.colorUsingColorSpace(NSColorSpaceZRX.sRGBColorSpace).getRGB red, green, blue, alpha
    Dim mixed() As Double = Array(red, green, blue)
    For i As Integer = 0 To 2
        mixed(i) = mixed(i) * alpha + below(i) * (1 - alpha)
    Next
    Return mixed
End Function

' Returns the luminance of a colour, from 0 to 1, as the guidelines compute it from the components of sRGB.
Function Luminance(parts() As Double) As Double
    Dim weights() As Double = Array(0.2126, 0.7152, 0.0722), sum As Double
    For i As Integer = 0 To 2
        sum += weights(i) * If(parts(i) <= 0.04045, parts(i) / 12.92, ((parts(i) + 0.055) / 1.055) ^ 2.4)
    Next
    Return sum
End Function

Function Padded(text As String, width As Integer) As String
    Return text & Repeat(" ", width - Len(text))
End Function
