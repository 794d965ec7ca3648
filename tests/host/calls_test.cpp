#include "model/calls.h"

#include <gtest/gtest.h>

#include <limits>
#include <sstream>

using namespace host;

namespace {

using Word = HostInteger;

template <class T>
constexpr T most = std::numeric_limits<T>::max();

std::ostringstream received;

// Records its arguments, so that an argument in the wrong place or of the wrong width shows.
template <class Result, class... Args>
Result returnMost(Args... args) {
    received.str("");
    ((received << +args << ' '), ...);
    return most<Result>;
}
void byReference(Word, const double* a, Word b, double* c) { *c = *a + static_cast<double>(b); }
Word trueUnderOtherBytes() { return 0x7F00FF01; } // the calling convention allows other upper bytes

template <class Function>
Slot call(const char* declaration, bool hasReceiver, Function* function, std::vector<Slot> arguments) {
    Slot result = Slot::ofInteger(-1);
    Invoker(parseSignature(declaration), hasReceiver)(reinterpret_cast<REALfunction>(function), arguments.data(), &result);
    return result;
}

constexpr const char* eightReals =
    "f(a as double, b as double, c as double, d as double, e as double, f as double, g as double, h as double) as double";

} // namespace

TEST(Calls, PassEveryArgumentOfTheLongestSignatures) {
    std::vector<Slot> words, reals;
    for (int i = 1; i <= 8; ++i) {
        words.push_back(Slot::ofInteger(-i));
        reals.push_back(Slot::ofReal(i + 0.25));
    }
    const char* sevenWords = "f(a as integer, b as string, c as X, d as X, e as double(), f as variant, g as color) as X";
    const auto ofWords = returnMost<Word, Word, Word, Word, Word, Word, Word, Word, Word>;
    EXPECT_EQ(call(sevenWords, true, ofWords, words).integer, most<Word>);
    EXPECT_EQ(received.str(), "-1 -2 -3 -4 -5 -6 -7 -8 ");
    const auto ofReals = returnMost<double, double, double, double, double, double, double, double, double>;
    EXPECT_EQ(call(eightReals, false, ofReals, reals).real, most<double>);
    EXPECT_EQ(received.str(), "1.25 2.25 3.25 4.25 5.25 6.25 7.25 8.25 ");
    EXPECT_FALSE(Invoker(parseSignature(eightReals), true));
}

TEST(Calls, PassMixedWordsAndDoubles) {
    const Slot result = call("f(a as double, b as integer, c as double, d as color, e as boolean, f as double) as color",
                             true, returnMost<HostColor, Word, double, Word, double, HostColor, HostBoolean, double>,
                             {Slot::ofInteger(2), Slot::ofReal(0.5), Slot::ofInteger(-7), Slot::ofReal(-1e300),
                              Slot::ofColor(0xFFEEDDCC), Slot::ofBoolean(true), Slot::ofReal(8.0)});
    EXPECT_EQ(received.str(), "2 0.5 -7 -1e+300 4293844428 1 8 ");
    EXPECT_EQ(result.color, most<HostColor>);

    Slot a = Slot::ofReal(2.5), c;
    call("f(byref a as double, b as integer, byref c as double)", true, byReference,
         {Slot(), Slot::ofAddress(&a), Slot::ofInteger(9), Slot::ofAddress(&c)});
    EXPECT_EQ(c.real, 11.5);
}

TEST(Calls, NarrowResultsAndCallAccessors) {
    EXPECT_EQ(call("f", false, returnMost<Word>, {}).integer, 0);
    EXPECT_EQ(call("f as boolean", false, trueUnderOtherBytes, {}).integer, 1);

    const auto getter = reinterpret_cast<REALfunction>(returnMost<Word, Word, Word>);
    const auto setter = reinterpret_cast<REALfunction>(returnMost<Word, Word, Word, double>);
    const Slot arguments[] = {Slot(), Slot::ofInteger(41), Slot::ofReal(0.75)};
    Slot result;
    Invoker::getter(parseType("integer"))(getter, arguments, &result);
    EXPECT_EQ(received.str(), "0 41 ");
    EXPECT_EQ(result.integer, most<Word>);
    Invoker::setter(parseType("double"))(setter, arguments, &result);
    EXPECT_EQ(received.str(), "0 41 0.75 ");
}
