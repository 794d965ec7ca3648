' Uses every member that the three classes declare and prints its result. Numbers have four decimal places, so that platforms of
' single and of double precision print the same. A dash represents a member that raises for the colour.

Function TextOf(ParamArray numbers As Double) As String
    Return Listed(numbers)
End Function

Function Listed(numbers() As Double) As String
    Dim text As String
    For Each number As Double In numbers
        text = text & " " & Format(Round(number * 10000) / 10000, "0.####")
    Next
    Return text
End Function

' The space and the components.
Function TextOf(c As NSColorZRX) As String
    If c Is Nil Then Return " nil"
    Try
        Return " " & c.colorSpaceName & Listed(c.Components)
    Catch e As RuntimeException
        Return " " & c.colorSpaceName & " -"
    End Try
End Function

Function Forms(c As NSColorZRX) As String
    Dim x, y, z, u, w As Double
    Dim text As String
    Try
        c.getCMYK(x, y, z, u, w)
        text = text & " CMYKA" & TextOf(x, y, z, u, w)
        c.getCMYK(x, y, z, u)
        text = text & TextOf(x, y, z, u)
    Catch e As RuntimeException
        text = text & " -" & TextOf(x, y, z, u, w)
    End Try
    Try
        c.getWhite(x, y)
        text = text & " white" & TextOf(x, y)
        c.getWhite(x)
        text = text & TextOf(x)
    Catch e As RuntimeException
        text = text & " -" & TextOf(x, y)
    End Try
    Try
        c.getHSV(x, y, z, u)
        text = text & " HSVA" & TextOf(x, y, z, u)
        c.getHSV(x, y, z)
        text = text & TextOf(x, y, z)
    Catch e As RuntimeException
        text = text & " -" & TextOf(x, y, z)
    End Try
    Try
        c.getRGB(x, y, z, u)
        text = text & " RGBA" & TextOf(x, y, z, u)
        c.getRGB(x, y, z)
        text = text & TextOf(x, y, z)
    Catch e As RuntimeException
        text = text & " -" & TextOf(x, y, z)
    End Try
    Return text
End Function

Function Derived(c As NSColorZRX) As String
    Dim text As String = TextOf(c.colorWithAlphaComponent(0.5)) & TextOf(c.colorUsingColorSpaceName("NSDeviceCMYKColorSpace"))
    text = text & TextOf(c.colorUsingColorSpace(NSColorSpaceZRX.sRGBColorSpace))
    Try
        text = text & TextOf(c.blendedColorWithFraction(0.25, NSColorZRX.redColor))
        text = text & TextOf(c.shadowWithLevel(0.25)) & TextOf(c.highlightWithLevel(0.25))
        text = text & " " & Str(c.numberOfComponents) & " " & c.colorSpace.localizedName
        text = text & Str(c.patternImage Is Nil)
    Catch e As RuntimeException
        text = text & " -"
    End Try
    Return text
End Function

Sub Show(what As String, c As NSColorZRX)
    c.Handle = c.Handle
    Print what & TextOf(c), Left(c.description, 27), c.colorValue, c._exception Is Nil, c.CGColorHandle <> 0, c.CGColorHandle = c.Handle
    Dim rgb As String = TextOf(c.redComponent, c.greenComponent, c.blueComponent, c.hueComponent, c.saturationComponent, c.brightnessComponent)
    Dim others As String = TextOf(c.cyanComponent, c.magentaComponent, c.yellowComponent, c.blackComponent, c.whiteComponent, c.alphaComponent)
    Dim names() As String = Array(c.catalogNameComponent, c.colorNameComponent, c.localizedCatalogNameComponent, c.localizedColorNameComponent)
    Print "   " & rgb & others, Join(names, "/")
    Print "   " & Forms(c)
    Print "   " & Derived(c)
End Sub

