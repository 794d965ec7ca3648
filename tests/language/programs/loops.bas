' Loops of every kind, and how often their bounds are computed.
Dim s As String
For i As Integer = 1 To 3 : s = s & i : Next
For i As Integer = 3 DownTo 1 : s = s & i : Next i
For i As Integer = 5 To 1 Step -2 : s = s & i : Next
For i As Integer = 10 DownTo 1 Step 4 : s = s & "," & i : Next
Dim one As Integer = 1
For i As Integer = 2 To one : s = s & "never" : Next
For x As Double = 0 To 1 Step 0.25 : s = s & " " & x : Next
Print s '> 123321531,10,6,2 0 0.25 0.5 0.75 1
Dim n As Integer = 9
For n = 1 To 3
Next
Print n '> 4
For n = 1 To 10
  n = n + 4
  Print n '> 5 | 10
Next
n = 2
For i As Integer = 1 To n ' of which the end is taken once
  n = 100
  Print i '> 1 | 2
Next
Dim last As Integer = 1e300, rounds As Integer
For i As Integer = last - 1 To last
  rounds = rounds + 1
Next
Print rounds '> 2
While rounds > 0
  Print rounds '> 2 | 1
  rounds = rounds - 1
Wend
Do
  rounds = rounds + 1
Loop Until rounds >= 3
Do While rounds < 5
  rounds = rounds + 1
  If rounds = 4 Then Continue Do
Loop
Do Until True
  rounds = 100
Loop
Print rounds '> 5
Dim v() As Integer
For Each i As Integer In v
  Print "never"
Next
v.Append 1
v.Append 2
For Each x As Double In v
  Print x / 2 '> 0.5 | 1 | 5 | 5
  If UBound(v) < 3 Then v.Append 10
Next x
n = 0
For Each p As Probe In Probe.row(4)
  n = n + p.Number
Next
Print n '> 6
