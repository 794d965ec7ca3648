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

Dim a As New Probe(1)
If True Then
	Dim b As New Probe(2)
	Print "ä", b.@makeAndRaise("IOException")
End If
'! uncaught IOException: made

