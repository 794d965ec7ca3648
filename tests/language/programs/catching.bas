' Try, Catch and Finally.
Dim v() As Double
For i As Integer = 1 To 3
  Try
    If i = 1 Then v(5) = 1
    If i = 2 Then Print 1 \ 0
    Print "quiet" '> OutOfBoundsException: The index 5 is used on an empty array. The index 5 is used on an empty array. | other DivideByZeroException: Division by zero. | quiet
  Catch e As OutOfBoundsException
    Print e, e.Message
  Catch e As RuntimeException
    Print "other", e
  End Try
Next
Try
  Try
    Print 1 Mod 0
  Finally
    Print "inner" '> inner
  End Try
  Print "skipped"
Catch
  Print "caught" '> caught
Finally
  Print "outer" '> outer
End Try
Try
  Print "well" '> well
Finally
  Print "last" '> last
End Try
Try
  Try
    Print 1 Mod 0
  Catch e As DivideByZeroException
    Dim p As Probe
    Print p.Number
  Finally
    Print "finally" '> finally
  End Try
Catch e As NilObjectException
  Print e.Message '> A member of Nil was used: 'p' is Nil.
End Try

' The calls that an exception has left, and the calls around its Catch.
Sub Fail(depth As Integer)
  If depth = 0 Then Raise New IOException("lost")
  Fail depth - 1
End Sub
Sub Tell()
  Try
    Fail 1
  Catch e As IOException
    Print e.Stack '> raised at test.bas:46:21 in Fail | called from test.bas:47:3 in Fail | called from test.bas:51:5 in Tell | called from test.bas:56:1
  End Try
End Sub
Tell
Try
  Fail -(0)
Catch e As IOException
  Print e.Stack '> raised at test.bas:46:21 in Fail | called from test.bas:58:3
End Try