Sub Show(what As String, space As NSColorSpaceZRX)
    Dim handle As Integer = space.Handle
    space.Handle = handle
    Dim texts As String = space.localizedName & ", " & space.colorSpaceName & ", " & space.description
    Print what, texts, space.colorSpaceModel, space.numberOfColorComponents, space.ICCProfileData Is Nil, handle <> 0, space.colorSyncProfileHandle <> 0, space.CGColorSpaceHandle = handle
End Sub

Dim parts() As Double = Array(0.25, 1.0)
Show "Constructor", New NSColorZRX(#FF8000)
Show "Constructor", New NSColorZRX(1, 0.5, 0, 0.25)
Show "HSV in a space", NSColorZRX.colorWithColorSpaceHSV(NSColorSpaceZRX.sRGBColorSpace, 0.5, 1, 0.5)
Show "DisplayP3", NSColorZRX.colorWithDisplayP3(0.1, 0.2, 0.3)
Show "scrubber", NSColorZRX.scrubberTexturedBackgroundColor
Show "CMYK in a space", NSColorZRX.colorWithColorSpace(NSColorSpaceZRX.genericCMYKColorSpace, 0.1, 0.2, 0.3, 0.4, 1)
Show "grey in a space", NSColorZRX.colorWithColorSpace(NSColorSpaceZRX.genericGrayColorSpace, parts)
Show "gamma 2.2", NSColorZRX.colorWithGenericGamma22White(0.55, 0.5)
Show "CGColor", NSColorZRX.colorWithCGColor((New NSColorZRX(1, 0.5, 0, 0.25)).CGColorHandle)
Show "device CMYK", NSColorZRX.colorWithDeviceCMYK(0.1, 0.2, 0.3, 0.4)
Show "device RGB", NSColorZRX.colorWithDeviceRGB(0.1, 0.2, 0.3)
Show "device HSV", NSColorZRX.colorWithDeviceHSV(0.1, 0.2, 0.3)
Show "device white", NSColorZRX.colorWithDeviceWhite(0.55, 0.25)
Show "sRGB", NSColorZRX.colorWithSRGB(0.1, 0.2, 0.3)
Show "calibrated RGB", NSColorZRX.colorWithCalibratedRGB(0.1, 0.2, 0.3)
Show "calibrated HSV", NSColorZRX.colorWithCalibratedHSV(0.1, 0.2, 0.3)
Show "calibrated white", NSColorZRX.colorWithCalibratedWhite(0.55, 0.25)
' Each factory without alpha equals the one with an alpha of 1, and 0.5 halves the alpha.
Dim alphas As Double
For Each c As NSColorZRX In Array(NSColorZRX.colorWithGenericGamma22White(0.5), NSColorZRX.colorWithDeviceWhite(0.5), NSColorZRX.colorWithCalibratedWhite(0.5))
    alphas = alphas + c.alphaComponent
Next
For Each c As NSColorZRX In Array(New NSColorZRX(0.1, 0.2, 0.3, 0.5), NSColorZRX.colorWithColorSpaceHSV(NSColorSpaceZRX.sRGBColorSpace, 0.1, 0.2, 0.3, 0.5), NSColorZRX.colorWithDisplayP3(0.1, 0.2, 0.3, 0.5), NSColorZRX.colorWithDeviceCMYK(0.1, 0.2, 0.3, 0.4, 0.5), NSColorZRX.colorWithDeviceRGB(0.1, 0.2, 0.3, 0.5), NSColorZRX.colorWithDeviceHSV(0.1, 0.2, 0.3, 0.5), NSColorZRX.colorWithSRGB(0.1, 0.2, 0.3, 0.5), NSColorZRX.colorWithCalibratedRGB(0.1, 0.2, 0.3, 0.5), NSColorZRX.colorWithCalibratedHSV(0.1, 0.2, 0.3, 0.5))
    alphas = alphas + c.alphaComponent / 16
Next
Print "alphas:", alphas
NSColorZRX.orangeColor.writeToPasteboard
Show "pasteboard", NSColorZRX.colorFromPasteboard
Print "no image:", NSColorZRX.colorWithPatternImage(Nil) Is Nil
Show "blackColor", NSColorZRX.blackColor
Show "darkGrayColor", NSColorZRX.darkGrayColor
Show "lightGrayColor", NSColorZRX.lightGrayColor
Show "whiteColor", NSColorZRX.whiteColor
Show "grayColor", NSColorZRX.grayColor
Show "redColor", NSColorZRX.redColor
Show "greenColor", NSColorZRX.greenColor
Show "blueColor", NSColorZRX.blueColor
Show "cyanColor", NSColorZRX.cyanColor
Show "yellowColor", NSColorZRX.yellowColor
Show "magentaColor", NSColorZRX.magentaColor
Show "orangeColor", NSColorZRX.orangeColor
Show "purpleColor", NSColorZRX.purpleColor
Show "brownColor", NSColorZRX.brownColor
Show "clearColor", NSColorZRX.clearColor
Show "controlShadowColor", NSColorZRX.controlShadowColor
Show "controlDarkShadowColor", NSColorZRX.controlDarkShadowColor
Show "controlColor", NSColorZRX.controlColor
Show "controlHighlightColor", NSColorZRX.controlHighlightColor
Show "controlLightHighlightColor", NSColorZRX.controlLightHighlightColor
Show "controlTextColor", NSColorZRX.controlTextColor
Show "controlBackgroundColor", NSColorZRX.controlBackgroundColor
Show "selectedControlColor", NSColorZRX.selectedControlColor
Show "secondarySelectedControlColor", NSColorZRX.secondarySelectedControlColor
Show "selectedControlTextColor", NSColorZRX.selectedControlTextColor
Show "disabledControlTextColor", NSColorZRX.disabledControlTextColor
Show "textColor", NSColorZRX.textColor
Show "textBackgroundColor", NSColorZRX.textBackgroundColor
Show "selectedTextColor", NSColorZRX.selectedTextColor
Show "selectedTextBackgroundColor", NSColorZRX.selectedTextBackgroundColor
Show "gridColor", NSColorZRX.gridColor
Show "keyboardFocusIndicatorColor", NSColorZRX.keyboardFocusIndicatorColor
Show "windowBackgroundColor", NSColorZRX.windowBackgroundColor
Show "scrollBarColor", NSColorZRX.scrollBarColor
Show "knobColor", NSColorZRX.knobColor
Show "selectedKnobColor", NSColorZRX.selectedKnobColor
Show "windowFrameColor", NSColorZRX.windowFrameColor
Show "windowFrameTextColor", NSColorZRX.windowFrameTextColor
Show "selectedMenuItemColor", NSColorZRX.selectedMenuItemColor
Show "selectedMenuItemTextColor", NSColorZRX.selectedMenuItemTextColor
Show "highlightColor", NSColorZRX.highlightColor
Show "shadowColor", NSColorZRX.shadowColor
Show "headerColor", NSColorZRX.headerColor
Show "headerTextColor", NSColorZRX.headerTextColor
Show "alternateSelectedControlColor", NSColorZRX.alternateSelectedControlColor
Show "alternateSelectedControlTextColor", NSColorZRX.alternateSelectedControlTextColor

Dim profile As MemoryBlock = NSColorSpaceZRX.sRGBColorSpace.ICCProfileData
Dim ofProfile As New NSColorSpaceZRX(profile)
Dim colorSync As Integer = ofProfile.colorSyncProfileHandle
Dim cgSpace As Integer = ofProfile.CGColorSpaceHandle
Show "Constructor", ofProfile
Dim file As New FolderItem("all members " & Str(ofProfile.Handle) & ".icc")
file.WriteBytes profile
Show "file", NSColorSpaceZRX.ColorSpaceWithICCProfileData(file)
file.Delete
Show "profile", NSColorSpaceZRX.ColorSpaceWithICCProfileData(profile)
Show "ColorSync profile", NSColorSpaceZRX.ColorSpaceWithColorSyncProfile(colorSync)
Print NSColorSpaceZRX.ColorSpaceWithColorSyncProfile(cgSpace) Is Nil
Show "CGColorSpace", NSColorSpaceZRX.ColorSpaceWithCGColorSpace(cgSpace)
Dim fromProfile, fromSpace As NSColorSpaceZRX
fromProfile = New NSColorSpaceZRX
fromSpace = New NSColorSpaceZRX
fromProfile.initWithColorSyncProfile(colorSync)
fromSpace.initWithCGColorSpace(cgSpace)
Show "of a ColorSync profile", fromProfile
Show "of a CGColorSpace", fromSpace
Show "generic RGB", NSColorSpaceZRX.genericRGBColorSpace
Show "generic grey", NSColorSpaceZRX.genericGrayColorSpace
Show "generic CMYK", NSColorSpaceZRX.genericCMYKColorSpace
Show "device RGB", NSColorSpaceZRX.deviceRGBColorSpace
Show "device grey", NSColorSpaceZRX.deviceGrayColorSpace
Show "device CMYK", NSColorSpaceZRX.deviceCMYKColorSpace
Show "sRGB", NSColorSpaceZRX.sRGBColorSpace
Show "Adobe RGB", NSColorSpaceZRX.adobeRGB1998ColorSpace
Show "gamma 2.2", NSColorSpaceZRX.genericGamma22GrayColorSpace
Dim names() As String = Array(NSColorSpaceZRX.NSCalibratedWhiteColorSpace, NSColorSpaceZRX.NSCalibratedBlackColorSpace)
names.Append NSColorSpaceZRX.NSCalibratedRGBColorSpace
names.Append NSColorSpaceZRX.NSDeviceWhiteColorSpace
names.Append NSColorSpaceZRX.NSDeviceBlackColorSpace
names.Append NSColorSpaceZRX.NSDeviceRGBColorSpace
names.Append NSColorSpaceZRX.NSDeviceCMYKColorSpace
names.Append NSColorSpaceZRX.NSNamedColorSpace
names.Append NSColorSpaceZRX.NSPatternColorSpace
names.Append NSColorSpaceZRX.NSCustomColorSpace
For Each name As String In names
    Dim named As NSColorSpaceZRX = NSColorSpaceZRX.colorSpaceForColorSpaceName(name)
    If named Is Nil Then Print name, "nil" Else Show name, named
Next
Dim models() As Integer = Array(NSColorSpaceZRX.NSUnknownColorSpaceModel, NSColorSpaceZRX.NSGrayColorSpaceModel)
models.Append NSColorSpaceZRX.NSRGBColorSpaceModel
models.Append NSColorSpaceZRX.NSCMYKColorSpaceModel
models.Append NSColorSpaceZRX.NSLABColorSpaceModel
models.Append NSColorSpaceZRX.NSDeviceNColorSpaceModel
models.Append NSColorSpaceZRX.NSIndexedColorSpaceModel
models.Append NSColorSpaceZRX.NSPatternColorSpaceModel
For Each model As Integer In models
    Dim found As String
    For Each space As NSColorSpaceZRX In NSColorSpaceZRX.availableColorSpacesWithModel(model)
        found = found & ", " & space.localizedName
    Next
    Print "model", model, "is that of" & found
Next

Dim list As New NSColorListZRX
Print list.Create("Everything"), list.name, list.isEditable
list.setColor NSColorZRX.redColor, "second"
list.insertColor NSColorZRX.blueColor, "first", 0
list.insertColor NSColorZRX.greenColor, "second", 0
Print TextOf(list.colorWithKey("first")) & TextOf(list.colorWithKey("second"))
list.removeColorWithKey "first"
Dim path As String = "all members " & Str(list.colorWithKey("second").Handle) & ".list"
Print list.writeToFile(path), list.Create("Again", path), list.name
Print TextOf(list.colorWithKey("first")) & TextOf(list.colorWithKey("second"))
list.removeFile
Print list.Create("Gone", path), list.Load("System"), list.isEditable, list.name
