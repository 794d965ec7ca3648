' Uses every member that the three classes declare. What a colour or the host does not offer raises, and is counted.

Dim raised As Integer
Dim x, y, z, u, w As Double

Dim colors() As NSColorZRX
colors.Append New NSColorZRX(&hFFFF8000)
colors.Append New NSColorZRX(1, 0.5, 0, 0.25)
colors.Append NSColorZRX.colorWithColorSpaceHSV(NSColorSpaceZRX.sRGBColorSpace, 0.5, 1, 0.5)
colors.Append NSColorZRX.colorWithDisplayP3(0.1, 0.2, 0.3)
colors.Append NSColorZRX.scrubberTexturedBackgroundColor
colors.Append NSColorZRX.colorWithColorSpace(NSColorSpaceZRX.genericCMYKColorSpace, 0.1, 0.2, 0.3, 0.4, 1)
Dim parts() As Double
parts.Append 0.25
parts.Append 1
colors.Append NSColorZRX.colorWithColorSpace(NSColorSpaceZRX.genericGrayColorSpace, parts)
colors.Append NSColorZRX.colorWithGenericGamma22White(0.5)
colors.Append NSColorZRX.colorWithCGColor(colors(0).CGColorHandle)
colors.Append NSColorZRX.colorWithDeviceCMYK(0.1, 0.2, 0.3, 0.4)
colors.Append NSColorZRX.colorWithDeviceRGB(0.1, 0.2, 0.3)
colors.Append NSColorZRX.colorWithDeviceHSV(0.1, 0.2, 0.3)
colors.Append NSColorZRX.colorWithDeviceWhite(0.5)
colors.Append NSColorZRX.colorWithSRGB(0.1, 0.2, 0.3)
colors.Append NSColorZRX.colorWithCalibratedRGB(0.1, 0.2, 0.3)
colors.Append NSColorZRX.colorWithCalibratedHSV(0.1, 0.2, 0.3)
colors.Append NSColorZRX.colorWithCalibratedWhite(0.5)
colors(0).writeToPasteboard
colors.Append NSColorZRX.colorFromPasteboard
Print "no image: ", NSColorZRX.colorWithPatternImage(Nil) Is Nil
colors.Append NSColorZRX.blackColor
colors.Append NSColorZRX.darkGrayColor
colors.Append NSColorZRX.lightGrayColor
colors.Append NSColorZRX.whiteColor
colors.Append NSColorZRX.grayColor
colors.Append NSColorZRX.redColor
colors.Append NSColorZRX.greenColor
colors.Append NSColorZRX.blueColor
colors.Append NSColorZRX.cyanColor
colors.Append NSColorZRX.yellowColor
colors.Append NSColorZRX.magentaColor
colors.Append NSColorZRX.orangeColor
colors.Append NSColorZRX.purpleColor
colors.Append NSColorZRX.brownColor
colors.Append NSColorZRX.clearColor
colors.Append NSColorZRX.controlShadowColor
colors.Append NSColorZRX.controlDarkShadowColor
colors.Append NSColorZRX.controlColor
colors.Append NSColorZRX.controlHighlightColor
colors.Append NSColorZRX.controlLightHighlightColor
colors.Append NSColorZRX.controlTextColor
colors.Append NSColorZRX.controlBackgroundColor
colors.Append NSColorZRX.selectedControlColor
colors.Append NSColorZRX.secondarySelectedControlColor
colors.Append NSColorZRX.selectedControlTextColor
colors.Append NSColorZRX.disabledControlTextColor
colors.Append NSColorZRX.textColor
colors.Append NSColorZRX.textBackgroundColor
colors.Append NSColorZRX.selectedTextColor
colors.Append NSColorZRX.selectedTextBackgroundColor
colors.Append NSColorZRX.gridColor
colors.Append NSColorZRX.keyboardFocusIndicatorColor
colors.Append NSColorZRX.windowBackgroundColor
colors.Append NSColorZRX.scrollBarColor
colors.Append NSColorZRX.knobColor
colors.Append NSColorZRX.selectedKnobColor
colors.Append NSColorZRX.windowFrameColor
colors.Append NSColorZRX.windowFrameTextColor
colors.Append NSColorZRX.selectedMenuItemColor
colors.Append NSColorZRX.selectedMenuItemTextColor
colors.Append NSColorZRX.highlightColor
colors.Append NSColorZRX.shadowColor
colors.Append NSColorZRX.headerColor
colors.Append NSColorZRX.headerTextColor
colors.Append NSColorZRX.alternateSelectedControlColor
colors.Append NSColorZRX.alternateSelectedControlTextColor

