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
         "Declares variables, which exist until the end of their block. An array has the indexes from 0 to its upper "
         "bound; `name()` declares an empty array."},
        {"ReDim", "ReDim name(upperBound)", "Changes the length of an array; the elements that still fit are kept."},
        {"Const", "Const name [As Type] = value", "Defines a name for a value that consists of literals and constants."},
        {"Print", "Print [value[, value]]",
         "Writes values as text, separated by blanks, and ends the line. Objects with a description are written as "
         "that description."},
        {"Write", "Write value[, value]", "Writes values as Print does, but does not end the line."},
        {"If Then ElseIf Else End",
         "If condition Then\n  statements\n[ElseIf condition Then\n  statements]\n[Else\n  statements]\nEnd If\n"
         "If condition Then statement [Else statement]\nIf(condition, yes, no)",
         "Runs the statements after the first true condition, or else those after `Else`. `End` closes every block "
         "except loops. The form with parentheses returns one of two values and does not compute the other."},
        {"Select Case",
         "Select Case value\nCase value[, value To value][, Is > value]\n  statements\n[Case Else\n  statements]\nEnd Select",
         "Runs the statements after the first `Case` that matches the value."},
        {"For To DownTo Step Next", "For name [As Type] = first To last [Step step]\n  statements\nNext",
         "Counts a variable from the first number to the last, inclusive. Both are computed once. `DownTo` subtracts "
         "the step."},
        {"Each In", "For Each name [As Type] In array\n  statements\nNext",
         "Runs the statements for each element of an array, in order."},
        {"While Wend", "While condition\n  statements\nWend", "Runs the statements while the condition is true."},
        {"Do Loop Until", "Do [While condition | Until condition]\n  statements\nLoop [While condition | Until condition]",
         "Runs the statements while a condition is true, or until it is true. The condition is checked before or "
         "after each iteration; without a condition, the loop runs until a statement leaves it."},
        {"Exit", "Exit For | Exit While | Exit Do | Exit Sub | Exit Function",
         "Leaves the innermost loop of that kind, or the procedure."},
        {"Continue", "Continue [For | While | Do]",
         "Continues with the next iteration of the innermost loop, or of the innermost loop of that kind."},
        {"Function Sub Return",
         "Function name(parameters) As Type\n  statements\nEnd Function\nSub name(parameters)\n  statements\n"
         "End Sub\nReturn [value]",
         "Declares a procedure, outside all blocks. Statements above the declaration can call it too. `Return` "
         "leaves the procedure; a Function returns the value."},
        {"ByRef ByVal Optional ParamArray", "(ByRef name As Type, Optional name As Type = value, ParamArray name As Type)",
         "Declare parameters. A `ByRef` parameter refers to the caller's variable, which must have exactly its type. "
         "An `Optional` parameter has a default value. A `ParamArray`, always last, receives all further arguments. "
         "`ByVal` is the default."},
        {"Try Catch Finally", "Try\n  statements\n[Catch name As Class\n  statements]\n[Finally\n  statements]\nEnd Try",
         "Runs the statements. If they raise an exception of the class, or any exception if `Catch` names no class, the "
         "statements after `Catch` run. The statements after `Finally` run in any case."},
        {"Raise", "Raise exception", "Raises an exception, such as `New RuntimeException(\"message\", number)`."},
        {"New", "New Class[(arguments)]", "Creates an object of the class."},
        {"Nil", "Nil", "No object. Using a member of it raises a NilObjectException."},
        {"Is", "a Is b", "Whether two references refer to the same object. `c Is Nil` tests for no object."},
        {"TypeOf", "TypeOf object Is Class",
         "Whether an object is an instance of the class or of a class that inherits from it."},
        {"And Or Xor Not", "a And b\na Or b\na Xor b\nNot a",
         "Combine Booleans; the right operand is skipped if the left one decides the result. With Integers, they "
         "combine the bits."},
        {"Mod", "a Mod b",
         "The remainder of a divided by b, with the sign of a. With Integers, a division by 0 raises a "
         "DivideByZeroException; with Doubles, the result is not a number (NaN)."},
        {"True False", "True\nFalse", "The two values of Boolean."},
        {"Integer", "Integer\nInteger(value)",
         "A whole number with the size of a pointer: `12`, `&hFF`, `&o17`, `&b101`. The call converts a value."},
        {"Double", "Double\nDouble(value)", "A double-precision number: `0.5`, `1e-3`."},
        {"Boolean", "Boolean\nBoolean(value)", "True or False."},
        {"String", "String\nString(value)", "Text: `\"a \"\"quoted\"\" word\"`."},
        {"Color", "Color\nColor(value)",
         "A colour: `#FF8000`, `#F80`, or with an opacity, `#FF800080` and `#F808`. The call converts a number, 0xAARRGGBB, or a "
         "text, such as `\"#f80\"` or a CSS colour name."},
        {"Variant", "Variant\nVariant(value)", "A value of any type, or Nil."},
        {"Object", "Object", "A reference to an object of any class, or Nil."},
        {"Array", arrayForms(),
         "`Array` returns an array of these values, with an element type that fits all of them. The other lines are "
         "the members of every array. `Pop` removes and returns the last element. `IndexOf` returns -1 if the value "
         "is missing. `Slice` returns a new array. Sorting keeps the order of equal elements; `SortBy` sorts by the "
         "values of another array and sorts that array too."},
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
