' Blocks and text that are not closed, and meaningless characters.

Print 1
@If True Then
  Print 2

'! this If block is never closed: 'End If' is missing

@Do
Print 1
'! this Do block is never closed: 'Loop' is missing


Print 1
While True
  Print 2
@End If
'! 'Wend' to close the While block that began on line 2 is expected here, not 'End'

While True
If True Then
Print 1
@Wend
'! 'End If' to close the If block that began on line 2 is expected here, not 'Wend'

While True
@Sub A()
End Sub
'! 'Wend' to close the While block that began on line 1 is expected here, not 'Sub'

Sub A()
Print 1
@Sub B()
End Sub
'! 'End Sub' to close the Sub block that began on line 1 is expected here, not 'Sub'

If True Then
End If
@End If
'! 'End' closes no block

Try
  Select @1
  Case 1
    Print 2
  End Select
Catch e@
  Print e.Message
End Try
'! 'Case' is expected here, not '1'
'! 'As' and a class of exceptions is expected here, not the end of the line

While False
@Else
Wend
'! 'Else' belongs to no block

For i As Integer = 1 To 2
Next @j
'! this Next closes the loop over 'i', not over 'j'

Try
@End Try
'! 'Catch' or 'Finally' is expected here, not 'End'

Const C @5
Const D As Integer @5
'! 'As' or '=' is expected here, not '5'
'! '=' is expected here, not '5'

Print @"abc
Print 2
'! this text has no closing quote on its line

Print 1 @€ 2
'! the character '€' has no meaning here

Print 1 +@
'! a value is expected here, not the end of the program

Print 1 @Print 2
'! the end of the statement is expected here, not 'Print'

Print 1 + @_ 2
'! the line continuation '_' must be the last thing on its line

Print @&h12345678123456781
'! this number has more digits than an Integer can hold

Print &h@XYZ
'! a digit of base 16 is expected here

Print @1e999
'! this number is outside the range of a Double

Print @&cFF8000
'! a colour is written #RRGGBB or #RRGGBBAA

Print @#FF80F
'! a colour is written #RRGGBB, #RRGGBBAA, #RGB or #RGBA

Dim a As @Intger
Print a, a + 1
Print @b, c
If @d Then
  Print True @+ 1
End If
'! there is no type 'Intger', did you mean 'Integer'?
'! there is no variable 'b'
'! there is no variable 'd'
'! '+' cannot be applied to Boolean and Integer

