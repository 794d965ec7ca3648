' Unknown names.

Dim counter As Integer
Print @countr
'! there is no variable 'countr', did you mean 'counter'?

If True Then
  Dim inner As Integer
End If
Print @inner
'! there is no variable 'inner'

Dim x As Integer = @x
'! there is no variable 'x'

Print @Hxe(255)
'! there is no function or array 'Hxe', did you mean 'Hex'?

Dim d As @Duoble
'! there is no type 'Duoble', did you mean 'Double'?

Dim p As @Prob
'! there is no type 'Prob', did you mean 'Probe'?

Print New @Prob(1)
'! there is no class 'Prob', did you mean 'Probe'?

Print Probe.make(1).@sucessor
'! Probe has no member 'sucessor', did you mean 'successor'?

Print Probe.make(1).@make(2)
'! 'make' belongs to the class: write Probe.make

Print Probe.@successor
'! 'successor' belongs to the objects of Probe, not to the class

Dim v() As Integer
v.@Apend 1
'! an array has no member 'Apend', did you mean 'Append'?

Dim a As Integer
While True
  Dim @A As String
Wend
'! 'A' is already declared, on line 1

Sub A()
End Sub
Sub @a()
End Sub
'! 'a' is already declared with these parameters, on line 1

Sub @Probe()
End Sub
'! 'Probe' is the name of a class

Try
Catch e As @Probe
End Try
'! 'Probe' is not a class of exceptions

