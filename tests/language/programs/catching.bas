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
  Print e.Message '> A member of Nil was used.
End Try
