' Programs that run, but hardly mean what they say.

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
'! warning: this Double loses its fraction here; Floor(), Round() or Integer() says that it shall
'! warning: this Double loses its fraction here; Floor(), Round() or Integer() says that it shall
'! warning: this Double loses its fraction here; Floor(), Round() or Integer() says that it shall
'! warning: this Double loses its fraction here; Floor(), Round() or Integer() says that it shall
'! warning: this Double loses its fraction here; Floor(), Round() or Integer() says that it shall
'! warning: this Double loses its fraction here; Floor(), Round() or Integer() says that it shall
'! warning: this Double loses its fraction here; Floor(), Round() or Integer() says that it shall
'! warning: this Double loses its fraction here; Floor(), Round() or Integer() says that it shall
'! warning: this Double loses its fraction here; Floor(), Round() or Integer() says that it shall
'! warning: this Double loses its fraction here; Floor(), Round() or Integer() says that it shall
'! warning: this Double loses its fraction here; Floor(), Round() or Integer() says that it shall

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

' A use may stand in what is wrong.
Dim used, half As Integer = @0.5
Print used @==
'! warning: this Double loses its fraction here; Floor(), Round() or Integer() says that it shall
'! '==' has no meaning here; '=' compares, and as a statement assigns

If False Then
  Print @'hello'
  Print ' an empty line, as 'planned'
  Print 'too
End If
'! warning: this prints an empty line: ' starts a comment, and text is in double quotes

