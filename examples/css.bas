' Converts between style sheets and colour lists: "--name: #RRGGBB;" and names of CSS become the colours of a
' list, and colours of a list become such a sheet. The keys are arguments, because a list does not return its keys.
'   ./run examples/css.bas                                 an example of both
'   ./run examples/css.bas -- to-list sheet.css list.clr   a list from a sheet
'   ./run examples/css.bas -- to-css list.clr KEY [KEY...] a sheet from a list, printed

Dim given() As String = Arguments
If given.Count = 0 Then
    ShowBoth
ElseIf given.Count = 3 And given(0) = "to-list" Then
    Dim names() As String
    Dim list As NSColorListZRX = ListOf(New FolderItem(given(1)).ReadText, names)
    If Not list.writeToFile(New FolderItem(given(2)).NativePath) Then Fail given(2) & " cannot be written"
    Print names.Count & " colours: " & Join(names)
ElseIf given.Count > 2 And given(0) = "to-css" Then
    Dim list As New NSColorListZRX
    If Not list.Create("list", New FolderItem(given(1)).NativePath) Then Fail given(1) & " is not a colour list"
    Write Sheet(list, given.Slice(2))
Else
    Fail "expected: to-list SHEET LIST, or to-css LIST KEY [KEY...]"
End If

Sub Fail(message As String)
    Print message
    Quit 1
End Sub

Sub ShowBoth
    Dim source As String = ":root {" & Chr(10) & _
        "  --sea: #05346a;" & Chr(10) & _
        "  --sand: BurlyWood; --mist: #0A6B8C80;" & Chr(10) & _
        "  --gap: 12px;" & Chr(10) & _
        "  color: var(--sea);" & Chr(10) & _
        "}" & Chr(10)
    Dim names() As String
    Dim list As NSColorListZRX = ListOf(source, names)
    Dim file As New FolderItem("from css.clr")
    Print "written:", list.writeToFile(file.NativePath)
    Dim read As New NSColorListZRX
    Print "read:", read.Create("read", file.NativePath)
    Dim result As String = Sheet(read, names), again() As String
    Write result
    Print "the same again:", Sheet(ListOf(result, again), again) = result
    read.removeFile
End Sub

' Returns the list of the colours that a sheet declares, and its keys in order. Reports and skips other values.
Function ListOf(sheet As String, ByRef names() As String) As NSColorListZRX
    Dim list As New NSColorListZRX
    If Not list.Create("from CSS") Then Raise New RuntimeException("no list could be created")
    For Each declaration As String In Split(Replace(Replace(sheet, "{", ";"), "}", ";"), ";")
        Dim start As Integer = InStr(declaration, "--"), colon As Integer = InStr(declaration, ":")
        If start = 0 Or colon < start Then Continue
        Dim name As String = Trim(Mid(declaration, start + 2, colon - start - 2))
        Try
            list.setColor InSRGB(Color(Mid(declaration, colon + 1))), name
            names.Append name
        Catch e As TypeMismatchException
            Print "skipped: " & name & ": " & e.Message
        End Try
    Next
    Return list
End Function

Function InSRGB(value As Color) As NSColorZRX
    Return NSColorZRX.colorWithSRGB(Channel(value, 1), Channel(value, 2), Channel(value, 3), Channel(value, 0))
End Function

' Returns a byte of a colour's number, 0xAARRGGBB, as a part of 1. It reads the digits, because the number is negative in 32 bits.
Function Channel(value As Color, index As Integer) As Double
    Return Val("&h" & Mid(Hex(value, 8), 2 * index + 1, 2)) / 255
End Function

Function Sheet(list As NSColorListZRX, names() As String) As String
    Dim text As String = ":root {" & Chr(10)
    For Each name As String In names
        Dim c As NSColorZRX = list.colorWithKey(name)
        If c Is Nil Then Fail "the list has no colour " & name
        text &= "  --" & name & ": " & Literal(c) & ";" & Chr(10)
    Next
    Return text & "}" & Chr(10)
End Function

' Returns #RRGGBB, followed by the opacity if the colour is not opaque.
Function Literal(c As NSColorZRX) As String
    Dim red, green, blue, alpha As Double
    c.colorUsingColorSpace(NSColorSpaceZRX.sRGBColorSpace).getRGB red, green, blue, alpha
    Return Str(RGB(Level(red), Level(green), Level(blue), Level(alpha)))
End Function

Function Level(part As Double) As Integer
    Return Round(part * 255)
End Function
