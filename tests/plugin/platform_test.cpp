// What the platform under the tests is: how it differs from AppKit, and how its own failures reach host code.
#include "support/plugin_test.h"

#include "bridge/frame.h"
#include "classes/color/color.h"
#include "classes/color/color_factories.h"
#include "classes/colorlist/colorlist.h"

#include <fstream>
#include <sstream>

using namespace chroma;

class Platform : public PluginTest {
protected:
    static id colorClass() { return native::classNamed("NSColor"); }
};

TEST_F(Platform, AnswersEveryMessageButTheOnesItIsKnownToLack) {
    for (const platform::Message& message : platform::missingMessages) {
        const id cls = native::classNamed(message.className);
        const SEL selector = sel_registerName(message.name);
        const bool answers = *message.sign == '+' ? native::tell<BOOL>(cls, "respondsToSelector:", selector)
                                                  : native::tell<BOOL>(cls, "instancesRespondToSelector:", selector);
        EXPECT_EQ(answers, !platform::lacks(message.sign, message.name)) << message.name;
    }
}

TEST_F(Platform, DifferencesAreAllOnTheirPage) {
    std::ifstream file(CHROMA_PLATFORMS_PAGE);
    std::stringstream page;
    page << file.rdbuf();
    for (const platform::Row& row : platform::rows) {
        const std::string line = std::string("| ") + row.subject + " | " + row.appKit + " | " + row.gnustep + " |\n";
        EXPECT_NE(page.str().find(line), std::string::npos) << line;
    }
    for (const platform::Message& message : platform::missingMessages) {
        const std::string name = std::string("`") + message.sign + "[" + message.className + " " + message.name + "]`";
        EXPECT_NE(page.str().find(name), std::string::npos) << name;
    }
}

// Raised by the platform's own code, which the plugin and the tests did not build.
TEST_F(Platform, ItsOwnExceptionsTellNameAndReason) {
    start();
    REALobjectStruct* const grey = color::colorWithCalibratedWhite(0.5, 1.0);
    double red, green, blue;
    color::getRed(grey, &red, &green, &blue);
    const std::string name = platform::isGNUstep ? "NSInternalInconsistencyException" : "NSInvalidArgumentException";
    const Raised raised = raisedOne();
    EXPECT_EQ(raised.className, "RuntimeException");
    EXPECT_EQ(raised.message.find(name + ": "), 0U) << raised.message;
    EXPECT_NE(raised.message.find("getRed:green:blue:alpha:"), std::string::npos) << raised.message;

    guarded([&] { native::tell(colorClass(), "aMessageNobodyKnows"); });
    EXPECT_EQ(raisedOne().message.find("NSInvalidArgumentException: +[NSColor aMessageNobodyKnows]: unrecognized selector"),
              0U);

    REALobjectStruct* const list = foreign::make("NSColorListZRX");
    REALstringStruct* const text = foreign::string("k");
    colorlist::Create1(list, text);
    colorlist::insertColor(list, grey, text, 7);
    EXPECT_EQ(raisedOne().message.find("NSRangeException: "), 0U);
    foreign::unlock(text);
    foreign::unlock(list);
    foreign::unlock(grey);
}

// Where an exception unwinds, a host's own frames between the throw and the guard are left in order.
TEST_F(Platform, ExceptionsRunDestructorsOnTheWay) {
    if (!platform::isGNUstep) GTEST_SKIP() << "native exceptions are jumps here";
    struct Counter {
        int& count;
        ~Counter() { ++count; }
    };
    int destroyed = 0;
    auto body = [&] {
        const Counter outer{destroyed};
        const auto inner = [&] {
            const Counter counter{destroyed};
            native::tell(colorClass(), "aMessageNobodyKnows");
        };
        inner();
    };
    EXPECT_TRUE(isNSException(catchNative(body)));
    EXPECT_EQ(destroyed, 2);
}
