#include "model/declarations.h"

#include <gtest/gtest.h>

using namespace host;

TEST(Declarations, ReadsParametersOfEveryForm) {
    const Signature signature =
        parseSignature("colorWithColorSpace(ColorSpace as NSColorSpaceZRX, components() as double, BYREF n As Integer, "
                       "paramarray rest as string) as NSColorZRX()");
    EXPECT_EQ(signature.name, "colorWithColorSpace");
    ASSERT_EQ(signature.parameters.size(), 4u);
    EXPECT_EQ(signature.parameters[0].type, Type::object("nscolorspacezrx"));
    EXPECT_EQ(nameOf(signature.parameters[1].type), "Double()");
    EXPECT_TRUE(signature.parameters[2].byRef);
    EXPECT_FALSE(signature.parameters[1].paramArray);
    EXPECT_TRUE(signature.parameters[3].paramArray);
    EXPECT_EQ(nameOf(signature.parameters[3].type), "String()");
    EXPECT_EQ(nameOf(signature.result), "NSColorZRX()");
}

TEST(Declarations, NeedsNoParenthesesAndNoResult) {
    const Signature plain = parseSignature("writeToPasteboard");
    EXPECT_TRUE(plain.parameters.empty());
    EXPECT_EQ(plain.result.kind, Kind::Void);
    EXPECT_TRUE(parseSignature("close()").parameters.empty());
    EXPECT_EQ(parseSignature("_exception as NSExceptionZRX").result, Type::object("NSExceptionZRX"));
}

TEST(Declarations, ReadsDefaultsWithAndWithoutBlanks) {
    for (const char* text : {"f(red as double, alpha as double = 1.0)", "f(red as double,alpha as double=1)"}) {
        const Parameter alpha = parseSignature(text).parameters.at(1);
        EXPECT_EQ(std::get<double>(alpha.defaultValue.value().value), 1.0) << text;
    }
    const Signature others =
        parseSignature("f(s as string = \"a \"\"b\"\"\", c as color = &cFF8000, o as NSColorZRX = nil)");
    EXPECT_EQ(std::get<std::string>(others.parameters[0].defaultValue->value), "a \"b\"");
    EXPECT_EQ(std::get<HostColor>(others.parameters[1].defaultValue->value), 0xFF8000u);
    EXPECT_TRUE(others.parameters[2].defaultValue->type().isNil());
}

TEST(Declarations, ReadsConstants) {
    EXPECT_EQ(std::get<HostInteger>(parseConstant("NSUnknownColorSpaceModel=-1").value.value), -1);
    EXPECT_EQ(std::get<HostInteger>(parseConstant("mask = &hff").value.value), 255);
    EXPECT_EQ(std::get<double>(parseConstant("half = 5e-1").value.value), 0.5);
    const Constant text = parseConstant("NSNamedColorSpace = \"NSNamedColorSpace\"");
    EXPECT_EQ(text.name, "NSNamedColorSpace");
    EXPECT_EQ(std::get<std::string>(text.value.value), "NSNamedColorSpace");
}

TEST(Declarations, SaysWhatIsMalformedAndWhere) {
    struct {
        const char* text;
        const char* reason;
        std::size_t position;
    } const cases[] = {
        {"", "expected a name", 0},
        {"(a as double)", "expected a name", 0},
        {"f(", "expected a parameter", 2},
        {"f(a as double", "expected \")\"", 13},
        {"f(a double)", "expected \"as\"", 4},
        {"f(a as )", "expected a type", 7},
        {"f(a as double,)", "expected a parameter", 14},
        {"f(a as double) double", "expected the end", 15},
        {"f(a as double(0))", "expected \")\"", 14},
        {"f(a() as double())", "an array of arrays", 9},
        {"f(paramarray a as double, b as double)", "a parameter after the paramarray", 26},
        {"f(a as double = 1, b as double)", "a parameter without a default after one with", 19},
        {"f(byref a as double = 1)", "a default for a byref or paramarray parameter", 22},
        {"f(a as integer = \"1\")", "a default of another type than Integer", 17},
        {"f(a as integer = 99999999999999999999)", "a number too big", 17},
        {"f(a as double = 1.2.3)", "a malformed number", 16},
        {"f(a as integer = -)", "a malformed number", 17},
        {"f(a as string = \"x)", "text without its closing quote", 16},
        {"f(a as color = &cFFFFFFFFF)", "a number too big", 15},
    };
    for (const auto& bad : cases) {
        try {
            parseSignature(bad.text);
            ADD_FAILURE() << bad.text << " was accepted";
        } catch (const DeclarationError& error) {
            EXPECT_EQ(error.position, bad.position) << bad.text;
            EXPECT_EQ(std::string(error.what()), std::string(bad.reason) + " at column " + std::to_string(bad.position + 1) +
                                                     " of \"" + bad.text + "\"");
        }
    }
    EXPECT_THROW(parseConstant("a = "), DeclarationError);
    EXPECT_THROW(parseConstant("a"), DeclarationError);
    EXPECT_THROW(parseType("double() x"), DeclarationError);
}
