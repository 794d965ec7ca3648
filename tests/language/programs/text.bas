#!/usr/bin/env -S chromahost run
' Text searched from its end, sorted, and as bytes; lines that are written in pieces.
Write "a", 1
Write
Write "b"
Print '> a 1b
Print InStrRev("äbäb", "äb"), InStrRev("äbäb", "x"), InStrRev(2, "äbäb", "äb"), InStrRev(0, "a", "a"), InStrRev(9, "aa", "a") '> 3 0 1 0 2
Print StrComp("a", "B"), StrComp("a", "B", True), StrComp("Ä", "ä"), StrComp("Ä", "ä", True), StrComp("", "a") '> 1 -1 -1 0 -1
Print LenB("ä€"), LenB(""), Bytes("ä").Size, Bytes("").Size, Bytes("ä", "iso-8859-1").Byte(0), Bytes("€", "UTF-16").UInt16Value(0) '> 5 0 2 0 228 8364
Dim euro As MemoryBlock = Bytes("€", "windows-1252")
Print euro.Byte(0), DefineEncoding(euro.StringValue(0, 1), "Windows-1252") & "!", DefineEncoding("", "UTF-8") = "" '> 128 €! True
For i As Integer = 1 To 3
  Try
    If i = 1 Then Print Bytes("€", "ISO-8859-1").Size
    If i = 2 Then Print DefineEncoding(euro.StringValue(0, 1), "UTF-8")
    Print Bytes("a", "UTF-9").Size
  Catch e As TypeMismatchException
    Print e.Message '> The text has characters that are not in ISO-8859-1. | The text's bytes are invalid in UTF-8. | There is no encoding "UTF-9".
  End Try
Next
Dim v(3) As Integer
Print LBound(v), LBound(Split("")), UBound(v) '> 0 0 3