For Each c As NSColorZRX In colors
    Print c.description & " | " & c.colorSpaceName & " | " & Str(c.colorValue) & " | " & Str(c.alphaComponent)
    Print "  ", c.redComponent, c.greenComponent, c.blueComponent, c.hueComponent, c.saturationComponent, c.brightnessComponent
    Print "  ", c.cyanComponent, c.magentaComponent, c.yellowComponent, c.blackComponent, c.whiteComponent
    Print "  " & c.catalogNameComponent & c.colorNameComponent & c.localizedCatalogNameComponent & c.localizedColorNameComponent
    Print "  ", c._exception Is Nil, c.Handle <> 0, c.CGColorHandle <> 0
    Try
        Print "  ", c.numberOfComponents, UBound(c.Components)
    Catch e As RuntimeException
        raised = raised + 1
    End Try
    Try
        c.getCMYK(x, y, z, u)
    Catch e As RuntimeException
        raised = raised + 1
    End Try
    Try
        c.getCMYK(x, y, z, u, w)
    Catch e As RuntimeException
        raised = raised + 1
    End Try
    Try
        c.getWhite(x)
    Catch e As RuntimeException
        raised = raised + 1
    End Try
    Try
        c.getWhite(x, y)
    Catch e As RuntimeException
        raised = raised + 1
    End Try
    Try
        c.getHSV(x, y, z)
    Catch e As RuntimeException
        raised = raised + 1
    End Try
    Try
        c.getHSV(x, y, z, u)
    Catch e As RuntimeException
        raised = raised + 1
    End Try
    Try
        c.getRGB(x, y, z)
    Catch e As RuntimeException
        raised = raised + 1
    End Try
    Try
        c.getRGB(x, y, z, u)
    Catch e As RuntimeException
        raised = raised + 1
    End Try
    Try
        Print "  " & c.blendedColorWithFraction(0.5, NSColorZRX.redColor).description
    Catch e As RuntimeException
        raised = raised + 1
    End Try
    Try
        Print "  " & c.colorWithAlphaComponent(0.5).description
    Catch e As RuntimeException
        raised = raised + 1
    End Try
    Try
        Print "  " & c.colorUsingColorSpaceName("NSDeviceCMYKColorSpace").description
    Catch e As RuntimeException
        raised = raised + 1
    End Try
    Try
        Print "  " & c.colorUsingColorSpace(NSColorSpaceZRX.sRGBColorSpace).description
    Catch e As RuntimeException
        raised = raised + 1
    End Try
    Try
        Print "  " & c.shadowWithLevel(0.5).description & c.highlightWithLevel(0.5).description
    Catch e As RuntimeException
        raised = raised + 1
    End Try
    Try
        Print "  " & c.colorSpace.localizedName
    Catch e As RuntimeException
        raised = raised + 1
    End Try
    Try
        Print c.patternImage Is Nil
    Catch e As RuntimeException
        raised = raised + 1
    End Try
Next
Print "raised: ", raised

Dim spaces() As NSColorSpaceZRX
Dim profile As MemoryBlock = NSColorSpaceZRX.sRGBColorSpace.ICCProfileData
spaces.Append New NSColorSpaceZRX(profile)
Dim file As New FolderItem("all members " & Str(spaces(0).Handle) & ".icc")
file.WriteBytes profile
spaces.Append NSColorSpaceZRX.ColorSpaceWithICCProfileData(file)
file.Delete
spaces.Append NSColorSpaceZRX.ColorSpaceWithICCProfileData(profile)
spaces.Append NSColorSpaceZRX.ColorSpaceWithColorSyncProfile(spaces(0).colorSyncProfileHandle)
spaces.Append NSColorSpaceZRX.ColorSpaceWithCGColorSpace(spaces(0).CGColorSpaceHandle)
Dim fromProfile As New NSColorSpaceZRX
fromProfile.initWithColorSyncProfile(spaces(0).colorSyncProfileHandle)
spaces.Append fromProfile
Dim fromSpace As New NSColorSpaceZRX
fromSpace.initWithCGColorSpace(spaces(0).CGColorSpaceHandle)
spaces.Append fromSpace
spaces.Append NSColorSpaceZRX.genericRGBColorSpace
spaces.Append NSColorSpaceZRX.genericGrayColorSpace
spaces.Append NSColorSpaceZRX.genericCMYKColorSpace
spaces.Append NSColorSpaceZRX.deviceRGBColorSpace
spaces.Append NSColorSpaceZRX.deviceGrayColorSpace
spaces.Append NSColorSpaceZRX.deviceCMYKColorSpace
spaces.Append NSColorSpaceZRX.sRGBColorSpace
spaces.Append NSColorSpaceZRX.adobeRGB1998ColorSpace
spaces.Append NSColorSpaceZRX.genericGamma22GrayColorSpace
Dim names() As String
names.Append NSColorSpaceZRX.NSCalibratedWhiteColorSpace
names.Append NSColorSpaceZRX.NSCalibratedBlackColorSpace
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
    Print name, named Is Nil
    If Not (named Is Nil) Then spaces.Append named
Next
Dim models() As Integer
models.Append NSColorSpaceZRX.NSUnknownColorSpaceModel
models.Append NSColorSpaceZRX.NSGrayColorSpaceModel
models.Append NSColorSpaceZRX.NSRGBColorSpaceModel
models.Append NSColorSpaceZRX.NSCMYKColorSpaceModel
models.Append NSColorSpaceZRX.NSLABColorSpaceModel
models.Append NSColorSpaceZRX.NSDeviceNColorSpaceModel
models.Append NSColorSpaceZRX.NSIndexedColorSpaceModel
models.Append NSColorSpaceZRX.NSPatternColorSpaceModel
For Each model As Integer In models
    Dim found() As NSColorSpaceZRX = NSColorSpaceZRX.availableColorSpacesWithModel(model)
    Print "model", model, UBound(found)
Next
For Each space As NSColorSpaceZRX In spaces
    Print space.localizedName & " | " & space.colorSpaceName & " | " & space.description
    Print "  ", space.colorSpaceModel, space.numberOfColorComponents, space.Handle <> 0
    Print "  ", space.ICCProfileData Is Nil, space.colorSyncProfileHandle <> 0, space.CGColorSpaceHandle <> 0
Next

Dim list As New NSColorListZRX
Print list.Create("Everything"), list.name, list.isEditable
list.insertColor colors(0), "first", 0
list.setColor colors(1), "second"
Print list.colorWithKey("first").description
list.removeColorWithKey "first"
Dim path As String = "all members " & Str(colors(0).Handle) & ".list"
Print list.writeToFile(path), list.Create("Again", path), list.colorWithKey("second").description
list.removeFile
Print list.Load("System"), list.isEditable
