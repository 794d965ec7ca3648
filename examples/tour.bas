' A tour of NSColorZRX: colours are created, read back in every form, and refused.
'   ./run                                    in the 64-bit host
'   ./run --m32                              in the 32-bit host
'   ./run --host-version 2011.0              on a host of that version

Dim r, g, b, a As Double
Dim h, s, v As Double
Dim c, m, y, k As Double
Dim w As Double

Print "1. From a host colour value. Its fourth byte is alpha: FF, as in #FF8000, is opaque, 00 transparent."
Dim orange As New NSColorZRX(#FF8000)
Print "   " & orange.description
orange.getRGB(r, g, b)
Print "   getRGB without alpha", r, g, b
orange.getRGB(r, g, b, a)
Print "   getRGB with alpha   ", r, g, b, a
orange.getHSV(h, s, v)
Print "   getHSV without alpha", h, s, v
orange.getHSV(h, s, v, a)
Print "   getHSV with alpha   ", h, s, v, a
Dim unseen As New NSColorZRX(#FF800000)
Print "   alpha of #FF800000 ", unseen.alphaComponent

Print "2. From components, kept in single precision."
Dim teal As New NSColorZRX(0.1, 0.5, 0.5, 0.25)
Print "   " & teal.description
Print "   redComponent        ", teal.redComponent
Print "   numberOfComponents  ", teal.numberOfComponents
Print "   colorSpaceName      ", teal.colorSpaceName
Dim parts() As Double = teal.Components
For i As Integer = 0 To UBound(parts)
    Print "   Components(" & Str(i) & ")       ", parts(i)
Next

Print "3. colorValue truncates each channel and ignores alpha."
Print "   0.1, 0.5, 0.5, 0.25 ", teal.colorValue
Dim almost As New NSColorZRX(0.999, 0.999, 0.999)
Print "   0.999, 0.999, 0.999 ", almost.colorValue

Print "4. A grey colour has no red. Reading it with alpha converts it, reading it without alpha raises."
Dim grey As NSColorZRX = NSColorZRX.colorWithCalibratedWhite(0.5, 0.75)
grey.getWhite(w)
Print "   getWhite            ", w
grey.getWhite(w, a)
Print "   getWhite with alpha ", w, a
grey.getRGB(r, g, b, a)
Print "   getRGB with alpha   ", r, g, b, a
Try
    grey.getRGB(r, g, b)
    Print "   this line is never reached"
Catch e As RuntimeException
    Print "   getRGB without alpha raises: " & e.Message
    Print "   and leaves          ", r, g, b
End Try
Print "   redComponent does not raise:", grey.redComponent

Print "5. CMYK, with and without alpha."
Dim ink As NSColorZRX = NSColorZRX.colorWithDeviceCMYK(1, 0.5, 0, 0.25)
ink.getCMYK(c, m, y, k)
Print "   getCMYK             ", c, m, y, k
ink.getCMYK(c, m, y, k, a)
Print "   getCMYK with alpha  ", c, m, y, k, a

Print "6. Components out of range are refused. The object stays empty, and a second call is refused too."
Dim blank As New NSColorZRX
For attempt As Integer = 1 To 2
    Try
        blank.Constructor(2.5, 0, 0)
    Catch e As OutOfBoundsException
        Print "   OutOfBoundsException: " & e.Message
    End Try
Next
Print "   colorValue and Components of the empty object:", blank.colorValue, UBound(blank.Components)

Print "7. An object that holds a colour keeps it."
Try
    teal.Constructor(#FFFFFF)
Catch e As UnsupportedOperationException
    Print "   UnsupportedOperationException: " & e.Message
End Try
Print "   still " & teal.description

Print "8. The orange in other colour spaces, and their names."
Dim srgb As NSColorSpaceZRX = NSColorSpaceZRX.sRGBColorSpace
Dim inSRGB As NSColorZRX = orange.colorUsingColorSpace(srgb)
inSRGB.getRGB(r, g, b, a)
Print "   " & srgb.localizedName & ":", r, g, b
Print "   " & NSColorSpaceZRX.genericGrayColorSpace.localizedName & ":", orange.colorUsingColorSpace(NSColorSpaceZRX.genericGrayColorSpace).whiteComponent
Print "   the same space has the same host object:", inSRGB.colorSpace Is srgb
Print "   its profile has     ", srgb.ICCProfileData.Size, "bytes"

Print "9. A colour list keeps colours under keys, in order."
Dim list As New NSColorListZRX
If list.Create("Tour") Then
    list.setColor orange, "orange"
    list.insertColor teal, "teal", 0
    Print "   " & list.name & ": " & list.colorWithKey("teal").description
    Print "   the same colour has the same host object:", list.colorWithKey("orange") Is orange
End If
