' The colour profiles of a folder as a table: their space, their model and a vivid orange in their components.
'   ./run examples/profiles.bas                          of the platform's own spaces, written into a folder first
'   ./run examples/profiles.bas -- /usr/share/color/icc  of a folder, and of the folders in it

Dim given() As String = Arguments
Dim folder As New FolderItem(If(given.Count > 0, given(0), "profiles of the platform"))
If given.Count = 0 Then WriteExamples folder
If Not folder.IsFolder Then
    Print folder.NativePath & " is not a folder"
    Quit 1
End If

Dim files As Integer, valid As Integer
Print Padded("file", 28) & Padded("space", 32) & Padded("model", 8) & Padded("bytes", 8) & "orange"
List folder, files, valid
Print files & If(files = 1, " file, ", " files, ") & valid & " valid"
If given.Count = 0 Then Remove folder

Sub List(folder As FolderItem, ByRef files As Integer, ByRef valid As Integer)
    For Each file As FolderItem In folder.Children
        If file.IsFolder Then
            List file, files, valid
            Continue
        End If
        If Not IsProfile(file) Then Continue
        files += 1
        Dim space As NSColorSpaceZRX = NSColorSpaceZRX.ColorSpaceWithICCProfileData(file)
        If space Is Nil Then
            Print Padded(file.Name, 28) & "is not valid"
            Continue
        End If
        valid += 1
        Print Padded(file.Name, 28) & Padded(space.localizedName, 32) & Padded(ModelName(space), 8) & _
            Padded(Str(file.Length), 8) & Orange(space)
    Next
End Sub

Function IsProfile(file As FolderItem) As Boolean
    Dim ending As String = Lowercase(Mid(file.Name, InStrRev(file.Name, ".") + 1))
    Return ending = "icc" Or ending = "icm"
End Function

' Returns the components in the space: in percent, or unchanged if they are not parts of 1.
Function Orange(space As NSColorSpaceZRX) As String
    Dim converted As NSColorZRX = NSColorZRX.colorWithSRGB(1, 0.5, 0).colorUsingColorSpace(space)
    If converted Is Nil Then Return "-"
    Dim parts() As String, components() As Double = converted.Components
    For i As Integer = 0 To UBound(components) - 1 ' the last one is alpha
        parts.Append Format(components(i), If(space.colorSpaceModel = NSColorSpaceZRX.NSLABColorSpaceModel, "0", "0%"))
    Next
    Return Join(parts)
End Function

Function ModelName(space As NSColorSpaceZRX) As String
    Select Case space.colorSpaceModel
    Case NSColorSpaceZRX.NSGrayColorSpaceModel
        Return "grey"
    Case NSColorSpaceZRX.NSRGBColorSpaceModel
        Return "RGB"
    Case NSColorSpaceZRX.NSCMYKColorSpaceModel
        Return "CMYK"
    Case NSColorSpaceZRX.NSLABColorSpaceModel
        Return "Lab"
    Case Else
        Return "other"
    End Select
End Function

' Returns the text cut or padded to the column, with at least one blank at its end.
Function Padded(text As String, width As Integer) As String
    If Len(text) >= width Then text = Left(text, width - 2) & "…"
    Return text & Repeat(" ", width - Len(text))
End Function

Sub WriteExamples(folder As FolderItem)
    folder.CreateFolder
    folder.Child("sRGB.icc").WriteBytes NSColorSpaceZRX.sRGBColorSpace.ICCProfileData
    folder.Child("adobe.icc").WriteBytes NSColorSpaceZRX.adobeRGB1998ColorSpace.ICCProfileData
    folder.Child("generic.icc").WriteBytes NSColorSpaceZRX.genericRGBColorSpace.ICCProfileData
    folder.Child("grey.icc").WriteBytes NSColorSpaceZRX.genericGamma22GrayColorSpace.ICCProfileData
    folder.Child("broken.icm").WriteText "no profile"
    folder.Child("notes.txt").WriteText "not looked at"
End Sub

Sub Remove(folder As FolderItem)
    For Each file As FolderItem In folder.Children
        file.Delete
    Next
    folder.Delete
End Sub
