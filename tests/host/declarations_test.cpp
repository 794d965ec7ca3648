#include "model/declarations.h"

#include "host_test.h"

using namespace host;

TEST(Declarations, ParseParametersDefaultsAndConstants) {
    const std::pair<const char*, const char*> cases[] = {
        {"f(Space as NSColorSpaceZRX, c() as double, BYREF n As Integer, paramarray rest as string) as NSColorZRX()",
         "f Space:NSColorSpaceZRX c:Double() byref n:Integer paramarray rest:String() NSColorZRX()"},
        {"writeToPasteboard", "writeToPasteboard "},
        {"close()", "close "},
        {"_exception as NSExceptionZRX", "_exception NSExceptionZRX"}};
    for (const auto& [text, expected] : cases) {
        const Signature signature = parseSignature(text);
        std::string read = signature.name;
        for (const Parameter& p : signature.parameters)
            read += (p.byRef ? " byref " : p.paramArray ? " paramarray " : " ") + p.name + ":" + nameOf(p.type);
        EXPECT_EQ(read + " " + nameOf(signature.result), expected);
    }
    EXPECT_EQ(parseType("NSColorZRX"), Type::object("nscolorzrx"));

    const auto defaultIn = [](const char* text) { return parseSignature(text).parameters.back().defaultValue.value(); };
    for (const char* const text : {"f(red as double, alpha as double = 1.0)", "f(red as double,alpha as double=1)"})
        EXPECT_EQ(std::get<double>(defaultIn(text).value), 1.0) << text;
    EXPECT_EQ(std::get<std::string>(defaultIn("f(s as string = \"a \"\"b\"\"\")").value), "a \"b\"");
    EXPECT_EQ(std::get<HostColor>(defaultIn("f(c as color = #FF8000)").value), 0xFFFF8000u);
    EXPECT_TRUE(defaultIn("f(o as NSColorZRX = nil)").type().isNil());

    EXPECT_EQ(std::get<HostInteger>(parseConstant("NSUnknownColorSpaceModel=-1").value.value), -1);
    EXPECT_EQ(std::get<HostInteger>(parseConstant("mask = &hff").value.value), 255);
    EXPECT_EQ(std::get<HostInteger>(parseConstant("bits = +&b101").value.value), 5);
    constexpr auto least = std::numeric_limits<HostInteger>::min();
    EXPECT_EQ(std::get<HostInteger>(parseConstant("least = " + std::to_string(least)).value.value), least);
    EXPECT_EQ(std::get<double>(parseConstant("half = 5e-1").value.value), 0.5);
    EXPECT_EQ(parseConstant("NSNamedColorSpace = \"text\"").name, "NSNamedColorSpace");
}

TEST(Declarations, ReportErrorsWithTheirColumn) {
    const std::string bits = std::to_string(8 * sizeof(HostInteger));
    const std::pair<const char*, std::string> cases[] = {
        {"(a as double)", "expected a name at column 1"},
        {"f(", "expected a parameter at column 3"},
        {"f(a as double", "expected \")\" at column 14"},
        {"f(a double)", "expected \"as\" at column 5"},
        {"f(a as )", "expected a type at column 8"},
        {"f(a as double,)", "expected a parameter at column 15"},
        {"f(a as double) double", "expected the end at column 16"},
        {"f(a as double(0))", "expected \")\" at column 15"},
        {"f(a() as double())", "an array of arrays at column 10"},
        {"f(paramarray a as double, b as double)", "a parameter after the paramarray at column 27"},
        {"f(a as double = 1, b as double)", "a parameter without a default after one with a default at column 20"},
        {"f(byref a as double = 1)", "a default for a byref or paramarray parameter at column 23"},
        {"f(a as integer = \"1\")", "a default of another type than Integer at column 18"},
        {"f(a as integer = 99999999999999999999)",
         "this number does not fit an Integer of " + bits + " bits; write it with a decimal point at column 18"},
        {"f(a as double = 1.2.3)", "expected \")\" at column 20"},
        {"f(a as integer = -)", "expected a value at column 18"},
        {"f(a as string = \"x)", "this text has no closing quote on its line at column 17"},
        {"f(a as color = #FFFFFFFFF)", "a colour is written #RRGGBB, #RRGGBBAA, #RGB or #RGBA at column 16"},
        {"f(a as double = +)", "expected a value at column 17"}};
    for (const auto& [text, error] : cases)
        EXPECT_EQ(errorOf([text = text] { parseSignature(text); }), error + " of \"" + text + "\"");
    for (const char* const constant : {"a = ", "a"})
        EXPECT_THROW(parseConstant(constant), DeclarationError);
    EXPECT_THROW(parseType("double() x"), DeclarationError);
}
