' Exit, Continue and Return out of blocks.
For i As Integer = 1 To 3
  Dim text As String = "in " & i
  While True
    If i = 2 Then Continue For
    Exit While
  Wend
  Do
    If i = 3 Then Exit For
    Exit Do
  Loop
  Print text '> in 1
Next
Function Tried(n As Integer) As Integer
  For Each i As Integer In Array(1, 2, 3)
    Try
      If i = n Then Return i * 10
      Continue
    Finally
      Print "finally", i '> finally 1 | finally 2
    End Try
  Next
  Return -1
End Function
Print Tried(2) '> 20
Function Decided() As String
  Try
    Raise New RuntimeException("lost")
  Finally
    Return "kept"
  End Try
End Function
Print Decided() '> kept
If True Then Return
Print "after the end"
