' Lists of every kind of colour are written and read back unchanged; and what a list refuses.

Dim strange As String = "grün 😀" & Chr(10) & Chr(34)
Dim file As String = "strange " & strange & ".clr"
Dim list As New NSColorListZRX
Dim red As NSColorZRX = NSColorZRX.redColor
Dim noColor As NSColorZRX

Function TextOf(c As NSColorZRX) As String
    Dim text As String = c.description & " " & c.colorNameComponent
    Try
        For Each component As Double In c.Components
            text = text & " " & Str(component)
        Next
    Catch e As NSExceptionZRX
    End Try
    Return text
End Function

Dim third As Double = 1 / 3
Dim colors() As NSColorZRX = Array(NSColorZRX.colorWithCalibratedRGB(0.1, third, 0.7, 0.9), NSColorZRX.colorWithDeviceRGB(0.1, third, 0.7, 0.9))
colors.Append NSColorZRX.colorWithSRGB(0.1, third, 0.7, 0.9)
colors.Append NSColorZRX.colorWithDisplayP3(0.1, third, 0.7, 0.9)
colors.Append NSColorZRX.colorWithCalibratedWhite(0.1, third)
colors.Append NSColorZRX.colorWithGenericGamma22White(0.1, third)
colors.Append NSColorZRX.colorWithDeviceCMYK(0.1, third, 0.7, 0.9, 0.1)
colors.Append NSColorZRX.headerColor
Print list.Create("Palette"), list.isEditable
For i As Integer = 0 To UBound(colors)
    list.setColor colors(i), strange & Str(i)
    Print i, list.colorWithKey(strange & Str(i)) Is colors(i)
Next
Print list.writeToFile(file), list.Create("Read", file), list.name
For i As Integer = 0 To UBound(colors)
    Print i, TextOf(list.colorWithKey(strange & Str(i))) = TextOf(colors(i))
Next
list.removeFile
Print list.Create("Gone", file), list.isEditable, list.name & "."

Function Done(which As Integer) As String
    If which = 0 Then list.insertColor red, "k", -1
    If which = 1 Then list.insertColor red, "k", 7
    If which = 2 Then list.setColor noColor, "nil"
    If which = 3 Then list.setColor red, ""
    If which = 4 Then list.removeColorWithKey "never there"
    If which = 5 Then Return Str(list.writeToFile("/no such folder/list.clr"))
    If which = 6 Then Return Str(list.Load("System")) & Str(list.isEditable)
    If which = 7 Then list.setColor red, "k"
    If which = 8 Then Return Str(list.Load("No such list")) & Str(list.isEditable) & list.name
    Return "done"
End Function

Print list.Create("Another")
For i As Integer = 0 To 8
    Try
        Print i, Done(i)
    Catch e As NSExceptionZRX
        Print i, e.name
    End Try
Next
