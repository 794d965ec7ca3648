' If and Select Case, on one line and on several.
For i As Integer = 1 To 4
  If i = 1 Then
    Print "one" '> one
  ElseIf i <= 3 Then
    Print "few" '> few | few
  ElseIf i = 2 Then
    Print "never"
  Else
    Print "many" '> many
  End If
Next
Dim n As Integer
If True Then n = 1 : n = n + 1 Else n = 9
If False Then Print "no" Else Print "else", n '> else 2
If False Then Print "no"
If True Then If False Then Print "no" Else Print "inner" '> inner
For Each i As Integer In Array(1, 5, 50)
  Select Case i
  Case 1, 2
    Print "small" '> small
  Case Is <= 9
    Print "medium" '> medium
  End Select
Next
