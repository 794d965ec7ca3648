#include "documentation/word_texts.h"

#include "language/words.h"
#include "values/types.h"

#include <algorithm>

namespace host::documentation {
namespace {

bool holds(std::string_view words, std::string_view wanted) {
    while (!words.empty()) {
        const std::string_view word = words.substr(0, words.find(' '));
        if (equalIgnoringCase(word, wanted)) return true;
        words.remove_prefix(std::min(words.size(), word.size() + 1));
    }
    return false;
}

// Returns the call that creates an array, and a call of each member.
std::string arrayForms() {
    std::string forms = "Array(value[, value])";
    for (const language::ArrayMember& member : language::arrayMembers())
        forms += "\nname." + std::string(member.form);
    return forms;
}

} // namespace

const std::vector<WordText>& wordTexts() {
    static const std::vector<WordText> texts = {
        {"Dim As", "Dim name[, name] As Type [= value]\nDim name As New Class(arguments)\nDim name(upperBound) As Type",
         "Declares variables, which live to the end of their block. Arrays have the indexes 0 to their upper bound, or none with "
         "`name()`."},
        {"ReDim", "ReDim name(upperBound)", "Makes an array longer or shorter; what still fits stays."},
        {"Const", "Const name [As Type] = value", "Gives a name to a value made of literals and constants."},
        {"Print", "Print [value[, value]]",
         "Writes values as text, with a blank between them, and ends the line. Objects that have a description show it."},
        {"Write", "Write value[, value]", "Writes values as Print does, and does not end the line."},
        {"If Then ElseIf Else End",
         "If condition Then\n  statements\n[ElseIf condition Then\n  statements]\n[Else\n  statements]\nEnd If\n"
         "If condition Then statement [Else statement]\nIf(condition, yes, no)",
         "Runs what stands behind the first condition that is true, or behind `Else`. `End` closes every block but loops. With parentheses "
         "it is one of two values, of which the other one is not computed."},
        {"Select Case",
         "Select Case value\nCase value[, value To value][, Is > value]\n  statements\n[Case Else\n  statements]\nEnd Select",
         "Runs what stands behind the first `Case` that the value fits."},
        {"For To DownTo Step Next", "For name [As Type] = first To last [Step step]\n  statements\nNext",
         "Counts a variable from one number to another, both included, which are computed once. `DownTo` subtracts the step."},
        {"Each In", "For Each name [As Type] In array\n  statements\nNext", "Takes the elements of an array in turn."},
        {"While Wend", "While condition\n  statements\nWend", "Runs the statements as long as the condition is true."},
        {"Do Loop Until", "Do [While condition | Until condition]\n  statements\nLoop [While condition | Until condition]",
         "Runs the statements as long as a condition is true, or until it is: asked before each round, after it, or never."},
        {"Exit", "Exit For | Exit While | Exit Do | Exit Sub | Exit Function",
         "Leaves the innermost loop of that kind, or the procedure."},
        {"Continue", "Continue [For | While | Do]", "Goes on with the next round of the innermost loop, or of that kind."},
        {"Function Sub Return",
         "Function name(parameters) As Type\n  statements\nEnd Function\nSub name(parameters)\n  statements\n"
         "End Sub\nReturn [value]",
         "Declares a procedure, outside of all blocks; it can be called above its declaration too. `Return` leaves it, a Function "
         "with its value."},
        {"ByRef ByVal Optional ParamArray", "(ByRef name As Type, Optional name As Type = value, ParamArray name As Type)",
         "Parameters: `ByRef` ones stand for the variable that is given, of the very type; `Optional` ones have a value when "
         "nothing is given; a `ParamArray`, the last one, takes all further values. `ByVal` is what parameters are anyway."},
        {"Try Catch Finally", "Try\n  statements\n[Catch name As Class\n  statements]\n[Finally\n  statements]\nEnd Try",
         "Runs the statements; an exception of the class, or of any for `Catch` alone, goes on behind `Catch`. What stands behind "
         "`Finally` runs in any case."},
        {"Raise", "Raise exception", "Raises an exception, such as `New RuntimeException(\"message\", number)`."},
        {"New", "New Class[(arguments)]", "Makes an object of the class."},
        {"Nil", "Nil", "No object. Using a member of it raises a NilObjectException."},
        {"Is", "a Is b", "Whether two references are of the same object; `c Is Nil` whether there is none."},
        {"TypeOf", "TypeOf object Is Class", "Whether an object is of the class, or of one that descends from it."},
        {"And Or Xor Not", "a And b\na Or b\na Xor b\nNot a",
         "Of Booleans; the right side is left out when the left one decides. Of Integers they work on the bits."},
        {"Mod", "a Mod b",
         "What is left when a is divided by b, with the sign of a. Of Integers, a division by 0 raises a DivideByZeroException; of "
         "Doubles it gives no number."},
        {"True False", "True\nFalse", "The two values of Boolean."},
        {"Integer", "Integer\nInteger(value)",
         "A whole number, as wide as a pointer: `12`, `&hFF`, `&o17`, `&b101`. The call takes a value for one."},
        {"Double", "Double\nDouble(value)", "A number with a fraction, in double precision: `0.5`, `1e-3`."},
        {"Boolean", "Boolean\nBoolean(value)", "True or False."},
        {"String", "String\nString(value)", "Text: `\"a \"\"quoted\"\" word\"`."},
        {"Color", "Color\nColor(value)",
         "A colour: `#FF8000`, `#F80`, or with an opacity, `#FF800080`. The call takes a number, 0xAARRGGBB, or a text, such as "
         "`\"#f80\"` and the names of CSS."},
        {"Variant", "Variant\nVariant(value)", "A value of any type, or Nil."},
        {"Object", "Object", "A reference to an object of any class, or Nil."},
        {"Array", arrayForms(),
         "An array of these values, of the type that takes all of them; and what every array does. `Pop` takes the last element; "
         "`IndexOf` is -1 for what is not there; `Slice` is a new array. Sorting keeps the order of equal elements, `SortBy` sorts by "
         "another array, which is sorted too."},
        {"UBound", "UBound(array)", "The highest index of an array; -1 when it is empty."},
        {"LBound", "LBound(array)", "The lowest index of an array, which is 0."},
    };
    return texts;
}

const WordText* findWordText(std::string_view word) {
    const auto found =
        std::find_if(wordTexts().begin(), wordTexts().end(), [&](const WordText& text) { return holds(text.words, word); });
    return found == wordTexts().end() ? nullptr : &*found;
}

} // namespace host::documentation
