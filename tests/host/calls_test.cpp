#include "model/calls.h"

#include <gtest/gtest.h>

#include <limits>
#include <sstream>

using namespace host;

namespace {

std::ostringstream heard;

template <class... Args>
void hear(Args... args) {
    heard.str("");
    ((heard << args << ' '), ...);
}

// Each function says what reached it, so that an argument in the wrong place or of the wrong width shows.
void nothing() { hear("called"); }
HostInteger words(HostInteger a, HostInteger b, HostInteger c, HostInteger d, HostInteger e, HostInteger f, HostInteger g,
                  HostInteger h) {
    hear(a, b, c, d, e, f, g, h);
    return -a;
}
double reals(double a, double b, double c, double d, double e, double f, double g, double h) {
    hear(a, b, c, d, e, f, g, h);
    return a / b;
}
HostColor mixed(void* object, double a, HostInteger b, double c, HostColor d, HostBoolean e, double f) {
    hear(object != nullptr, a, b, c, d, static_cast<int>(e), f);
    return d;
}
void byReference(void*, double* a, HostInteger b, double* c) {
    *a += 1.0;
    *c = static_cast<double>(b);
}
HostBoolean isNegative(double a) { return a < 0.0; }
void setReal(void*, HostInteger parameter, double value) { hear(parameter, value); }
HostInteger getWord(void*, HostInteger parameter) { return parameter + 1; }

template <class Function>
Slot call(const char* declaration, bool hasReceiver, Function* function, std::vector<Slot> arguments) {
    const Invoker invoke(parseSignature(declaration), hasReceiver);
    Slot result = Slot::ofInteger(-1);
    if (!invoke) {
        ADD_FAILURE() << declaration;
        return result;
    }
    invoke(reinterpret_cast<REALfunction>(function), arguments.data(), &result);
    return result;
}

} // namespace

TEST(Calls, PassEveryPlaceOfTheLongestShapes) {
    std::vector<Slot> words8, reals8;
    for (int i = 1; i <= 8; ++i) {
        words8.push_back(Slot::ofInteger(std::numeric_limits<HostInteger>::max() - i));
        reals8.push_back(Slot::ofReal(i + 0.25));
    }
    std::ostringstream expected;
    for (const Slot& slot : words8)
        expected << slot.integer << ' ';
    const Slot word =
        call("f(a as integer, b as integer, c as string, d as NSColorZRX, e as double(), f as variant, g as integer) "
             "as integer",
             true, words, words8);
    EXPECT_EQ(heard.str(), expected.str());
    EXPECT_EQ(word.integer, -words8[0].integer);

    const Slot real =
        call("f(a as double, b as double, c as double, d as double, e as double, f as double, g as double, h as "
             "double) as double",
             false, reals, reals8);
    EXPECT_EQ(heard.str(), "1.25 2.25 3.25 4.25 5.25 6.25 7.25 8.25 ");
    EXPECT_EQ(real.real, 1.25 / 2.25);
}

TEST(Calls, PassWordsAndDoublesMixed) {
    int object = 0;
    const Slot result =
        call("f(a as double, b as integer, c as double, d as color, e as boolean, f as double) as color", true, mixed,
             {Slot::ofReference(&object), Slot::ofReal(0.5), Slot::ofInteger(-7), Slot::ofReal(-1e300),
              Slot::ofColor(0xFFEEDDCC), Slot::ofBoolean(true), Slot::ofReal(8.0)});
    EXPECT_EQ(heard.str(), "1 0.5 -7 -1e+300 4293844428 1 8 ");
    EXPECT_EQ(result.color, 0xFFEEDDCCu);

    Slot a = Slot::ofReal(2.5), c;
    call("f(byref a as double, b as integer, byref c as double)", true, byReference,
         {Slot(), Slot::ofReference(&a), Slot::ofInteger(9), Slot::ofReference(&c)});
    EXPECT_EQ(a.real, 3.5);
    EXPECT_EQ(c.real, 9.0);
}

TEST(Calls, NarrowTheResultToItsType) {
    EXPECT_EQ(call("f", false, nothing, {}).integer, 0);
    EXPECT_EQ(heard.str(), "called ");
    EXPECT_EQ(call("f(a as double) as boolean", false, isNegative, {Slot::ofReal(-0.5)}).integer, 1);
    EXPECT_EQ(call("f(a as double) as boolean", false, isNegative, {Slot::ofReal(0.5)}).integer, 0);
    // A function may leave the rest of the result's register as it is.
    const auto wide = +[]() -> HostInteger { return 0x7F00FF01; };
    EXPECT_EQ(call("f as boolean", false, wide, {}).integer, 1);
}

TEST(Calls, ServeGettersAndSetters) {
    Slot result;
    const Slot arguments[] = {Slot(), Slot::ofInteger(41), Slot::ofReal(0.75)};
    Invoker::getter({Kind::Integer, false, {}})(reinterpret_cast<REALfunction>(&getWord), arguments, &result);
    EXPECT_EQ(result.integer, 42);
    Invoker::setter({Kind::Double, false, {}})(reinterpret_cast<REALfunction>(&setReal), arguments, &result);
    EXPECT_EQ(heard.str(), "41 0.75 ");
}

TEST(Calls, RefuseMoreArgumentsThanTheyHaveShapesFor) {
    const Signature eight =
        parseSignature("f(a as double, b as double, c as double, d as double, e as double, f as double, g as "
                       "double, h as double)");
    EXPECT_TRUE(Invoker(eight, false));
    EXPECT_FALSE(Invoker(eight, true));
}
