' Programs that run but are probably not what their author meant.

Dim real As Double = 3, n As Integer = @2.9, v(9) As Integer
If n <> 2 Then Quit 3
n = real @* 2
n = @If(n = 2, real, 1)
n = 2 * Floor(real / 2) - Max(Round(real), 1) + real \ 2 + 2 ^ n + Integer(real) - 4.0
@n += 0.5
@n /= 2
n -= Ceil(0.5)
v(@real) = n
v(0) = @Abs(real)
For Each @n In Array(0.5)
Next
For i As Integer = 1 To n @/ 2
Next
Const Half As Integer = @0.5
Function Whole() As Integer
  Return @Val("1")
End Function
Function Floor2(text As String) As Integer
  Return Len(text) * Whole() + Half
End Function
n = Floor2("a")
'! warning: this Double loses its fraction here; write Floor(), Round() or Integer() if this is intended
'! warning: this Double loses its fraction here; write Floor(), Round() or Integer() if this is intended
'! warning: this Double loses its fraction here; write Floor(), Round() or Integer() if this is intended
'! warning: this Double loses its fraction here; write Floor(), Round() or Integer() if this is intended
'! warning: this Double loses its fraction here; write Floor(), Round() or Integer() if this is intended
'! warning: this Double loses its fraction here; write Floor(), Round() or Integer() if this is intended
'! warning: this Double loses its fraction here; write Floor(), Round() or Integer() if this is intended
'! warning: this Double loses its fraction here; write Floor(), Round() or Integer() if this is intended
'! warning: this Double loses its fraction here; write Floor(), Round() or Integer() if this is intended
'! warning: this Double loses its fraction here; write Floor(), Round() or Integer() if this is intended
'! warning: this Double loses its fraction here; write Floor(), Round() or Integer() if this is intended

Dim used, @unused As Integer, keys() As String = Array("a"), @made = 1
Sub Show(ignored As Integer)
  Dim @inside As Probe
  used = 1
End Sub
For Each key As String In keys
  Try
    Show(1)
  Catch e As RuntimeException
    Dim @used2 As Integer
  End Try
Next
'! warning: the variable 'unused' is never used
'! warning: the variable 'made' is never used
'! warning: the variable 'inside' is never used
'! warning: the variable 'used2' is never used

' A use in an invalid statement counts.
Dim used, half As Integer = @0.5
Print used @==
'! warning: this Double loses its fraction here; write Floor(), Round() or Integer() if this is intended
'! '==' has no meaning here; '=' compares, and as a statement assigns

If False Then
  Print @'hello'
  Print ' an empty line, as 'planned'
  Print 'too
End If
'! warning: this prints an empty line: ' starts a comment, and text is in double quotes

Function @None(n As Integer) As Integer
End Function
Function @Some(n As Integer) As String
  If n = 0 Then Return "a"
  Select Case n
  Case 1
    Return "b"
  Case 2
    Raise New RuntimeException
  End Select
End Function
Function @Left1(n As Integer) As Probe
  While True
    If n = 1 Then Exit While
    If n = 2 Then Continue
    Return Nil
  Wend
End Function
Function @Left2(n As Integer) As Color
  Do
    If n = 1 Then Exit Do
  Loop
End Function
Function @Left3(n As Integer) As Probe
  While n = 0
    n += 1
  Wend
  If n = 3 Then Exit Function
  Do
    n += 1
  Loop
End Function
Function @Tried(n As Integer) As Boolean
  Try
    Return n = 1
  Catch e As IOException
    n = Len(Some(n))
  Finally
    n = 2
  End Try
End Function
Function Always(n As Integer) As Integer
  If n = 1 Then
    Return 1
  ElseIf n = 2 Then
    Quit
  Else
    Do
      For i As Integer = 1 To n
        If i = n Then Exit For
        If i = 3 Then Return i
      Next
    Loop While True
  End If
End Function
Function AlwaysToo(n As Integer) As Integer
  Try
    Select Case n
    Case 1
      Raise New RuntimeException
    Case Else
      Return 2
    End Select
  Catch
    Do
      Return 3
    Loop Until n = 1
  End Try
End Function
If None(1) + Always(1) + AlwaysToo(1) > 9 Or Left1(3) Is Left3(3) Or Left2(1) = 1 Or Tried(2) Then Quit 0
'! warning: 'None' can end without Return, and then returns 0
'! warning: 'Some' can end without Return, and then returns an empty text
'! warning: 'Left1' can end without Return, and then returns Nil
'! warning: 'Left2' can end without Return, and then returns #00000000
'! warning: 'Left3' can end without Return, and then returns Nil
'! warning: 'Tried' can end without Return, and then returns False

Dim text As String = "a", n As Integer = 3, reals() As Double, c As Color = @&hFF8000
@Replace(text, "a", "b")
@Len text
Randomize2
Sub Randomize2()
  Dim first As Double = Random
  If first > 2 Then Print c
  RandomSeed 1
End Sub
If reals @= Array(0.5) Or reals Is Nil Or reals <> Nil Then n = 3
Select Case n
Case 1, 2 @Or 4
  n = 1
End Select
Select Case n = 3
Case True Or False
  n = 3
End Select
For i As Integer = @10 To -1
Next
For i As Integer = @-1 DownTo 10
Next
Try
  n = 3
Catch e As RuntimeException
  n = 3
Catch e As @IOException
  n = 4
Catch
  n = 5
End Try
'! warning: this number is an invisible colour, because its fourth byte, alpha, is 0; write #FF8000
'! warning: this ignores the result of 'Replace'
'! warning: this ignores the result of 'Len'
'! warning: this compares whether both are the same array, not their elements; write 'Is' if this is intended
'! warning: this 'Or' computes one number from two; a comma separates values
'! warning: this loop never runs: it counts up; 'DownTo' counts down
'! warning: this loop never runs: it counts down; 'To' counts up
'! warning: this Catch never runs: an earlier one catches every IOException

