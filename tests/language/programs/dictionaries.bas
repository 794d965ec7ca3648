' Dictionaries: keys that `=` finds equal are one key, in the order in which they were added.
Dim d As New Dictionary, o As New Probe(1)
d.Value("red") = #FF0000
d.Value(1) = "one"
d.Value(True) = 0.5
d.Value(1.0) = "uno"
d.Value(o) = o
d.Value(Nil) = "none"
Print d.Count, d.Value(1), Color(d.Value("red")), d.Value(True), Probe(d.Value(o)).Number, d.Value(Nil) '> 5 uno #FF0000 0.5 1 none
Print d.HasKey("Red"), d.HasKey(0.5), d.HasKey(o), d.Lookup("blue", 7), d.Lookup(1, 7) '> False False True 7 uno
d.Remove(True)
d.Value(0.1 + 0.2) = "sum"
For Each key As Variant In d
  Print key '> red | 1 | probe 1 | Nil | 0.30000000000000004
Next
Print d.Keys.Count, d.Values.Count '> 5 5
For Each missing As Variant In Array("x", 12, #000000, True)
  Try
    Print d.Value(missing)
  Catch e As KeyNotFoundException
    Print e.Message '> The dictionary has no key "x". | The dictionary has no key 12. | The dictionary has no such key. | The dictionary has no such key.
  End Try
Next
Try
  d.Value(Sqrt(-1)) = 1
Catch e As UnsupportedOperationException
  Print e.Message '> Not-a-number (NaN) cannot be a key.
End Try
d.Value("self") = d
d.Clear
Print d.Count, TypeOf d Is Dictionary, Not TypeOf d Is Probe '> 0 True True
Dim words() As String = Split("b a b c a b")
For Each word As String In words
  d.Value(word) = Integer(d.Lookup(word, 0)) + 1
Next
Print d.Keys, d.Values '> (b, a, c) (3, 2, 1)

' Members of arrays.
Dim names() As String = Array("zoë", "Zed", "ä", "z")
Dim ages() As Integer = Array(3, 1, 3, 2)
names.SortBy(ages)
Print names, ages '> (Zed, z, zoë, ä) (1, 2, 3, 3)
names.Sort
Print names, names.IndexOf("z"), names.IndexOf("y"), names.IndexOf("z", 2) '> (Zed, z, zoë, ä) 1 -1 -1
names.Reverse
Print names, names.Slice(1, 2), names.Slice(4), names.Pop, names '> (ä, zoë, z, Zed) (zoë, z) () Zed (ä, zoë, z)
Dim reals() As Double = Array(2.5, Sqrt(-1), -1, 0)
reals.Sort
Print reals.Slice(0, 3), Array(True, False, True).IndexOf(False) '> (-1, 0, 2.5) 1
For i As Integer = 1 To 2
  Try
    If i = 1 Then names.SortBy(Array(1)) Else Print reals.Slice(5)
  Catch e As OutOfBoundsException
    Print e.Message '> The numbers of keys and elements differ. | The index 5 is outside the range 0 to 3.
  End Try
Next
Dim count As Integer
Function Counted(value As String) As String
  count += 1
  Return value
End Function
Print If(names.Count > 1, Counted("many"), Counted("one")), If(False, 1, 2.5), count '> many 2.5 1
Print d.Value("a") = 2, d.Value("b") <> d.Value("c"), d.Value("b") = d.Value("b") '> True True True
' Many entries: half are removed, and the others are found.
d.Clear
For i As Integer = 1 To 3000
  d.Value(i * 1024) = i
  If i Mod 2 = 0 Then d.Remove(i * 512)
Next
Dim sum As Integer
For Each i As Integer In d
  sum += Integer(d.Value(i))
Next
Print d.Count, sum, d.HasKey(1024), d.Value(2048000) = 2000, d.Keys.Slice(0, 2) '> 1500 3375750 False True (1537024, 1538048)
