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
    {"Str(value as boolean) as string", bound(conversion::textOfBoolean), "A value as text, as Print shows it."},
    {"Str(value as integer) as string", bound(conversion::textOfInteger)},
    {"Str(value as double) as string", bound(conversion::textOfDouble)},
    {"Str(value as color) as string", bound(conversion::textOfColor)},
    {"Hex(value as integer, digits as integer = 0) as string", bound(conversion::hexOfInteger),
     "A number in hexadecimal, with zeros in front up to so many digits; of a colour object `#RRGGBB` in sRGB, with two digits more when "
     "it is not opaque."},
    {"Hex(value as color, digits as integer = 0) as string", bound(conversion::hexOfColor)},
    {"Hex(color as Object) as string", bound(hexOfObject)},
    {"Val(text as string, otherwise as double) as double", bound(conversion::numberOr)},
    {"Val(text as string) as double", bound(conversion::number),
     "The number that the whole text is, written as in a program, also `&hFF`. What is none raises TypeMismatchException, or gives "
     "`otherwise`."},
    {"Len(text as string) as integer", bound(text::length), "How many characters a text has."},
    {"Mid(text as string, start as integer) as string", bound(text::midToEnd),
     "The text from a character on, counted from 1: so many characters, or all to the end."},
    {"Mid(text as string, start as integer, length as integer) as string", bound(text::mid)},
    {"Left(text as string, length as integer) as string", bound(text::left), "The first characters of a text."},
    {"Right(text as string, length as integer) as string", bound(text::right), "The last characters of a text."},
    {"InStr(text as string, wanted as string) as integer", bound(text::find),
     "Where a text stands in another, as the number of its first character; 0 when it does not."},
    {"InStr(start as integer, text as string, wanted as string) as integer", bound(text::findFrom)},
    {"InStrRev(text as string, wanted as string) as integer", bound(text::findLastOf),
     "Where a text stands last in another, at a character or before it, as the number of its first character; 0 when it does not."},
    {"InStrRev(start as integer, text as string, wanted as string) as integer", bound(text::findLast)},
    {"StrComp(a as string, b as string, ignoringCase as boolean = false) as integer", bound(text::order),
     "-1, 0 or 1: whether a text stands before another, is equal to it, or stands behind it, by the numbers of their characters or of "
     "their small letters."},
    {"LenB(text as string) as integer", bound(text::byteCount), "How many bytes a text is stored in."},
    {"Bytes(text as string, encoding as string = \"UTF-8\") as MemoryBlock", bound(text::bytes),
     "The bytes of a text in an encoding: UTF-8, UTF-16, UTF-32, US-ASCII, ISO-8859-1, windows-1252 or macintosh. A character that it "
     "lacks raises TypeMismatchException."},
    {"DefineEncoding(text as string, encoding as string) as string", bound(text::defineEncoding),
     "The bytes of a text, such as those of a MemoryBlock's StringValue, read in another encoding. Bytes that are no text in it raise "
     "TypeMismatchException."},
    {"Trim(text as string) as string", bound(text::trim), "The text without blanks at its start and end."},
    {"LTrim(text as string) as string", bound(text::trimLeft), "The text without blanks at its start."},
    {"RTrim(text as string) as string", bound(text::trimRight), "The text without blanks at its end."},
    {"Replace(text as string, wanted as string, by as string) as string", bound(text::replace),
     "The text with every occurrence of one text replaced by another."},
    {"Repeat(text as string, count as integer) as string", bound(text::repeat), "The text so many times."},
    {"Split(text as string, delimiter as string = \" \") as string()", bound(text::split),
     "The parts of a text between delimiters; with an empty delimiter its characters."},
    {"Join(parts() as string, delimiter as string = \" \") as string", bound(text::join),
     "One text from the parts, with a delimiter between them."},
    {"Chr(code as integer) as string", bound(text::character), "The character of that Unicode number."},
    {"Asc(text as string) as integer", bound(text::codeOf),
     "The Unicode number of a text's first character; -1 of an empty text."},
    {"Format(value as double, pattern as string) as string", bound(text::format),
     "A number as a pattern says: `0` a digit, `#` a digit unless it is a leading or trailing 0, `.` the decimal point, `,` groups by thousands, `%` hundredths."},
    {"Uppercase(text as string) as string", bound(text::uppercase), "The text in capital letters."},
    {"Lowercase(text as string) as string", bound(text::lowercase), "The text in small letters."},
    {"Round(value as double) as double", bound(mathematics::round), "The nearest whole number; halves go away from 0.",
     Nature::givesWhole},
    {"Floor(value as double) as double", bound(mathematics::floor), "The nearest whole number that is not greater.",
     Nature::givesWhole},
    {"Ceil(value as double) as double", bound(mathematics::ceil), "The nearest whole number that is not smaller.",
     Nature::givesWhole},
    {"Sqrt(value as double) as double", bound(mathematics::squareRoot), "The square root; of a negative number no number."},
    {"Abs(value as integer) as integer", bound<HostInteger(HostInteger)>(mathematics::absolute),
     "The number without its sign.", Nature::keepsWhole},
    {"Abs(value as double) as double", bound<double(double)>(mathematics::absolute)},
    {"Min(a as integer, b as integer) as integer", bound<HostInteger(HostInteger, HostInteger)>(mathematics::lesser),
     "The smaller of two numbers.", Nature::keepsWhole},
    {"Min(a as double, b as double) as double", bound<double(double, double)>(mathematics::lesser)},
    {"Max(a as integer, b as integer) as integer", bound<HostInteger(HostInteger, HostInteger)>(mathematics::greater),
     "The greater of two numbers.", Nature::keepsWhole},
    {"Max(a as double, b as double) as double", bound<double(double, double)>(mathematics::greater)},
    {"Pi() as double", bound(mathematics::pi), "Half a turn in radians, 3.14159..."},
    {"Sin(angle as double) as double", bound(mathematics::sine), "The sine of an angle in radians."},
    {"Cos(angle as double) as double", bound(mathematics::cosine), "The cosine of an angle in radians."},
    {"Tan(angle as double) as double", bound(mathematics::tangent), "The tangent of an angle in radians."},
    {"ASin(value as double) as double", bound(mathematics::arcSine),
     "The angle in radians, from -Pi/2 to Pi/2, whose sine it is; beyond -1 to 1 no number."},
    {"ACos(value as double) as double", bound(mathematics::arcCosine),
     "The angle in radians, from 0 to Pi, whose cosine it is; beyond -1 to 1 no number."},
    {"ATan(value as double) as double", bound(mathematics::arcTangent),
     "The angle in radians, from -Pi/2 to Pi/2, whose tangent it is."},
    {"ATan2(y as double, x as double) as double", bound(mathematics::angleOf),
     "The angle in radians, from -Pi to Pi, from the x axis to the point."},
    {"Exp(value as double) as double", bound(mathematics::exponential), "The power of e, 2.71828..."},
    {"Log(value as double) as double", bound(mathematics::logarithm),
     "The natural logarithm; of 0 negative infinity, of a negative number no number."},
    {"Log10(value as double) as double", bound(mathematics::decimalLogarithm), "The logarithm to the base 10."},
    {"Random() as double", bound(mathematics::randomReal),
     "A random number from 0 on and below 1: the upper 53 bits of the next number of the 64-bit Mersenne Twister.",
     Nature::acts},
    {"RandomInRange(first as integer, last as integer) as integer", bound(mathematics::randomInRange),
     "A random integer of a range, each as likely as the other, the last one included.", Nature::acts},
    {"RandomSeed(seed as integer)", bound(mathematics::seedRandom),
     "Lets the random numbers begin anew. The same seed gives the same numbers on every machine; without one they differ from run to run.",
     Nature::acts},
    {"RGB(red as integer, green as integer, blue as integer, alpha as integer = 255) as color", bound(conversion::color),
     "A colour value from its channels, each from 0 to 255; what lies beyond counts as the nearest of the two."},
    {"Red(value as color) as integer", bound(conversion::red), "The red of a colour value, from 0 to 255."},
    {"Green(value as color) as integer", bound(conversion::green), "The green of a colour value, from 0 to 255."},
    {"Blue(value as color) as integer", bound(conversion::blue), "The blue of a colour value, from 0 to 255."},
    {"Alpha(value as color) as integer", bound(conversion::alpha),
     "The opacity of a colour value, from 0, transparent, to 255, opaque."},
    {"Arguments() as string()", bound(programArguments), "What the program was given when it was started.", Nature::acts},
    {"Environment(name as string, otherwise as string = \"\") as string", bound(process::environment),
     "A variable of the environment; `otherwise` when it is not set.", Nature::acts},
    {"Input() as string", bound(process::input),
     "The next line of the standard input; IOException is raised when there is none.", Nature::acts},
    {"EndOfInput() as boolean", bound(process::endOfInput),
     "Whether the standard input has no more lines. It waits for one.", Nature::acts},
    {"PrintError(text as string)", bound(process::printError), "Writes a line to the standard error output.", Nature::acts},
    {"Now() as string", bound(process::now), "The local date and time, as in 2026-01-31 09:05:00.", Nature::acts},
    {"UnixTime() as double", bound(process::unixTime), "The seconds since the start of 1970 in UTC.", Nature::acts},
    {"Microseconds() as double", bound(process::microseconds),
     "The time since the first call, which never goes back: for measuring.", Nature::acts},
    {"Quit(code as integer = 0)", bound(process::quit),
     "Ends the program with an exit code. No `Catch` and no `Finally` runs, but all objects go.", Nature::acts},
};

} // namespace

const std::vector<Method>& functions() {
    static const std::vector<Method> all = [] {
        std::vector<Method> made;
        for (const Definition& definition : definitions) {
            Method method = {};
            method.signature = parseSignature(definition.declaration);
            method.function = definition.function;
            method.invoke = Invoker(method.signature, false);
            method.declaration = definition.declaration;
            method.shared = true;
            method.index = made.size();
            made.push_back(std::move(method));
        }
        return made;
    }();
    return all;
}

Nature functionNature(std::string_view name) {
    for (const Method* overload : findFunctions(name))
        if (const Nature nature = definitions[overload->index].nature; nature != Nature::computes) return nature;
    return Nature::computes;
}

std::string_view functionText(std::string_view name) {
    for (const Method* overload : findFunctions(name))
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
