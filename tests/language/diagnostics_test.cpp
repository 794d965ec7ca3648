// Errors that are found before a program runs, and how they are shown.
#include "programs.h"

namespace {

const FailingCase names[] = {
    {"Variable", "Dim counter As Integer\nPrint countr",
     "test.bas:2:7: error: there is no variable 'countr', did you mean 'counter'?\nPrint countr\n      ^\n"},
    {"VariableOutsideItsBlock", "If True Then\n  Dim inner As Integer\nEnd If\nPrint inner",
     "test.bas:4:7: error: there is no variable 'inner'\nPrint inner\n      ^\n"},
    {"VariableInItsOwnValue", "Dim x As Integer = x",
     "test.bas:1:20: error: there is no variable 'x'\nDim x As Integer = x\n                   ^\n"},
    {"Function", "Print Hxe(255)",
     "test.bas:1:7: error: there is no function or array 'Hxe', did you mean 'Hex'?\nPrint Hxe(255)\n      ^\n"},
    {"Type", "Dim d As Duoble",
     "test.bas:1:10: error: there is no type 'Duoble', did you mean 'Double'?\nDim d As Duoble\n         ^\n"},
    {"Class", "Print New Prob(1)",
     "test.bas:1:11: error: there is no class 'Prob', did you mean 'Probe'?\nPrint New Prob(1)\n          ^\n"},
    {"Member", "Print Probe.make(1).sucessor",
     "test.bas:1:21: error: Probe has no member 'sucessor', did you mean 'successor'?\nPrint Probe.make(1).sucessor\n"
     "                    ^\n"},
    {"MemberOfTheClass", "Print Probe.make(1).make(2)",
     "test.bas:1:21: error: 'make' belongs to the class: write Probe.make\nPrint Probe.make(1).make(2)\n"
     "                    ^\n"},
    {"MemberOfObjects", "Print Probe.successor",
     "test.bas:1:13: error: 'successor' belongs to the objects of Probe, not to the class\nPrint Probe.successor\n"
     "            ^\n"},
    {"DeclaredTwice", "Dim a As Integer\nWhile True\n  Dim A As String\nWend",
     "test.bas:3:7: error: 'A' is declared already in this block or one around it\n  Dim A As String\n      ^\n"},
    {"NoExceptionClass", "Try\nCatch e As Probe\nEnd Try",
     "test.bas:2:12: error: 'Probe' is no class of exceptions\nCatch e As Probe\n           ^\n"},
};
const bool namesAdded = addCases("WrongNames", names);

const FailingCase types[] = {
    {"Assignment", "Dim s As String\ns = 1",
     "test.bas:2:5: error: this is of type Integer, but String is needed here\ns = 1\n    ^\n"},
    {"OtherClass", "Dim p As Probe = New MemoryBlock(1)",
     "test.bas:1:18: error: this is of type MemoryBlock, but Probe is needed here\nDim p As Probe = New MemoryBlock(1)\n"
     "                 ^\n"},
    {"Condition", "If 1 Then Print 1",
     "test.bas:1:4: error: this is of type Integer, but Boolean is needed here\nIf 1 Then Print 1\n   ^\n"},
    {"DoubleIsNoColor", "Dim c As Color = 0.5",
     "test.bas:1:18: error: this is of type Double, but Color is needed here\nDim c As Color = 0.5\n                 ^\n"},
    {"PlusOfTextAndNumber", "Print \"a\" + 1",
     "test.bas:1:11: error: '+' cannot be applied to String and Integer; '&' joins values of any type\nPrint \"a\" + 1\n"
     "          ^\n"},
    {"Operands", "Print True < False",
     "test.bas:1:12: error: '<' cannot be applied to Boolean and Boolean\nPrint True < False\n           ^\n"},
    {"NoValue", "Dim v() As Double\nPrint v.Append(1)",
     "test.bas:2:9: error: this call gives no value\nPrint v.Append(1)\n        ^\n"},
    {"NothingDone", "Dim p As New Probe(1)\np.description",
     "test.bas:2:3: error: this is a value, but nothing is done with it\np.description\n  ^\n"},
    {"ReadOnly", "Dim p As New Probe(1)\np.description = \"x\"",
     "test.bas:2:3: error: the property 'description' of Probe is read-only\np.description = \"x\"\n  ^\n"},
    {"NotAssignable", "Probe.kAnswer = 1", "test.bas:1:7: error: this cannot be assigned to\nProbe.kAnswer = 1\n      ^\n"},
    {"NoElements", "Dim i As Integer\nPrint i(0)",
     "test.bas:2:7: error: this is of type Integer; only an array has elements\nPrint i(0)\n      ^\n"},
    {"BoundAndValue", "Dim v(3) As Double = Nil",
     "test.bas:1:7: error: an array that gets a value takes its bound from the value\nDim v(3) As Double = Nil\n      ^\n"},
    {"LoopVariable", "For s As String = 1 To 2\nNext",
     "test.bas:1:5: error: a For loop counts an Integer or a Double, not a String\nFor s As String = 1 To 2\n    ^\n"},
    {"EachOfNoArray", "For Each i As Integer In 3\nNext",
     "test.bas:1:26: error: this is of type Integer, no array\nFor Each i As Integer In 3\n                         ^\n"},
    {"CastToAnUnrelatedClass", "Print Probe(New MemoryBlock(1))",
     "test.bas:1:13: error: this is of type MemoryBlock and never is a Probe\nPrint Probe(New MemoryBlock(1))\n            ^\n"},
};
const bool typesAdded = addCases("WrongTypes", types);

const FailingCase calls[] = {
    {"TypesOfArguments", "Dim p As New Probe(\"a\")",
     "test.bas:1:10: error: New Probe cannot be called with (String). Declared:\n    Constructor(number as integer)\n"
     "    Constructor(c as color)\n    Constructor(a as double, b as double, factor as double = 1.0)\nDim p As New Probe(\"a\")\n"
     "         ^\n"},
    {"NumberOfArguments", "Print Len()",
     "test.bas:1:7: error: Len cannot be called without arguments. Declared:\n    Len(text as string) as integer\nPrint Len()\n"
     "      ^\n"},
    {"ReferenceToAnotherType", "Dim i As Integer, d As Double\nProbe.make(1).split i, d",
     "test.bas:2:15: error: Probe.split cannot be called with (Integer, Double). Declared:\n"
     "    split(byref whole as double, byref half as double)\n"
     "    split(byref whole as double, byref half as double, byref third as double)\nProbe.make(1).split i, d\n"
     "              ^\n"},
    {"ReferenceToAValue", "Dim d As Double\nProbe.make(1).split d, 0.5",
     "test.bas:2:15: error: Probe.split cannot be called with (Double, Double): a byref argument must be a variable. "
     "Declared:\n    split(byref whole as double, byref half as double)\n"
     "    split(byref whole as double, byref half as double, byref third as double)\nProbe.make(1).split d, 0.5\n"
     "              ^\n"},
};
const bool callsAdded = addCases("WrongCalls", calls);

const FailingCase blocks[] = {
    {"NeverClosed", "Print 1\nIf True Then\n  Print 2\n",
     "test.bas:2:1: error: this If block is never closed: 'End If' is missing\nIf True Then\n^\n"},
    {"ClosedAsAnother", "\nWhile True\n  Print 2\nEnd If",
     "test.bas:4:1: error: 'Wend' to close the While block that began on line 2 is expected here, not 'End'\nEnd If\n^\n"},
    {"ClosedTwice", "If True Then\nEnd If\nEnd If", "test.bas:3:1: error: 'End' closes no block\nEnd If\n^\n"},
    {"NextOfAnotherLoop", "For i As Integer = 1 To 2\nNext j",
     "test.bas:2:6: error: this Next closes the loop over 'i', not over 'j'\nNext j\n     ^\n"},
    {"TryAlone", "Try\nEnd Try", "test.bas:2:1: error: 'Catch' or 'Finally' is expected here, not 'End'\nEnd Try\n^\n"},
};
const bool blocksAdded = addCases("WrongBlocks", blocks);

const FailingCase texts[] = {
    {"OpenText", "Print \"abc\nPrint 2",
     "test.bas:1:7: error: this text has no closing quote on its line\nPrint \"abc\n      ^\n"},
    {"WrongCharacter", "Print 1 € 2",
     "test.bas:1:9: error: the character '€' has no meaning here\nPrint 1 € 2\n        ^\n"},
    {"MissingValue", "Print 1 +",
     "test.bas:1:10: error: a value is expected here, not the end of the program\nPrint 1 +\n         ^\n"},
    {"TwoStatements", "Print 1 Print 2",
     "test.bas:1:9: error: the end of the statement is expected here, not 'Print'\nPrint 1 Print 2\n        ^\n"},
    {"LostContinuation", "Print 1 + _ 2",
     "test.bas:1:11: error: the line continuation '_' must be the last thing on its line\nPrint 1 + _ 2\n          ^\n"},
    {"TooLargeInteger", "Print &h12345678123456781",
     "test.bas:1:7: error: this number has more digits than an Integer can hold\nPrint &h12345678123456781\n      ^\n"},
    {"TooLargeDouble", "Print 1e999",
     "test.bas:1:7: error: this number is outside the range of a Double\nPrint 1e999\n      ^\n"},
    {"HalfAColor", "Print &cFF80",
     "test.bas:1:7: error: a colour is written &cRRGGBB or &cRRGGBBAA\nPrint &cFF80\n      ^\n"},
};
const bool textsAdded = addCases("WrongTexts", texts);

const FailingCase places[] = {
    // Columns count characters; a tab stays a tab in the line of the caret.
    {"CharactersAndTabs", "\tPrint \"äö\t€\" + 1",
     "test.bas:1:15: error: '+' cannot be applied to String and Integer; '&' joins values of any type\n\tPrint \"äö\t€\" + 1\n"
     "\t         \t   ^\n"},
    {"EveryStatementReportsItsFirst", "Dim a As Intger\nPrint a, a + 1\nPrint b, c\nIf d Then\n  Print True + 1\nEnd If",
     "test.bas:1:10: error: there is no type 'Intger', did you mean 'Integer'?\nDim a As Intger\n         ^\n"
     "test.bas:3:7: error: there is no variable 'b'\nPrint b, c\n      ^\n"
     "test.bas:4:4: error: there is no variable 'd'\nIf d Then\n   ^\n"
     "test.bas:5:14: error: '+' cannot be applied to Boolean and Integer\n  Print True + 1\n             ^\n"},
};
const bool placesAdded = addCases("PlacesInMessages", places);

} // namespace
