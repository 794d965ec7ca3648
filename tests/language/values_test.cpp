// Literals, operators, functions of the language, and how values print.
#include "programs.h"

namespace {

TEST(Values, Literals) {
    expectPrinted(R"(Print 0, 12, 0.5, .25, 1.50, 1e3, 2.5E-3, &hFF, &b101, &o17 '> 0 12 0.5 0.25 1.5 1000 0.0025 255 5 15
Print "", "a ""quoted"" word", "ä€😀" '>  a "quoted" word ä€😀
Print &cFF8000, &cFF800040, &hFF8000 = &cFF8000 '> &h00FF8000 &h40FF8000 True
Print True, FALSE, nil '> True False Nil
Dim b1 As Integer = 7, h2 As Integer = 8
Print "x"&b1&h2, b1 &h2, &b1 '> x78 78 1)");
}

TEST(Values, Numbers) {
    // A double prints in the shortest form that reads back the same, with an exponent only far from 1.
    expectPrinted(
        R"(Print 0.1, 0.1 + 0.2, 1 / 3 '> 0.1 0.30000000000000004 0.3333333333333333
Print 100000.0, 123456789012345.0, 1e15, 0.00001, 0.000001, -0.0 '> 100000 123456789012345 1e+15 0.00001 1e-06 -0
Print 1 / 0, -1 / 0, 0 / 0 = 0 / 0 '> inf -inf False
Dim up As Integer = 2.9, down As Integer = -2.9, none As Integer = 0 / 0, most As Integer = 1e300
Print up, down, none, most > 2147483646, most < 0 '> 2 -2 0 True False
Dim c As Color = &hFF8000
Dim number As Integer = c
c = c + 1
Print c, number = 16744448, c And &hFF, c <> number '> &h00FF8001 True 1 True
Dim big As Integer = 1
For i As Integer = 1 To 30
  big = big * 2
Next
Dim lowest As Integer = -big * 2
If lowest + lowest <> 0 Then lowest = lowest * big * 4 ' 64 bits
Print lowest < 0, lowest - 1 > 0, lowest \ -1 = lowest, lowest Mod -1, Abs(lowest) = lowest '> True True True 0 True)");
}

TEST(Values, Operators) {
    expectPrinted(
        R"(Print 7 + 2, 7 - 2, 7 * 2, 7 / 2, 7 \ 2, -7 \ 2, 7 Mod 3, -7 Mod 3, 2 ^ 10 '> 9 5 14 3.5 3 -3 1 -1 1024
Print -2 ^ 2, 2 ^ -1, 2 ^ 3 ^ 2, 2 + 3 * 4, (2 + 3) * 4, 10 - 4 - 3, 2 * 7 Mod 4, 1 + 2 & 3 + 4, 7.9 \ 2.9 '> -4 0.5 64 14 20 3 2 37 3
Print Not 1 = 2, 1 < 2 And 2 < 3, True Or False And False, True Xor True Or True '> True True True False
Print 12 And 10, 12 Or 10, 12 Xor 10, Not 0, Not -1 '> 8 14 6 -1 0
Dim v() As Boolean
Print False And v(0), True Or v(0) '> False True
Print 1 < 2, 2 <= 2, 3 > 2.5, 2 >= 3, 1 = 1.0, 1 <> 1, True = False, "a" <> "b" '> True True True False True False False True
Print "Z" < "a", "a" = "A", "a" < "ab", "é" > "z", "abc" + "" = "abc" '> True False True True True
Print "a" & 1 & 0.5 & True & &c010203 & Nil & "", "a" + "b" '> a10.5True&h00010203Nil ab)");
}

TEST(Values, Functions) {
    expectPrinted(R"(Print Len("häß"), Mid("häßlich", 2, 2), Mid("abc", 2), Left("häß", 2), Right("häß", 2) '> 3 äß bc hä äß
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
Print Format(1e15, "#,##0"), Format(1.005, "0.000000"), Format(12, "") '> 1,000,000,000,000,000 1.005000 12)");
}

TEST(Values, ObjectsArraysAndVariants) {
    expectPrinted(R"(Dim none As Probe
Print New Probe(1), none, New OutOfBoundsException '> probe 1 Nil OutOfBoundsException
Dim doubles(1) As Double, names() As String
doubles(1) = 0.5
Print doubles, names, Probe.row(2) '> (0, 0.5) () (probe 0, probe 1)
Dim v As Variant = 1.5
Print v '> 1.5
v = "text"
Print v, Probe.echo(&c0000FF), Probe.echo(Nil), Probe.echo(Probe.make(1)) '> text &h000000FF Nil probe 1
Print Probe.echo(True), Probe.echo(doubles), Probe.echo(-7), Probe.echo(0.25) '> True (0, 0.5) -7 0.25
Print Integer(3.7), String(12) + String(v), Double(3) / 2 '> 3 12text 1.5
v = 3
Dim d As Double = v
Dim p As Probe = Probe.echo(Probe.make(8))
Print d, p.Number, Probe(Probe.echo(p)).Number '> 3 8 8
Dim whole() As Integer = Array(1, 2)
Dim colors() As Color = Array(1, &cFF0000)
Dim anything() As Variant = Array(1, "a", Nil)
Dim empty() As String = Array()
Print whole, colors, anything, empty '> (1, 2) (&h00000001, &h00FF0000) (1, a, Nil) ()
Print Array(1, 2.5), Array("a", 1), Array(Nil, New MemoryBlock(1)).Count, Array(Nil, p)(1).number '> (1, 2.5) (a, 1) 2 8)");
}

} // namespace
