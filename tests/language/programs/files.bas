' Folders and text.
Dim folder As New FolderItem("a folder/")
folder.CreateFolder
folder.CreateFolder
Print folder.Name, folder.IsFolder, folder.Count, folder.Child("in/../it").Name '> a folder True 0 it
Dim text As FolderItem = folder.Child("b.txt")
text.WriteText "grün " & Chr(8364)
folder.Child("a.txt").WriteText ""
Print text.ReadText, text.Length, folder.Child("a.txt").ReadText = "" '> grün € 9 True
For Each entry As FolderItem In folder.Children
  Print entry.Name '> a.txt | b.txt
Next
Dim bytes As New MemoryBlock(4)
bytes.StringValue(0, 4) = Chr(65279) & "x"
text.WriteBytes bytes
Print text.ReadText, Len(text.ReadText) '> x 1
bytes.Byte(3) = 255
text.WriteBytes bytes
For attempt As Integer = 1 To 5
  Try
    Select Case attempt
    Case 1
      Print text.ReadText
    Case 2
      Print folder.ReadBytes.Size
    Case 3
      Print text.Children.Count
    Case 4
      text.CreateFolder
    Case 5
      folder.Delete
    End Select
  Catch e As IOException
    Print Mid(e.Message, InStr(e.Message, "a folder")) '> a folder/b.txt" is not valid UTF-8 text. | a folder" cannot be read: Is a directory. | a folder/b.txt" cannot be read as a folder: Not a directory. | a folder/b.txt" cannot be created as a folder: File exists. | a folder" cannot be removed: Directory not empty.
  End Try
Next
Try
  Print (New FolderItem("a" & Chr(0) & "b")).Name
Catch e As IOException
  Print Right(e.Message, 17), e.ErrorNumber '> Invalid argument. 22
End Try
For Each entry As FolderItem In folder.Children
  entry.Delete
Next
folder.Delete
Print folder.Exists '> False
