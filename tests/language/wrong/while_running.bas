' What is found while a program runs.

Dim p As Probe
If p.@number = 1 Then Print 1
'! uncaught NilObjectException: A member of Nil was used.

Dim v(2) As Integer
@v(3) = 1
'! uncaught OutOfBoundsException: The index 3 is outside the range 0 to 2.

Print 1 @\ 0
'! uncaught DivideByZeroException: Division by zero.

Sub Down()
@Down
End Sub
Down
'! uncaught StackOverflowException: Calls are nested too deeply.
'| called from test.bas:2:1 in Down
'| called from test.bas:2:1 in Down
'| called from test.bas:2:1 in Down
'| called from test.bas:2:1 in Down
'| called from test.bas:2:1 in Down
'| called from test.bas:2:1 in Down
'| called from test.bas:2:1 in Down
'| called from test.bas:2:1 in Down
'| called from test.bas:2:1 in Down
'| called from test.bas:2:1 in Down

Function Half(n As Integer) As Integer
  Return 1 @\ n
End Function
Sub Both(n As Integer, ByRef result As Integer)
  result = Half(n)
End Sub
Dim v(1) As Integer
Both 0, v(1)
'! uncaught DivideByZeroException: Division by zero.
'| called from test.bas:5:12 in Both
'| called from test.bas:8:1

Dim a As New Probe(1)
If True Then
	Dim b As New Probe(2)
	Print "ä", b.@makeAndRaise("IOException"), a
End If
'! uncaught IOException: made

