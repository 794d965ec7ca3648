' A program's report contains every error, and no error twice.

Dim x As@
Print x
If 1 > @Then
  @Prnt 3
Else
  For i As Integer = 1 @Too 9
    Print @wrong
  Next
End If
Sub Bad(a As @Duble)
  Print a
End Sub
Bad(3)
Function F() As Integer
  Return @"x"
End Function
@While True
  @Exit Do
Print &h@GG
'! a type is expected here, not the end of the line
'! a value is expected here, not 'Then'
'! there is no function or array 'Prnt', did you mean 'Print'?
'! 'To' or 'DownTo' is expected here, not 'Too'
'! there is no variable 'wrong'
'! there is no type 'Duble', did you mean 'Double'?
'! this is of type String, but Integer is needed here; 'Integer(...)' converts it
'! this While block is never closed: 'Wend' is missing
'! this is not inside a Do loop
'! a digit of base 16 is expected here

