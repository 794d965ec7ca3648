#include "language/reading/foreign_spellings.h"

#include "text/characters.h"

#include <algorithm>

namespace host::language {
namespace {

struct Hint {
    Foreign where;
    std::string_view spelling;
    std::string_view hint;
};

constexpr std::string_view printing = "'Print' writes a line";
constexpr std::string_view declaring = "a variable is declared by 'Dim x As Type' or 'Dim x = value'";
constexpr std::string_view scopes = "'Dim' declares a variable, and 'Sub' and 'Function' declare procedures";
constexpr std::string_view procedures = "procedures are 'Sub' and 'Function'";
constexpr std::string_view wholeNumbers = "whole numbers are 'Integer'";
constexpr std::string_view fractions = "numbers with a fraction are 'Double'";
constexpr std::string_view noValue = "no object is 'Nil'";
constexpr std::string_view noClasses = "a program cannot declare classes or modules; write 'Sub' and 'Function'";
constexpr std::string_view noImports = "the host's classes are available without it";
constexpr std::string_view lineEnds = "a line break is Chr(10)";
constexpr std::string_view wholePart = "'Floor(x)' rounds down, and 'Integer(x)' cuts off the fraction";
constexpr std::string_view leaving = "'Exit For', 'Exit While' and 'Exit Do' leave a loop";
constexpr std::string_view quitting = "'Quit' ends the program";
constexpr std::string_view dates = "'Now' is the date and the time as text";
constexpr std::string_view randomness = "'Random' differs from run to run; 'RandomSeed 1' repeats its numbers";
constexpr std::string_view blocks = "a block ends with words such as 'End If' and 'Next'";
constexpr std::string_view elements = "an element is written v(0), and Array(1, 2) creates an array";
constexpr std::string_view quotes = "text is in straight double quotes: \"text\"";

constexpr Hint hints[] = {
    {Foreign::name, "MsgBox", printing},
    {Foreign::name, "echo", printing},
    {Foreign::name, "println", printing},
    {Foreign::name, "printf", printing},
    {Foreign::name, "puts", printing},
    {Foreign::name, "Debug", printing},
    {Foreign::name, "console", printing},
    {Foreign::name, "var", declaring},
    {Foreign::name, "let", declaring},
    {Foreign::name, "int", wholeNumbers},
    {Foreign::call, "int", wholePart},
    {Foreign::call, "Fix", wholePart},
    {Foreign::name, "Long", wholeNumbers},
    {Foreign::name, "Int32", wholeNumbers},
    {Foreign::name, "Int64", wholeNumbers},
    {Foreign::name, "Single", fractions},
    {Foreign::name, "float", fractions},
    {Foreign::name, "bool", "it is called 'Boolean'"},
    {Foreign::name, "null", noValue},
    {Foreign::name, "None", noValue},
    {Foreign::name, "Nothing", noValue},
    {Foreign::name, "Class", noClasses},
    {Foreign::name, "Module", noClasses},
    {Foreign::name, "Type", noClasses},
    {Foreign::name, "Structure", noClasses},
    {Foreign::name, "Enum", noClasses},
    {Foreign::name, "def", procedures},
    {Foreign::name, "func", procedures},
    {Foreign::name, "void", procedures},
    {Foreign::name, "import", noImports},
    {Foreign::name, "include", noImports},
    {Foreign::name, "Imports", noImports},
    {Foreign::name, "elif", "write 'ElseIf'"},
    {Foreign::name, "switch", "write 'Select Case'"},
    {Foreign::name, "Default", "write 'Case Else'"},
    {Foreign::name, "foreach", "write 'For Each'"},
    {Foreign::name, "throw", "write 'Raise'"},
    {Foreign::name, "break", leaving},
    {Foreign::name, "Stop", quitting},
    {Foreign::name, "Call", "a call is the procedure's name, without 'Call'"},
    {Foreign::name, "Set", "objects are assigned like all values: x = y"},
    {Foreign::name, "Public", scopes},
    {Foreign::name, "Private", scopes},
    {Foreign::name, "Static", scopes},
    {Foreign::name, "Global", scopes},
    {Foreign::name, "UCase", "it is called 'Uppercase'"},
    {Foreign::name, "LCase", "it is called 'Lowercase'"},
    {Foreign::name, "Sqr", "it is called 'Sqrt'"},
    {Foreign::name, "Atn", "it is called 'ATan'"},
    {Foreign::name, "Sgn", "compare with 0: If(x < 0, -1, If(x > 0, 1, 0))"},
    {Foreign::name, "Rnd", "it is called 'Random'"},
    {Foreign::name, "Randomize", randomness},
    {Foreign::name, "CStr", "it is called 'Str'"},
    {Foreign::name, "CInt", "it is called 'Integer'"},
    {Foreign::name, "CDbl", "it is called 'Double'"},
    {Foreign::name, "IIf", "it is called 'If'"},
    {Foreign::name, "InputBox", "'Input' is the next line of the standard input"},
    {Foreign::name, "Timer", "'Microseconds' measures time"},
    {Foreign::name, "Date", dates},
    {Foreign::name, "Time", dates},
    {Foreign::name, "EndOfLine", lineEnds},
    {Foreign::name, "vbCrLf", lineEnds},
    {Foreign::name, "vbNewLine", lineEnds},
    {Foreign::name, "EndIf", "write 'End If'"},
    {Foreign::name, "EndSub", "write 'End Sub'"},
    {Foreign::name, "EndFunction", "write 'End Function'"},

    {Foreign::arrayMember, "push", "'Append' adds an element"},
    {Foreign::arrayMember, "AddRow", "'Append' adds an element"},
    {Foreign::arrayMember, "Length", "'Count' is the number of its elements"},
    {Foreign::arrayMember, "Size", "'Count' is the number of its elements"},
    {Foreign::arrayMember, "Contains", "'IndexOf(value)' returns -1 if the value is missing"},
    {Foreign::arrayMember, "includes", "'IndexOf(value)' returns -1 if the value is missing"},
    {Foreign::arrayMember, "RemoveAt", "it is called 'Remove'"},
    {Foreign::arrayMember, "Clear", "'ReDim v(-1)' removes all elements"},
    {Foreign::arrayMember, "Last", "the last element is v(UBound(v))"},
    {Foreign::arrayMember, "forEach", "write 'For Each value As Type In v'"},

    {Foreign::plainMember, "Length", "'Len(text)' is the number of its characters"},
    {Foreign::plainMember, "Count", "'Len(text)' is the number of its characters"},
    {Foreign::plainMember, "Size", "'Len(text)' is the number of its characters"},
    {Foreign::plainMember, "ToUpper", "write 'Uppercase(text)'"},
    {Foreign::plainMember, "upper", "write 'Uppercase(text)'"},
    {Foreign::plainMember, "ToUpperCase", "write 'Uppercase(text)'"},
    {Foreign::plainMember, "ToLower", "write 'Lowercase(text)'"},
    {Foreign::plainMember, "lower", "write 'Lowercase(text)'"},
    {Foreign::plainMember, "ToLowerCase", "write 'Lowercase(text)'"},
    {Foreign::plainMember, "IndexOf", "write 'InStr(text, wanted)'"},
    {Foreign::plainMember, "Contains", "write 'InStr(text, wanted) > 0'"},
    {Foreign::plainMember, "BeginsWith", "compare 'Left(text, count)'"},
    {Foreign::plainMember, "StartsWith", "compare 'Left(text, count)'"},
    {Foreign::plainMember, "EndsWith", "compare 'Right(text, count)'"},
    {Foreign::plainMember, "Substring", "write 'Mid(text, start, count)', which counts from 1"},
    {Foreign::plainMember, "charAt", "write 'Mid(text, number, 1)', which counts from 1"},
    {Foreign::plainMember, "strip", "write 'Trim(text)'"},
    {Foreign::plainMember, "ToInteger", "write 'Integer(text)'"},
    {Foreign::plainMember, "ToDouble", "write 'Val(text)'"},
    {Foreign::plainMember, "ToString", "write 'Str(value)'"},

    {Foreign::indexedType, "Dictionary", "'d.Value(key)' is the value of a key"},
    {Foreign::indexedType, "MemoryBlock", "'block.Byte(0)' is a byte"},
    {Foreign::indexedType, "String", "'Mid(text, 1, 1)' is a character"},
    {Foreign::indexedType, "Variant", "assign the array in it to a variable first: 'Dim v() As Integer = value'"},
};

struct SignHint {
    std::string_view spelling;
    std::string_view hint;
};

constexpr SignHint foreignSigns[] = {
    {"==", "'=' compares, and as a statement assigns"},
    {"!=", "'<>' compares"},
    {"++", "write 'x += 1'"},
    {"||", "write 'Or'"},
    {"!", "write 'Not'"},
    {"%", "write 'Mod'"},
    {"**", "write 'x ^ 2'"},
    {"?", "write 'If(condition, a, b)'"},
    {"$", "'&' joins texts and values"},
    {";", "a line's end or ':' ends a statement"},
    {"[", elements},
    {"]", elements},
    {"{", blocks},
    {"}", blocks},
    {"\u201C", quotes},
    {"\u201D", quotes},
    {"\u201E", quotes},
    {"\u2018", quotes},
    {"\u2019", quotes},
    {"0x", "a hexadecimal number is written &hFF"},
    {"0b", "a binary number is written &b101"},
};

bool endsLine(std::string_view text) {
    const auto end = std::find_if_not(text.begin(), text.end(), [](char c) { return isBlank(c); });
    return end == text.end() || isLineEnd(*end);
}

} // namespace

std::string_view hintFor(Foreign where, std::string_view spelling) {
    for (const Hint& entry : hints)
        if (entry.where == where && equalIgnoringCase(spelling, entry.spelling)) return entry.hint;
    return where == Foreign::call ? hintFor(Foreign::name, spelling) : std::string_view();
}

ForeignSign foreignSignAt(std::string_view text) {
    for (const SignHint& entry : foreignSigns)
        if (text.substr(0, entry.spelling.size()) == entry.spelling) return {entry.spelling, entry.hint};
    // Between values, these two signs have a meaning.
    if (text.substr(0, 2) == "--" && endsLine(text.substr(2))) return {"--", "write 'x -= 1'"};
    if (text.substr(0, 2) == "&&" && text.size() > 2 && isBlank(text[2])) return {"&&", "write 'And'"};
    return {};
}

} // namespace host::language
