' Colour spaces: the named ones, one read from an ICC profile, and a colour carried from space to space.
'   ./run examples/spaces.bas

' A profile file to read. sRGB hands out its profile; a host program would have one on disk already.
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

Print "A file that is gone gives Nil: ", NSColorSpaceZRX.ColorSpaceWithICCProfileData(file) Is Nil

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
