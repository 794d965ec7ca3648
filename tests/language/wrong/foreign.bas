' What other languages write, and misspelt keywords.

Dim x As Integer = 1
x@++
Print x @== 1
While x @!= 1
Wend
Print Array(1)@[0]
Print 1@;
'! '++' has no meaning here; write 'x += 1'
'! '==' has no meaning here; '=' compares, and as a statement assigns
'! '!=' has no meaning here; '<>' compares
'! '[' has no meaning here; an element is written v(0), and Array(1, 2) makes an array
'! ';' has no meaning here; a line's end or ':' ends a statement

print("a"@, "b")
Print 2 @** 3
Print 2 = 3 @? 1
@Fro i As Integer = 1 To 2
@Dmi d As Double = 1
If 1 @&& 2 Then Print 1 Else Print 2
If 1 @== 2 Then
  Print 1
ElseIf 1 @!= 2 Then
  Print 2
@Edn If
End If
'! the values of a Print stand there without parentheses: Print a, b
'! '**' has no meaning here; write 'x ^ 2'
'! '?' has no meaning here; write 'If(condition, a, b)'
'! no statement begins with 'Fro', did you mean 'For'?
'! no statement begins with 'Dmi', did you mean 'Dim'?
'! '&&' has no meaning here; write 'And'
'! '==' has no meaning here; '=' compares, and as a statement assigns
'! '!=' has no meaning here; '<>' compares
'! no statement begins with 'Edn', did you mean 'End'?

@If True Then
Else If False Then
End If
'! this If block is never closed: 'End If' is missing; 'ElseIf' is one word

Dim x As Integer = 5
Print x --1
Dim n As @Long
Dim p As Probe = @null
@MsgBox "hello"
@Class Palette
@def f()
@Pritn 3
@Sbu
@EndIf
Print @UCase("a")
'! there is no type 'Long'; whole numbers are 'Integer'
'! there is no variable 'null'; no object is 'Nil'
'! there is no function or array 'MsgBox'; 'Print' writes a line
'! there is no function or array 'Class'; a program has no classes or modules of its own; write 'Sub' and 'Function'
'! there is no function or array 'def'; procedures are 'Sub' and 'Function'
'! there is no function or array 'Pritn', did you mean 'Print'?
'! there is no variable 'Sbu', did you mean 'Sub'?
'! there is no variable 'EndIf'; write 'End If'
'! there is no function or array 'UCase'; it is called 'Uppercase'

