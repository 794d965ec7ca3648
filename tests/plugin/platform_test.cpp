// What the platform under the tests is: how it differs from AppKit, and how its own failures reach host code.
#include "support/color_values.h"

#include "bridge/frame.h"
#include "classes/color/color_factories.h"
#include "classes/colorlist/colorlist.h"

#include <fstream>
#include <sstream>

using namespace chroma;

class Platform : public PluginTest {};

TEST_F(Platform, AnswersEveryMessageButTheOnesItIsKnownToLack) {
    for (const platform::Message& message : platform::missingMessages) {
        const id cls = objc_getClass(message.className);
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
    const Reference grey(color::colorWithCalibratedWhite(0.5, 1.0)), list(foreign::make("NSColorListZRX"));
    double red, green, blue;
    color::getRed(grey, &red, &green, &blue);
    expectPlatformException({platform::isGNUstep ? "NSInternalInconsistencyException: " : "NSInvalidArgumentException: ",
                            "getRed:green:blue:alpha:"});

    guarded([&] { native::tell("NSColor", "aMessageNobodyKnows"); });
    expectPlatformException({"NSInvalidArgumentException: +[NSColor aMessageNobodyKnows]: unrecognized selector"});

    const foreign::Owned text(foreign::string("k"));
    colorlist::Create1(list, text);
    colorlist::insertColor(list, grey, text, 7);
    expectPlatformException({"NSRangeException: "});
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
            native::tell("NSColor", "aMessageNobodyKnows");
        };
        inner();
    };
    EXPECT_TRUE(isNSException(catchNative(body)));
    EXPECT_EQ(destroyed, 2);
}
