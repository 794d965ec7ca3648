' Errors that occur while a program runs.

Dim p As Probe
If p.@number = 1 Then Print 1
'! uncaught NilObjectException: A member of Nil was used: 'p' is Nil.

Dim v(2) As Integer
@v(3) = 1
'! uncaught OutOfBoundsException: The index 3 is outside the range 0 to 2.

Print 1 @\ 0
'! uncaught DivideByZeroException: Division by zero.

Dim all As New Dictionary, p As Probe
all.Value("a) ""b") = p
Print Probe(all . Value("a) ""b")) . @number
'! uncaught NilObjectException: A member of Nil was used: 'Probe(all . Value("a) ""b"))' is Nil.

' Repeated calls are folded. Of other calls the first and the last are shown.
Sub Down(n As Integer)
  If n = 0 Then @Raise New RuntimeException("deep")
  Down n - 1
End Sub
Sub Even(n As Integer)
  If n < 3 Then Down(n) Else Odd(n - 1)
End Sub
Sub Odd(n As Integer)
  Even(n - 1)
End Sub
Even 30
'! uncaught RuntimeException: deep
'| called from test.bas:4:3 in Down
'| called from test.bas:4:3 in Down
'| called from test.bas:7:17 in Even
'| called from test.bas:10:3 in Odd
'| called from test.bas:7:30 in Even
'| ... the same 2 calls 13 more times
'| called from test.bas:12:1

Sub Turn(n As Integer)
  Select Case n Mod 7
  Case 1, 3, 6
    Turn(n - 1)
  Case 2, 5
    Turn(n - 1)
  Case 4
    Turn(n - 1)
  Case Else
    If n = 0 Then @Raise New IOException("end", 5) Else Turn(n - 1)
  End Select
End Sub
Turn 21
'! uncaught IOException: end
'| called from test.bas:4:5 in Turn
'| called from test.bas:6:5 in Turn
'| called from test.bas:4:5 in Turn
'| called from test.bas:8:5 in Turn
'| called from test.bas:6:5 in Turn
'| called from test.bas:4:5 in Turn
'| called from test.bas:10:56 in Turn
'| called from test.bas:4:5 in Turn
'| called from test.bas:6:5 in Turn
'| called from test.bas:4:5 in Turn
'| ... 2 more lines
'| called from test.bas:4:5 in Turn
'| called from test.bas:10:56 in Turn
'| called from test.bas:4:5 in Turn
'| called from test.bas:6:5 in Turn
'| called from test.bas:4:5 in Turn
'| called from test.bas:8:5 in Turn
'| called from test.bas:6:5 in Turn
'| called from test.bas:4:5 in Turn
'| called from test.bas:10:56 in Turn
'| called from test.bas:13:1

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

