' The properties of spaces, and the results for data and handles that are neither a profile nor a space.

Function Space(which As Integer) As NSColorSpaceZRX
    Dim noProfile As New MemoryBlock(100)
    Dim none As MemoryBlock
    Dim file As New FolderItem("no such file")
    Dim result As New NSColorSpaceZRX
    If which = 0 Then Return NSColorSpaceZRX.genericRGBColorSpace
    If which = 1 Then Return NSColorSpaceZRX.genericGrayColorSpace
    If which = 2 Then Return NSColorSpaceZRX.genericCMYKColorSpace
    If which = 3 Then Return NSColorSpaceZRX.deviceRGBColorSpace
    If which = 4 Then Return NSColorSpaceZRX.deviceGrayColorSpace
    If which = 5 Then Return NSColorSpaceZRX.deviceCMYKColorSpace
    If which = 6 Then Return NSColorSpaceZRX.sRGBColorSpace
    If which = 7 Then Return NSColorSpaceZRX.adobeRGB1998ColorSpace
    If which = 8 Then Return NSColorSpaceZRX.genericGamma22GrayColorSpace
    If which = 9 Then Return NSColorSpaceZRX.ColorSpaceWithICCProfileData(noProfile)
    If which = 10 Then Return NSColorSpaceZRX.ColorSpaceWithICCProfileData(none)
    If which = 11 Then Return NSColorSpaceZRX.ColorSpaceWithICCProfileData(file)
    If which = 12 Then Return NSColorSpaceZRX.ColorSpaceWithColorSyncProfile(0)
    If which = 13 Then Return NSColorSpaceZRX.ColorSpaceWithCGColorSpace(0)
    If which = 14 Then Return New NSColorSpaceZRX(noProfile)
    If which = 15 Then Return New NSColorSpaceZRX(none)
    If which = 16 Then Return NSColorSpaceZRX.colorSpaceForColorSpaceName("no such space")
    If which = 17 Then result.initWithColorSyncProfile(0)
    If which = 18 Then result.initWithCGColorSpace(0)
    Return result
End Function

For i As Integer = 0 To 19
    Try
        Dim s As NSColorSpaceZRX = Space(i)
        If s Is Nil Then
            Print i, "nil"
            Continue
        End If
        Print i, s.colorSpaceModel, s.numberOfColorComponents, s.localizedName, s.Handle <> 0, s Is Space(i)
        If Not (s.ICCProfileData Is Nil) Then Print "    returns the given profile:", s.ICCProfileData.Size = 100
        Print "   ", s.colorSyncProfileHandle <> 0
        Print "   ", s.colorSpaceName, s.CGColorSpaceHandle <> 0
    Catch e As NSExceptionZRX
        Print i, e.name
    End Try
Next
