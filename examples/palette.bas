' Builds a colour list, writes it, reads it back, moves a key and removes one.
'   ./run examples/palette.bas

Dim palette As New NSColorListZRX
If Not palette.Create("Harbour") Then Print "no list could be created"
palette.setColor NSColorZRX.colorWithSRGB(0.05, 0.2, 0.4), "deep water"
palette.setColor NSColorZRX.colorWithSRGB(0.9, 0.85, 0.7), "sand"
palette.setColor NSColorZRX.colorWithCalibratedWhite(0.8, 0.5), "Nebel über dem Wasser"
palette.setColor NSColorZRX.controlColor, "a catalogue colour"
Print palette.name & " is editable: ", palette.isEditable

Dim file As String = "harbour.colours"
Print "written: ", palette.writeToFile(file)

Dim read As New NSColorListZRX
Print "read back: ", read.Create("Harbour from file", file)
Dim keys() As String
keys.Append "deep water"
keys.Append "sand"
keys.Append "Nebel über dem Wasser"
keys.Append "a catalogue colour"
For Each key As String In keys
    Print "  " & key & ": " & read.colorWithKey(key).description
Next

Print "The list returns the inserted object:"
Dim sand As NSColorZRX = palette.colorWithKey("sand")
Print "  ", palette.colorWithKey("sand") Is sand

palette.insertColor sand, "sand", 0
palette.removeColorWithKey "deep water"
Print "deep water is removed: ", palette.colorWithKey("deep water") Is Nil

Print "An exception of the platform becomes a host exception:"
Try
    palette.insertColor sand, "sand", 99
Catch e As RuntimeException
    Print "  " & e.Message
End Try
Dim fixed As New NSColorListZRX
If fixed.Load("System") Then
    Try
        fixed.setColor sand, "sand"
    Catch e As RuntimeException
        Print "  " & e.Message
    End Try
End If

read.removeFile
Print "removed: ", Not read.Create("Harbour from file", file)
