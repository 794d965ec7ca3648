// Literals, operators, functions of the language, and how values print.
#include "programs.h"

namespace {

const PrintingCase literals[] = {
    {"Numbers", R"(Print 0, 12, 0.5, .25, 1.50, 1e3, 2.5E-3, &hFF, &b101, &o17)",
     "0 12 0.5 0.25 1.5 1000 0.0025 255 5 15\n"},
    {"Texts", R"(Print "", "a ""quoted"" word", "ä€😀")", " a \"quoted\" word ä€😀\n"},
    {"Colors", R"(Print &cFF8000, &cFF800040, &hFF8000 = &cFF8000)", "&h00FF8000 &h40FF8000 True\n"},
    {"Words", R"(Print True, FALSE, nil)", "True False Nil\n"},
    {"AmpersandBehindAnOperandJoins", R"(Dim b1, h2 As Integer
b1 = 7
h2 = 8
Print "x"&b1&h2, b1 &h2, &b1)",
     "x78 78 1\n"},
};
const bool literalsAdded = addCases("Literals", literals);

const PrintingCase numbers[] = {
    // The shortest form that reads back the same, with an exponent only far from 1.
    {"DoublesPrintShortest", R"(Print 0.1, 0.1 + 0.2, 1 / 3, 100000.0, 123456789012345.0, 1e15, 0.00001, 0.000001, -0.0)",
     "0.1 0.30000000000000004 0.3333333333333333 100000 123456789012345 1e+15 0.00001 1e-06 -0\n"},
    {"BeyondNumbers", R"(Print 1 / 0, -1 / 0, 0 / 0 = 0 / 0)", "inf -inf False\n"},
    {"DoublesBecomeIntegersByCutting", R"(Dim i As Integer = 2.9
Dim j As Integer = -2.9
Dim k As Integer = 0 / 0
Dim l As Integer = 1e300
Print i, j, k, l > 2147483646, l < 0)",
     "2 -2 0 True False\n"},
    {"ColorsAreTheirNumbers", R"(Dim c As Color = &hFF8000
Dim i As Integer = c
c = c + 1
Print c, i = 16744448, c And &hFF, c <> i)",
     "&h00FF8001 True 1 True\n"},
};
const bool numbersAdded = addCases("Numbers", numbers);

const PrintingCase operators[] = {
    {"Arithmetic", R"(Print 7 + 2, 7 - 2, 7 * 2, 7 / 2, 7 \ 2, -7 \ 2, 7 Mod 3, -7 Mod 3, 2 ^ 10, 7.9 \ 2.9)",
     "9 5 14 3.5 3 -3 1 -1 1024 3\n"},
    {"Precedence", R"(Print -2 ^ 2, 2 ^ -1, 2 ^ 3 ^ 2, 2 + 3 * 4, (2 + 3) * 4, 10 - 4 - 3, 2 * 7 Mod 4, 1 + 2 & 3 + 4)",
     "-4 0.5 64 14 20 3 2 37\n"},
    {"LogicBindsLooserThanComparisons",
     R"(Print Not 1 = 2, 1 < 2 And 2 < 3, True Or False And False, True Xor True Or True)", "True True True False\n"},
    {"BitsOfIntegers", R"(Print 12 And 10, 12 Or 10, 12 Xor 10, Not 0, Not -1)", "8 14 6 -1 0\n"},
    {"AndAndOrStopWhenDecided", R"(Dim v() As Boolean
Print False And v(0), True Or v(0))",
     "False True\n"},
    {"Comparisons", R"(Print 1 < 2, 2 <= 2, 3 > 2.5, 2 >= 3, 1 = 1.0, 1 <> 1, True = False, "a" <> "b")",
     "True True True False True False False True\n"},
    {"TextsCompareByCodePoint", R"(Print "Z" < "a", "a" = "A", "a" < "ab", "é" > "z", "abc" + "" = "abc")",
     "True False True True True\n"},
    {"JoiningTakesEveryType", R"(Print "a" & 1 & 0.5 & True & &c010203 & Nil & "", "a" + "b")",
     "a10.5True&h00010203Nil ab\n"},
    {"IntegersWrapAround", R"(Dim big As Integer = 1
For i As Integer = 1 To 30
  big = big * 2
Next
Dim lowest As Integer = -big * 2
If lowest + lowest <> 0 Then lowest = lowest * big * 4 ' 64 bits
Print lowest < 0, lowest - 1 > 0, lowest \ -1 = lowest, lowest Mod -1, Abs(lowest) = lowest)",
     "True True True 0 True\n"},
};
const bool operatorsAdded = addCases("Operators", operators);

const PrintingCase functions[] = {
    {"Texts",
     R"(Print Len("häß"), Mid("häßlich", 2, 2), Mid("abc", 2), Left("häß", 2), Right("häß", 2), InStr("häß", "ß"), InStr("a", "x"))",
     "3 äß bc hä äß 3 0\n"},
    {"TextsBeyondTheirEnds",
     R"(Print Mid("abc", 9) & Mid("abc", -5, 2) & Left("abc", -1) & Right("abc", 0), Right("abc", 9), Left("ab", 9))",
     "ab abc ab\n"},
    {"Case", R"(Print Uppercase("straße é ж"), Lowercase("ÀB Ω"))", "STRAßE É Ж àb ω\n"},
    {"NumbersAsText", R"(Print Str(0.5) + Str(3) + Str(True), Hex(255), Hex(255, 4), Hex(&c00FF00, 6), Hex(0))",
     "0.53True FF 00FF 00FF00 0\n"},
    {"TextAsNumber", R"(Print Val("12"), Val(" -1.5e2x"), Val(".5"), Val("x"), Val(""), Val("inf"), Val("-"))",
     "12 -150 0.5 0 0 0 0\n"},
    {"Rounding", R"(Print Round(2.5), Round(-2.5), Floor(-0.5), Ceil(0.2), Abs(-3), Abs(-0.5), Min(1, 2.5), Max(3, 2))",
     "3 -3 -1 1 3 0.5 1 3\n"},
    {"Rgb", R"(Print RGB(1, 2, 255), RGB(300, -1, 0, 128))", "&h000102FF &h80FF0000\n"},
};
const bool functionsAdded = addCases("Functions", functions);

const PrintingCase otherValues[] = {
    {"ObjectsPrintTheirClass", R"(Dim p As New Probe(1)
Dim none As Probe
Print p, none, New OutOfBoundsException)",
     "Probe Nil OutOfBoundsException\n"},
    {"ArraysPrintTheirElements", R"(Dim v(1) As Double
v(1) = 0.5
Dim names() As String
Print v, names, Probe.row(2))",
     "(0, 0.5) () (Probe, Probe)\n"},
    {"VariantsPrintWhatTheyHold", R"(Dim v As Variant = 1.5
Print v
v = "text"
Print v, Probe.echo(&c0000FF), Probe.echo(Nil), Probe.echo(Probe.make(1)))",
     "1.5\ntext &h000000FF Nil Probe\n"},
    {"VariantsConvertBack", R"(Dim v As Variant = 3
Dim d As Double = v
Dim p As Probe = Probe.echo(Probe.make(8))
Print d, p.Number, Probe(Probe.echo(p)).Number)",
     "3 8 8\n"},
};
const bool otherValuesAdded = addCases("OtherValues", otherValues);

} // namespace
