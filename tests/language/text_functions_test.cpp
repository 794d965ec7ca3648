// Functions on text at their edges, and arrays that grow and shrink.
#include "programs.h"

namespace {

const PrintingCase texts[] = {
    {"Trimming", R"(Print "[" & Trim("  a b  ") & "][" & LTrim("  a ") & "][" & RTrim(" a  ") & "][" & Trim("   ") & "]")",
     "[a b][a ][ a][]\n"},
    {"Replacing",
     R"(Print Replace("aaa", "aa", "b"), Replace("äöä", "ä", ""), Replace("abc", "", "x"), Replace("", "a", "b"))",
     "ba ö abc \n"},
    {"SplittingAndJoining", R"(Print Split("a,,b,", ","), Split("äö", ""), Split("one two"), Split("", ",")
Dim none() As String
Print "[" & Join(none) & "]", Join(Split("a b"), ""))",
     "(a, , b, ) (ä, ö) (one, two) ()\n[] ab\n"},
    {"Characters", R"(Print Chr(65), Chr(228), Chr(8364), Chr(128512), Asc("€uro"), Asc(Chr(128512)), Asc(""))",
     "A ä € 😀 8364 128512 -1\n"},
    {"Searching",
     R"(Print InStr(2, "äbäb", "b"), InStr(3, "äbäb", "b"), InStr(5, "äbäb", "b"), InStr(-1, "ab", "a"), InStr(9, "ab", ""))",
     "2 4 0 1 0\n"},
    {"Repeating", R"(Print Repeat("ab", 3), Repeat("ab", 0), Repeat("ab", -1), Repeat("", 5), Len(Repeat("ä", 1000)))",
     "ababab    1000\n"},
    {"FormattedNumbers",
     R"(Print Format(0, "0.00"), Format(0, "#"), Format(0.5, "#.0"), Format(1234567.891, "#,##0.##"), Format(999, "#,##0")
Print Format(-0.001, "0.0"), Format(-1.5, "0"), Format(7, "0000"), Format(0.125, "0%"), Format(3, "0 \%"), Format(2, "\#0")
Print Format(5, "EUR 0.00 net"), Format(1e15, "#,##0"), Format(1.005, "0.000000"), Format(12, ""))",
     "0.00  .5 1,234,567.89 999\n0.0 -2 0007 12% 3 % #2\nEUR 5.00 net 1,000,000,000,000,000 1.005000 12\n"},
    {"WhatIsRefused", R"(For i As Integer = 1 To 5
  Try
    Select Case i
    Case 1
      Print Chr(&hD800)
    Case 2
      Print Chr(-1)
    Case 3
      Print Len(Repeat("abc", 1000000000))
    Case 4
      Dim none() As String = Nil
      Print Join(none)
    Case 5
      Dim v() As Integer = Array(1)
      v.Insert(2, 5)
    End Select
  Catch e As RuntimeException
    Print e IsA OutOfBoundsException, e IsA OutOfMemoryException, e IsA NilObjectException
  End Try
Next)",
     "True False False\nTrue False False\nFalse True False\nFalse False True\nTrue False False\n"},
};
const bool textsAdded = addCases("TextFunctions", texts);

const PrintingCase arrays[] = {
    {"ObjectsComeAndGo", R"(Dim v() As Probe
v.Append Probe.make(1)
v.Insert(0, Probe.make(2))
v.Insert(v.Count, Probe.make(3))
v.Remove(1)
ReDim v(2)
Print v, v(0).number, v(1).number
Dim w() As Probe = Array(v(0), Nil)
Print w, w.Count, UBound(w))",
     "(Probe, Probe, Nil) 2 3\n(Probe, Nil) 2 1\n"},
    {"TheTypeOfArray", R"(Dim whole() As Integer = Array(1, 2)
Dim colors() As Color = Array(1, &cFF0000)
Dim anything() As Variant = Array(1, "a", Nil)
Dim empty() As String = Array()
Print whole, colors, anything, empty, Array(Nil, Probe.make(1))(1).number)",
     "(1, 2) (&h00000001, &h00FF0000) (1, a, Nil) () 1\n"},
};
const bool arraysAdded = addCases("GrowingArrays", arrays);

const FailingCase wrong[] = {
    {"MemberOfArrays", "Dim v() As Integer\nv.Apend 1",
     "test.bas:2:3: error: an array has no member 'Apend', did you mean 'Append'?\nv.Apend 1\n  ^\n"},
    {"ArgumentsOfArrays", "Dim v() As Integer\nv.Insert 1",
     "test.bas:2:3: error: 'Insert' takes an index and an element\nv.Insert 1\n  ^\n"},
    {"ElementOfArray", "Dim v() As Integer = Array(1, \"a\")",
     "test.bas:1:31: error: this is of type String, but Integer is needed here\nDim v() As Integer = Array(1, \"a\")\n"
     "                              ^\n"},
    {"Procedures", "Sub A(n As Integer)\nEnd Sub\nA \"x\"\nPrint A(1)",
     "test.bas:3:1: error: A cannot be called with (String). Declared:\n    A(n As Integer)\nA \"x\"\n^\n"
     "test.bas:4:7: error: this call gives no value\nPrint A(1)\n      ^\n"},
    {"ByReference", "Sub A(ByRef n As Integer)\nEnd Sub\nA 1",
     "test.bas:3:1: error: A cannot be called with (Integer): a byref argument must be a variable. Declared:\n"
     "    A(ByRef n As Integer)\nA 1\n^\n"},
    {"Parameters", "Sub A(n As Integer = 1, m As Integer)\nEnd Sub\nSub B(ParamArray v As Integer, n As Integer)\nEnd Sub",
     "test.bas:1:25: error: a parameter behind one with a default needs a default too\n"
     "Sub A(n As Integer = 1, m As Integer)\n                        ^\n"
     "test.bas:3:32: error: nothing can follow a ParamArray\nSub B(ParamArray v As Integer, n As Integer)\n"
     "                               ^\n"},
    {"Leaving", "Sub A()\nExit Function\nContinue\nReturn 1\nEnd Sub",
     "test.bas:2:1: error: this is not inside a Function\nExit Function\n^\n"
     "test.bas:3:1: error: this is not inside a loop\nContinue\n^\n"
     "test.bas:4:8: error: only a Function returns a value\nReturn 1\n       ^\n"},
    {"ProcedureInAnOpenBlock", "While True\nSub A()\nEnd Sub",
     "test.bas:2:1: error: 'Wend' to close the While block that began on line 1 is expected here, not 'Sub'\nSub A()\n^\n"},
    {"NamesOfClasses", "Sub Probe()\nEnd Sub", "test.bas:1:5: error: 'Probe' is the name of a class\nSub Probe()\n    ^\n"},
    {"ConstantsOfVariables", "Dim i As Integer\nConst C = i + 1\nPrint C",
     "test.bas:2:13: error: this value must be made of literals and constants\nConst C = i + 1\n            ^\n"},
};
const bool wrongAdded = addCases("WrongProceduresAndArrays", wrong);

} // namespace
