#include "language/library/functions.h"

#include "language/library/conversion_functions.h"
#include "language/library/mathematics.h"
#include "language/library/object_color.h"
#include "language/library/process.h"
#include "language/library/program_arguments.h"
#include "language/library/text_functions.h"

#include "model/record_writing.h"

namespace host::language {
namespace {

struct Definition {
    const char* declaration;
    REALfunction function;
    // Its purpose, in Markdown that is also readable as plain text, and its nature. Each is stated once for all overloads
    // of a name.
    std::string_view text = {};
    Nature nature = Nature::computes;
};

const Definition definitions[] = {
    {"Str(value as boolean) as string", bound(conversion::textOfBoolean), "Returns a value as text, as Print writes it."},
    {"Str(value as integer) as string", bound(conversion::textOfInteger)},
    {"Str(value as double) as string", bound(conversion::textOfDouble)},
    {"Str(value as color) as string", bound(conversion::textOfColor)},
    {"Hex(value as integer, digits as integer = 0) as string", bound(conversion::hexOfInteger),
     "Returns a number in hexadecimal, padded with leading zeros to that many digits. For a colour object, "
     "returns `#RRGGBB` in sRGB, with two more digits if the colour is not opaque."},
    {"Hex(value as color, digits as integer = 0) as string", bound(conversion::hexOfColor)},
    {"Hex(color as Object) as string", bound(hexOfObject)},
    {"Val(text as string, otherwise as double) as double", bound(conversion::numberOr)},
    {"Val(text as string) as double", bound(conversion::number),
     "Returns the number that the text represents, written as in a program, including forms such as `&hFF`. If "
     "the text is not a number, returns `otherwise`, or raises TypeMismatchException without it."},
    {"Len(text as string) as integer", bound(text::length), "Returns the number of characters in a text."},
    {"Mid(text as string, start as integer) as string", bound(text::midToEnd),
     "Returns a part of a text, which starts at a character counted from 1: that many characters, or all to the "
     "end."},
    {"Mid(text as string, start as integer, length as integer) as string", bound(text::mid)},
    {"Left(text as string, length as integer) as string", bound(text::left), "Returns the first characters of a text."},
    {"Right(text as string, length as integer) as string", bound(text::right), "Returns the last characters of a text."},
    {"InStr(text as string, wanted as string) as integer", bound(text::find),
     "Returns the position of a text's first occurrence in another, counted from 1, or 0 if there is none. "
     "`start` is where the search starts."},
    {"InStr(start as integer, text as string, wanted as string) as integer", bound(text::findFrom)},
    {"InStrRev(text as string, wanted as string) as integer", bound(text::findLastOf),
     "Returns the position of a text's last occurrence in another, counted from 1, or 0 if there is none. With "
     "`start`, finds the last occurrence at or before that position."},
    {"InStrRev(start as integer, text as string, wanted as string) as integer", bound(text::findLast)},
    {"StrComp(a as string, b as string, ignoringCase as boolean = false) as integer", bound(text::order),
     "Returns -1, 0 or 1 if `a` sorts before `b`, equals it or sorts after it. Compares the code points of the "
     "characters, or of their lowercase forms."},
    {"LenB(text as string) as integer", bound(text::byteCount), "Returns the number of bytes in which a text is stored."},
    {"Bytes(text as string, encoding as string = \"UTF-8\") as MemoryBlock", bound(text::bytes),
     "Returns the bytes of a text in an encoding: UTF-8, UTF-16, UTF-32, US-ASCII, ISO-8859-1, windows-1252 or "
     "macintosh. Raises TypeMismatchException if the encoding does not contain a character."},
    {"DefineEncoding(text as string, encoding as string) as string", bound(text::defineEncoding),
     "Returns the bytes of a text, such as a MemoryBlock's StringValue, as text in another encoding. Raises "
     "TypeMismatchException if the bytes are invalid in that encoding."},
    {"Trim(text as string) as string", bound(text::trim), "Returns the text without blanks at its start and end."},
    {"LTrim(text as string) as string", bound(text::trimLeft), "Returns the text without blanks at its start."},
    {"RTrim(text as string) as string", bound(text::trimRight), "Returns the text without blanks at its end."},
    {"Replace(text as string, wanted as string, by as string) as string", bound(text::replace),
     "Returns the text with every occurrence of one text replaced by another."},
    {"Repeat(text as string, count as integer) as string", bound(text::repeat),
     "Returns the text repeated that many times."},
    {"Split(text as string, delimiter as string = \" \") as string()", bound(text::split),
     "Returns the parts of a text between delimiters, or its characters if the delimiter is empty."},
    {"Join(parts() as string, delimiter as string = \" \") as string", bound(text::join),
     "Returns the parts as one text, with a delimiter between them."},
    {"Chr(code as integer) as string", bound(text::character), "Returns the character with that Unicode code point."},
    {"Asc(text as string) as integer", bound(text::codeOf),
     "Returns the Unicode code point of a text's first character, or -1 if the text is empty."},
    {"Format(value as double, pattern as string) as string", bound(text::format),
     "Returns a number formatted by a pattern: `0` is a digit, `#` is a digit unless it is a leading or trailing "
     "0, `.` is the decimal point, `,` groups by thousands, `%` shows hundredths."},
    {"Uppercase(text as string) as string", bound(text::uppercase), "Returns the text in uppercase."},
    {"Lowercase(text as string) as string", bound(text::lowercase), "Returns the text in lowercase."},
    {"Round(value as double) as double", bound(mathematics::round),
     "Returns the nearest whole number; halves are rounded away from 0.", Nature::returnsWhole},
    {"Floor(value as double) as double", bound(mathematics::floor),
     "Returns the greatest whole number that is not greater than the number.", Nature::returnsWhole},
    {"Ceil(value as double) as double", bound(mathematics::ceil),
     "Returns the smallest whole number that is not smaller than the number.", Nature::returnsWhole},
    {"Sqrt(value as double) as double", bound(mathematics::squareRoot),
     "Returns the square root; for a negative number, the result is not a number (NaN)."},
    {"Abs(value as integer) as integer", bound<HostInteger(HostInteger)>(mathematics::absolute),
     "Returns the absolute value of a number.", Nature::keepsWhole},
    {"Abs(value as double) as double", bound<double(double)>(mathematics::absolute)},
    {"Min(a as integer, b as integer) as integer", bound<HostInteger(HostInteger, HostInteger)>(mathematics::lesser),
     "Returns the smaller of two numbers.", Nature::keepsWhole},
    {"Min(a as double, b as double) as double", bound<double(double, double)>(mathematics::lesser)},
    {"Max(a as integer, b as integer) as integer", bound<HostInteger(HostInteger, HostInteger)>(mathematics::greater),
     "Returns the greater of two numbers.", Nature::keepsWhole},
    {"Max(a as double, b as double) as double", bound<double(double, double)>(mathematics::greater)},
    {"Pi() as double", bound(mathematics::pi), "Returns pi, 3.14159...: the angle of half a turn in radians."},
    {"Sin(angle as double) as double", bound(mathematics::sine), "Returns the sine of an angle in radians."},
    {"Cos(angle as double) as double", bound(mathematics::cosine), "Returns the cosine of an angle in radians."},
    {"Tan(angle as double) as double", bound(mathematics::tangent), "Returns the tangent of an angle in radians."},
    {"ASin(value as double) as double", bound(mathematics::arcSine),
     "Returns the angle in radians, from -Pi/2 to Pi/2, with that sine. If the value is not between -1 and 1, "
     "the result is not a number (NaN)."},
    {"ACos(value as double) as double", bound(mathematics::arcCosine),
     "Returns the angle in radians, from 0 to Pi, with that cosine. If the value is not between -1 and 1, the "
     "result is not a number (NaN)."},
    {"ATan(value as double) as double", bound(mathematics::arcTangent),
     "Returns the angle in radians, from -Pi/2 to Pi/2, with that tangent."},
    {"ATan2(y as double, x as double) as double", bound(mathematics::angleOf),
     "Returns the angle in radians, from -Pi to Pi, between the x axis and the point."},
    {"Exp(value as double) as double", bound(mathematics::exponential),
     "Returns e, 2.71828..., raised to the power of the value."},
    {"Log(value as double) as double", bound(mathematics::logarithm),
     "Returns the natural logarithm: negative infinity for 0, and not a number (NaN) for a negative number."},
    {"Log10(value as double) as double", bound(mathematics::decimalLogarithm), "Returns the logarithm to the base 10."},
    {"Random() as double", bound(mathematics::randomReal),
     "Returns a random number that is at least 0 and less than 1: the upper 53 bits of the next number of the "
     "64-bit Mersenne Twister.",
     Nature::acts},
    {"RandomInRange(first as integer, last as integer) as integer", bound(mathematics::randomInRange),
     "Returns a random integer in a range, including both ends. All integers are equally likely.", Nature::acts},
    {"RandomSeed(seed as integer)", bound(mathematics::seedRandom),
     "Restarts the random numbers. The same seed produces the same numbers on every machine; without a seed, "
     "each run produces other numbers.",
     Nature::acts},
    {"RGB(red as integer, green as integer, blue as integer, alpha as integer = 255) as color", bound(conversion::color),
     "Returns a colour value from its channels, each from 0 to 255. Values outside that range are clamped to it."},
    {"Red(value as color) as integer", bound(conversion::red), "Returns the red of a colour value, from 0 to 255."},
    {"Green(value as color) as integer", bound(conversion::green), "Returns the green of a colour value, from 0 to 255."},
    {"Blue(value as color) as integer", bound(conversion::blue), "Returns the blue of a colour value, from 0 to 255."},
    {"Alpha(value as color) as integer", bound(conversion::alpha),
     "Returns the opacity of a colour value, from 0, transparent, to 255, opaque."},
    {"Arguments() as string()", bound(programArguments), "Returns the arguments with which the program was started.",
     Nature::acts},
    {"Environment(name as string, otherwise as string = \"\") as string", bound(process::environment),
     "Returns an environment variable, or `otherwise` if it is not set.", Nature::acts},
    {"Input() as string", bound(process::input),
     "Returns the next line of the standard input. Raises IOException if there is none.", Nature::acts},
    {"EndOfInput() as boolean", bound(process::endOfInput),
     "Returns whether the standard input has no more lines. Waits until the next line or the end of the input "
     "arrives.",
     Nature::acts},
    {"PrintError(text as string)", bound(process::printError), "Writes a line to the standard error output.", Nature::acts},
    {"Now() as string", bound(process::now), "Returns the local date and time, such as 2026-01-31 09:05:00.", Nature::acts},
    {"UnixTime() as double", bound(process::unixTime), "Returns the seconds since the start of 1970 in UTC.", Nature::acts},
    {"Microseconds() as double", bound(process::microseconds),
     "Returns the microseconds since the first call. The value never decreases, so it is suitable for measurements.",
     Nature::acts},
    {"Quit(code as integer = 0)", bound(process::quit),
     "Exits the program with an exit code. `Catch` and `Finally` do not run, but all objects are destroyed.", Nature::acts},
};

} // namespace

const std::vector<Method>& functions() {
    static const std::vector<Method> all = [] {
        std::vector<Method> created;
        for (const Definition& definition : definitions) {
            Method method = {};
            method.signature = parseSignature(definition.declaration);
            method.function = definition.function;
            method.invoke = Invoker(method.signature, false);
            method.declaration = definition.declaration;
            method.shared = true;
            method.index = created.size();
            created.push_back(std::move(method));
        }
        return created;
    }();
    return all;
}

Nature functionNature(std::string_view name) {
    for (const Method* const overload : findFunctions(name))
        if (const Nature nature = definitions[overload->index].nature; nature != Nature::computes) return nature;
    return Nature::computes;
}

std::string_view functionText(std::string_view name) {
    for (const Method* const overload : findFunctions(name))
        if (const std::string_view text = definitions[overload->index].text; !text.empty()) return text;
    return {};
}

OverloadSet findFunctions(std::string_view name) {
    OverloadSet found;
    for (const Method& method : functions())
        if (equalIgnoringCase(method.signature.name, name)) found.push_back(&method);
    return found;
}

} // namespace host::language
