' Pattern colours, the pasteboard, and colours derived from colours.
'   ./run examples/pattern.bas

Dim image As New NSImageZRX(8, 8, NSColorZRX.orangeColor)
Dim pattern As NSColorZRX = NSColorZRX.colorWithPatternImage(image)
Print "pattern: " & pattern.colorSpaceName
Print "patternImage returns the same image: ", pattern.patternImage Is image
Print "a pattern cannot be converted: ", pattern.colorUsingColorSpaceName("NSCalibratedRGBColorSpace") Is Nil
Try
    Print pattern.numberOfComponents
Catch e As NSExceptionZRX
    Print "and has no components: " & e.name
End Try

Dim red As NSColorZRX = NSColorZRX.redColor
Print "half red:   " & red.colorWithAlphaComponent(0.5).description
Print "red + blue: " & red.blendedColorWithFraction(0.5, NSColorZRX.blueColor).description
Print "shadow:     " & red.shadowWithLevel(0.5).description
Print "highlight:  " & red.highlightWithLevel(0.5).description
Print "redColor is one object: ", NSColorZRX.redColor Is red

red.writeToPasteboard
Print "pasteboard: " & NSColorZRX.colorFromPasteboard.description
