#include "language/reading/foreign_spellings.h"

#include "text/letters.h"

#include <algorithm>

namespace host::language {
namespace {

struct Hint {
    std::string_view spelling;
    std::string_view hint;
};

constexpr std::string_view printing = "'Print' writes a line";
constexpr std::string_view declaring = "a variable is declared by 'Dim x As Type' or 'Dim x = value'";
constexpr std::string_view procedures = "procedures are 'Sub' and 'Function'";
constexpr std::string_view wholeNumbers = "whole numbers are 'Integer'";
constexpr std::string_view fractions = "numbers with a fraction are 'Double'";
constexpr std::string_view noValue = "no object is 'Nil'";
constexpr std::string_view noClasses = "a program has no classes or modules of its own; write 'Sub' and 'Function'";
constexpr std::string_view noImports = "the host's classes are there without it";
constexpr std::string_view blocks = "a block ends with words such as 'End If' and 'Next'";
constexpr std::string_view elements = "an element is written v(0), and Array(1, 2) makes an array";

constexpr Hint foreignNames[] = {
    {"MsgBox", printing},
    {"echo", printing},
    {"println", printing},
    {"printf", printing},
    {"puts", printing},
    {"Debug", printing},
    {"console", printing},
    {"var", declaring},
    {"let", declaring},
    {"int", wholeNumbers},
    {"Long", wholeNumbers},
    {"Int32", wholeNumbers},
    {"Int64", wholeNumbers},
    {"Single", fractions},
    {"float", fractions},
    {"bool", "it is called 'Boolean'"},
    {"null", noValue},
    {"None", noValue},
    {"Nothing", noValue},
    {"Class", noClasses},
    {"Module", noClasses},
    {"def", procedures},
    {"func", procedures},
    {"void", procedures},
    {"import", noImports},
    {"include", noImports},
    {"elif", "write 'ElseIf'"},
    {"switch", "write 'Select Case'"},
    {"foreach", "write 'For Each'"},
    {"throw", "write 'Raise'"},
    {"Call", "a procedure is called by its name alone"},
    {"Set", "objects are assigned like all values: x = y"},
    {"Imports", noImports},
    {"UCase", "it is called 'Uppercase'"},
    {"LCase", "it is called 'Lowercase'"},
    {"Sqr", "it is called 'Sqrt'"},
    {"Rnd", "it is called 'Random'"},
    {"CStr", "it is called 'Str'"},
    {"CInt", "it is called 'Integer'"},
    {"CDbl", "it is called 'Double'"},
    {"IIf", "it is called 'If'"},
    {"InputBox", "'Input' is the next line of the standard input"},
    {"vbCrLf", "a line's end is Chr(10)"},
    {"EndIf", "write 'End If'"},
    {"EndSub", "write 'End Sub'"},
    {"EndFunction", "write 'End Function'"},
};

constexpr Hint foreignSigns[] = {
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
};

bool endsLine(std::string_view text) {
    const auto end = std::find_if_not(text.begin(), text.end(), [](char c) { return isBlank(c); });
    return end == text.end() || isLineEnd(*end);
}

} // namespace

std::string_view hintForName(std::string_view name) {
    for (const Hint& entry : foreignNames)
        if (equalIgnoringCase(name, entry.spelling)) return entry.hint;
    return {};
}

ForeignSign foreignSignAt(std::string_view text) {
    for (const Hint& entry : foreignSigns)
        if (text.substr(0, entry.spelling.size()) == entry.spelling) return {entry.spelling, entry.hint};
    // Between values these two have a meaning.
    if (text.substr(0, 2) == "--" && endsLine(text.substr(2))) return {"--", "write 'x -= 1'"};
    if (text.substr(0, 2) == "&&" && text.size() > 2 && isBlank(text[2])) return {"&&", "write 'And'"};
    return {};
}

} // namespace host::language
