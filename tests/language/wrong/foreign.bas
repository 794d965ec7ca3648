' Spellings of other languages, and misspelt keywords.

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
'! '[' has no meaning here; an element is written v(0), and Array(1, 2) creates an array
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
'! Print takes its values without parentheses: Print a, b
'! '**' has no meaning here; write 'x ^ 2'
'! '?' has no meaning here; write 'If(condition, a, b)'
'! no statement begins with 'Fro', did you mean 'For'?
'! no statement begins with 'Dmi', did you mean 'Dim'?
'! '&&' has no meaning here; write 'And'
'! '==' has no meaning here; '=' compares, and as a statement assigns
'! '!=' has no meaning here; '<>' compares
'! no statement begins with 'Edn', did you mean 'End'?

If True Then
Else @If False Then
Else @If True Then
End If
Print 1 @Wend
'! 'ElseIf' is one word; an If after 'Else' needs a separate 'End If'
'! 'ElseIf' is one word; an If after 'Else' needs a separate 'End If'
'! the end of the statement is expected here, not 'Wend'

Dim s As String = @'hello'
Print @“hello”
Print @0xFF, 1
'! a value is expected here; ' starts a comment, and text is in double quotes
'! '“' has no meaning here; text is in straight double quotes: "text"
'! '0x' has no meaning here; a hexadecimal number is written &hFF

@x = 5
Print x
@max = x
For @i = 1 To 3
  Print i
Next
Dim list() As Color = Array(#f00), counter As Integer
For Each @c In list
  @countr = counter + 1
Next
@Var y As Integer
@Public z As Integer = y
Exit@
'! there is no variable 'x'; 'Dim x = ...' declares a variable
'! 'max' is a function; 'Dim max = ...' declares a variable of this name
'! there is no variable 'i'; 'For i As Integer = ...' declares a variable
'! there is no variable 'c'; 'For Each c As Color In ...' declares a variable
'! there is no variable 'countr', did you mean 'counter'?
'! no statement begins with 'Var'; a variable is declared by 'Dim x As Type' or 'Dim x = value'
'! no statement begins with 'Public'; 'Dim' declares a variable, and 'Sub' and 'Function' declare procedures
'! 'For', 'While', 'Do', 'Sub' or 'Function' is expected here, not the end of the program; 'Quit' ends the program

Dim d As New Dictionary, s As String = "a", v() As Integer, left As Integer
Print @d("a")
@d("a") = 1
Print s.@Length
Print s.@Split(",")
Print left.@Nothing
Print @s(0)
v.@push 1
Print v.@Join(",")
Print v.@Cout
Dim f As FolderItem = FolderItem(@"x")
Dim p As Probe = Probe(@"x")
Print @Left(s, 1)
'! this is of type Dictionary; 'd.Value(key)' is the value of a key
'! this is of type Dictionary; 'd.Value(key)' is the value of a key
'! String has no members; 'Len(text)' is the number of its characters
'! String has no members; it is a function: 'Split(value, ...)'
'! Integer has no members
'! this is of type String; 'Mid(text, 1, 1)' is a character
'! an array has no member 'push'; 'Append' adds an element
'! an array has no member 'Join'; it is a function: 'Join(value, ...)'
'! an array has no member 'Cout', did you mean 'Count'?
'! this is of type String and can never be a FolderItem; 'New FolderItem(...)' creates one
'! this is of type String and can never be a Probe
'! this is the variable 'Left' declared on line 1, which hides the function 'Left'

' Short names resemble too many others for a suggestion.
Print @Int(2.5)
Print @Sgn(1)
Print @Atn(1)
@Stop
@Tupe
Print @Sen(1)
'! there is no function or array 'Int'; 'Floor(x)' rounds down, and 'Integer(x)' cuts off the fraction
'! there is no function or array 'Sgn'; compare with 0: If(x < 0, -1, If(x > 0, 1, 0))
'! there is no function or array 'Atn'; it is called 'ATan'
'! there is no variable 'Stop'; 'Quit' ends the program
'! there is no variable 'Tupe'
'! there is no function or array 'Sen'

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
'! there is no function or array 'Class'; a program cannot declare classes or modules; write 'Sub' and 'Function'
'! there is no function or array 'def'; procedures are 'Sub' and 'Function'
'! there is no function or array 'Pritn', did you mean 'Print'?
'! there is no variable 'Sbu', did you mean 'Sub'?
'! there is no variable 'EndIf'; write 'End If'
'! there is no function or array 'UCase'; it is called 'Uppercase'

