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

Dim x As Integer = 5
Print x --1
Dim n As @Long
Dim p As Probe = @null
@MsgBox "hello"
@Class Palette
@def f()
@Pritn 3
'! there is no type 'Long'; whole numbers are 'Integer'
'! there is no variable 'null'; no object is 'Nil'
'! there is no function or array 'MsgBox'; 'Print' writes a line
'! there is no function or array 'Class'; a program has no classes or modules of its own; write 'Sub' and 'Function'
'! there is no function or array 'def'; procedures are 'Sub' and 'Function'
'! there is no function or array 'Pritn', did you mean 'Print'?

