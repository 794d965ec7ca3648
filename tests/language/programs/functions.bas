' Functions of the language.
Print Len("häß"), Mid("häßlich", 2, 2), Mid("abc", 2), Left("häß", 2), Right("häß", 2) '> 3 äß bc hä äß
Print Mid("abc", 9) & Mid("abc", -5, 2) & Left("abc", -1) & Right("abc", 0), Right("abc", 9), Left("ab", 9) '> ab abc ab
Print InStr("häß", "ß"), InStr("a", "x"), InStr(2, "äbäb", "b"), InStr(3, "äbäb", "b"), InStr(5, "äbäb", "b") '> 3 0 2 4 0
Print InStr(-1, "ab", "a"), InStr(9, "ab", "") '> 1 0
Print Uppercase("straße é ж"), Lowercase("ÀB Ω") '> STRAßE É Ж àb ω
Print Str(0.5) + Str(3) + Str(True), Hex(255), Hex(255, 4), Hex(&c00FF00, 6), Hex(0) '> 0.53True FF 00FF 00FF00 0
Print Val("12"), Val(" -1.5e2x"), Val(".5"), Val("x"), Val(""), Val("inf"), Val("-") '> 12 -150 0.5 0 0 0 0
Print Round(2.5), Round(-2.5), Floor(-0.5), Ceil(0.2), Abs(-3), Abs(-0.5), Min(1, 2.5), Max(3, 2) '> 3 -3 -1 1 3 0.5 1 3
Print RGB(1, 2, 255), RGB(300, -1, 0, 128) '> &h000102FF &h80FF0000
Print "[" & Trim("  a b  ") & "][" & LTrim("  a ") & "][" & RTrim(" a  ") & "][" & Trim("   ") & "]" '> [a b][a ][ a][]
Print Replace("aaa", "aa", "b"), Replace("äöä", "ä", ""), Replace("abc", "", "x"), Replace("", "a", "b") & "." '> ba ö abc .
Print Split("a,,b,", ","), Split("äö", ""), Split("one two"), Split("", ",") '> (a, , b, ) (ä, ö) (one, two) ()
Dim none() As String
Print "[" & Join(none) & "]", Join(Split("a b"), "") '> [] ab
Print Chr(65), Chr(228), Chr(8364), Chr(128512), Asc("€uro"), Asc(Chr(128512)), Asc("") '> A ä € 😀 8364 128512 -1
Print Repeat("ab", 3), Repeat("ab", 0), Repeat("ab", -1), Repeat("", 5), Len(Repeat("ä", 1000)) '> ababab    1000
Print Format(0, "0.00"), Format(0, "#"), Format(0.5, "#.0"), Format(1234567.891, "#,##0.##") '> 0.00  .5 1,234,567.89
Print Format(999, "#,##0"), Format(-0.001, "0.0"), Format(-1.5, "0"), Format(7, "0000") '> 999 0.0 -2 0007
Print Format(0.125, "0%"), Format(3, "0 \%"), Format(2, "\#0"), Format(5, "EUR 0.00 net") '> 12% 3 % #2 EUR 5.00 net
Print Format(1e15, "#,##0"), Format(1.005, "0.000000"), Format(12, "") '> 1,000,000,000,000,000 1.005000 12
