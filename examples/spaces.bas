' Colour spaces: the named ones, one read from an ICC profile, and a colour converted from space to space.
'   ./run examples/spaces.bas

' A profile file to read. This program writes sRGB's profile; other programs would already have a file.
Dim srgb As NSColorSpaceZRX = NSColorSpaceZRX.sRGBColorSpace
Dim file As New FolderItem("example profile.icc")
file.WriteBytes(srgb.ICCProfileData)

Print "A space from a profile file"
Dim fromFile As NSColorSpaceZRX = NSColorSpaceZRX.ColorSpaceWithICCProfileData(file)
file.Delete
Print "  name        " & fromFile.localizedName
Print "  model       ", fromFile.colorSpaceModel = NSColorSpaceZRX.NSRGBColorSpaceModel
Print "  components  ", fromFile.numberOfColorComponents
Print "  profile     ", fromFile.ICCProfileData.Size, "bytes"

Print "A missing file returns Nil: ", NSColorSpaceZRX.ColorSpaceWithICCProfileData(file) Is Nil

Print "The platform's RGB spaces"
For Each space As NSColorSpaceZRX In NSColorSpaceZRX.availableColorSpacesWithModel(NSColorSpaceZRX.NSRGBColorSpaceModel)
    Print "  " & space.localizedName
Next

Print "One orange in every space"
Dim orange As NSColorZRX = NSColorZRX.colorWithSRGB(1, 0.5, 0)
Dim spaces() As NSColorSpaceZRX
spaces.Append NSColorSpaceZRX.sRGBColorSpace
spaces.Append NSColorSpaceZRX.adobeRGB1998ColorSpace
spaces.Append NSColorSpaceZRX.genericRGBColorSpace
spaces.Append NSColorSpaceZRX.deviceRGBColorSpace
spaces.Append NSColorSpaceZRX.genericGamma22GrayColorSpace
spaces.Append NSColorSpaceZRX.genericGrayColorSpace
spaces.Append NSColorSpaceZRX.deviceGrayColorSpace
spaces.Append NSColorSpaceZRX.genericCMYKColorSpace
spaces.Append NSColorSpaceZRX.deviceCMYKColorSpace
For Each space As NSColorSpaceZRX In spaces
    Dim converted As NSColorZRX = orange.colorUsingColorSpace(space)
    Dim line As String = "  " & space.localizedName & ":"
    For Each component As Double In converted.Components
        line = line & " " & Str(Round(component * 10000) / 10000)
    Next
    Print line
Next

' A printer's profile consists of tables, one for each direction. This one comes with Ghostscript.
Dim printer As New FolderItem("/usr/share/color/icc/ghostscript/default_cmyk.icc")
If printer.Exists Then
    Dim inks As NSColorSpaceZRX = NSColorSpaceZRX.ColorSpaceWithICCProfileData(printer)
    Dim printed As NSColorZRX = orange.colorUsingColorSpace(inks)
    Print "The orange as inks in percent, and converted back to sRGB in 255ths"
    Print "  " & inks.localizedName & ": " & Levels(printed, 100)
    Print "  and back: " & Levels(printed.colorUsingColorSpace(NSColorSpaceZRX.sRGBColorSpace), 255)
Else
    Print "This system has no printer's profile: ", printer.Name
End If

Function Levels(c As NSColorZRX, full As Integer) As String
    Dim text As String
    Dim components() As Double = c.Components
    For i As Integer = 0 To UBound(components) - 1 ' alpha is the last
        text = text & Str(Round(components(i) * full)) & " "
    Next
    Return Trim(text)
End Function
