' Functions of the language.
Print Len("häß"), Mid("häßlich", 2, 2), Mid("abc", 2), Left("häß", 2), Right("häß", 2) '> 3 äß bc hä äß
Print Mid("abc", 9) & Mid("abc", -5, 2) & Left("abc", -1) & Right("abc", 0), Right("abc", 9), Left("ab", 9) '> ab abc ab
Print InStr("häß", "ß"), InStr("a", "x"), InStr(2, "äbäb", "b"), InStr(3, "äbäb", "b"), InStr(5, "äbäb", "b") '> 3 0 2 4 0
Print InStr(-1, "ab", "a"), InStr(9, "ab", "") '> 1 0
Print Uppercase("straße é ж"), Lowercase("ÀB Ω") '> STRAßE É Ж àb ω
Print Str(0.5) + Str(3) + Str(True), Hex(255), Hex(255, 4), Hex(#00FF0000, 6), Hex(0) '> 0.53True FF 00FF 00FF00 0
Print Val("12"), Val(" -1.5e2 "), Val(".5"), Val("&hFF"), Val("x", 3), Val("", 4), Val("12x", 5), Val("-", 6) '> 12 -150 0.5 255 3 4 5 6
Print Round(2.5), Round(-2.5), Floor(-0.5), Ceil(0.2), Abs(-3), Abs(-0.5), Min(1, 2.5), Max(3, 2) '> 3 -3 -1 1 3 0.5 1 3
Print RGB(1, 2, 255), RGB(300, -1, 0, 128) '> #0102FF #FF000080
Print "[" & Trim("  a b  ") & "][" & LTrim("  a ") & "][" & RTrim(" a  ") & "][" & Trim("   ") & "]" '> [a b][a ][ a][]
Print Replace("aaa", "aa", "b"), Replace("äöä", "ä", ""), Replace("abc", "", "x"), Replace("", "a", "b") & "." '> ba ö abc .
Print Split("a,,b,", ","), Split("äö", ""), Split("one two"), Split("", ",") '> (a, , b, ) (ä, ö) (one, two) ()
Dim none() As String
Print "[" & Join(none) & "]", Join(Split("a b"), "") '> [] ab
Print Chr(65), Chr(228), Chr(8364), Chr(128512), Asc("€uro"), Asc(Chr(128512)), Asc("") '> A ä € 😀 8364 128512 -1
Print Repeat("ab", 3), Repeat("ab", 0), Repeat("ab", -1), Repeat("", 5), Len(Repeat("ä", 1000)) '> ababab    1000
Print Format(0, "0.00"), Format(0, "#"), Format(0.5, "#.0"), Format(1234567.891, "#,##0.##") '> 0.00  .5 1,234,567.89
Print Format(999, "#,##0"), Format(-0.001, "0.0"), Format(-1.5, "0"), Format(7, "0000") '> 999 0.0 -2 0007
Print Format(0.125, "0%"), Format(3, "0 \%"), Format(2, "\#0"), Format(5, "EUR 0.00 net") '> 13% 3 % #2 EUR 5.00 net
Print Format(1e15, "#,##0"), Format(1.005, "0.000000"), Format(12, "") '> 1,000,000,000,000,000 1.005000 12

' Text is converted to numbers and colours explicitly, and raises if that is impossible.
Dim held As Variant = "&h10", half As Variant = 2.5
Print Integer(" -12 "), Integer(held), Integer(half), Double("1.5e1"), Integer("2.9"), String(half), Integer(-2.9) '> -12 16 2 15 2 2.5 -2
Print Color("#f80"), Color(" Orange "), Color("#01020304"), String(#FFF) '> #FF8800 #FFA500 #01020304 #FFFFFF
For Each text As String In Array("", "12x", "&h", "1e999", "#ff")
  Try
    Print Val(text)
  Catch e As TypeMismatchException
    Print e.Message '> "" is not a number. | "12x" is not a number. | "&h" is not a number. | "1e999" is not a number. | "#ff" is not a number.
  End Try
Next
Try
  Print Color("greenish")
Catch e As TypeMismatchException
  Print e.Message '> "greenish" is not a colour.
End Try

' A call without parentheses may begin with a number of another base. After `=` and in expressions, & joins.
Dim b1 As String = "!"
Sub Show(value As Integer)
  Print value
End Sub
Show &hFF '> 255
If True Then Show &b101 '> 5
Dim joined As String = "a" &b1
Print joined, "a" &b1 '> a! a!

' Constants may contain functions that only compute.
Const NL = Chr(10) : Const Three = Floor(7 / 2)
Const Turn = 2 * Pi : Const Orange = RGB(255, 2 * 64, 0) : Const Count As Integer = Len("a" & NL)
Sub Lines(Optional text As String = Uppercase("a") & Chr(10))
  Print Split(text, NL).Count, Three, Format(Turn, "0.00"), Orange, Count '> 2 3 6.28 #FF8000 2
End Sub
Lines
Print Red(Orange), Green(Orange), Blue(Orange), Alpha(Orange), Alpha(#12345678) '> 255 128 0 255 120
Try : Print Hex(New MemoryBlock(1)) : Catch e As RuntimeException : Print e : End Try '> TypeMismatchException: This MemoryBlock is not a colour that sRGB can show.
Try : Dim nobody As Object : Print Hex(nobody) : Catch e As RuntimeException : Print e : End Try '> NilObjectException: Hex was called with Nil.
Dim started As Double = Microseconds
Print Microseconds >= started '> True
