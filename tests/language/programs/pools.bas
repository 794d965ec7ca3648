' Autoreleased objects of the platform are released at the end of every statement.
Dim before As Integer = Probe.nativesDestroyed
Print Probe.leaveNative, Probe.nativesDestroyed - before '> True 0
Print Probe.nativesDestroyed - before '> 1
For i As Integer = 1 To 3
  Probe.leaveNative
  Print Probe.nativesDestroyed - before '> 2 | 3 | 4
Next
If Probe.leaveNative Then Print Probe.nativesDestroyed - before '> 5
Dim rounds As Integer
While Probe.leaveNative And rounds < 2
  rounds = rounds + 1
  Print Probe.nativesDestroyed - before '> 6 | 7
Wend
Try
  Print Probe.leaveNative, Probe.make(1).makeAndRaise("IOException")
Catch
  Print Probe.nativesDestroyed - before '> 9
End Try
