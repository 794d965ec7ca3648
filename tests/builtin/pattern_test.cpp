// Pattern colours and the pasteboard.
#include "support/native.h"

#include <gtest/gtest.h>

using namespace chroma;
using namespace chroma::test;

namespace {

struct Size {
    float width;
    float height;
};

id image(float width, float height) {
    return send(send(sendClass("NSImage", "alloc"), "initWithSize:", Size{width, height}), "autorelease");
}

id patternOf(id image) { return sendClass("NSColor", "colorWithPatternImage:", image); }

id pasteboard() { return sendClass("NSPasteboard", "generalPasteboard"); }

id pasted() { return sendClass("NSColor", "colorFromPasteboard:", pasteboard()); }

} // namespace

TEST(Patterns, HoldTheirImage) {
    Pool pool;
    const id tile = image(8, 4);
    const id pattern = patternOf(tile);
    EXPECT_EQ(send(pattern, "patternImage"), tile);
    EXPECT_EQ(send<Size>(tile, "size").width, 8);
    EXPECT_EQ(send<Size>(tile, "size").height, 4);
    EXPECT_EQ(textOf(send(pattern, "colorSpaceName")), "NSPatternColorSpace");
    EXPECT_TRUE(send<BOOL>(pattern, "isEqual:", patternOf(tile)));
    EXPECT_FALSE(send<BOOL>(pattern, "isEqual:", patternOf(image(8, 4))));
    EXPECT_TRUE(send<BOOL>(sendClass("NSColor", "colorWithCGColor:", send(pattern, "CGColor")), "isEqual:", pattern));
    EXPECT_EQ(patternOf(nullptr), nullptr);
    EXPECT_TRUE(raises("NSInvalidArgumentException", [&] { patternOf(string("no image")); }));
    EXPECT_TRUE(raises("NSInvalidArgumentException", [] { send(sendClass("NSColor", "redColor"), "patternImage"); }));
    pool.drain();
    EXPECT_EQ(builtin_liveInstances("NSImage"), 0u);
}

TEST(Patterns, AreNothingButPatterns) {
    const Pool pool;
    const id pattern = patternOf(image(8, 8));
    EXPECT_EQ(send(pattern, "colorUsingColorSpaceName:", NSPatternColorSpace), pattern);
    EXPECT_EQ(send(pattern, "colorUsingColorSpaceName:", NSCalibratedRGBColorSpace), nullptr);
    EXPECT_EQ(send(pattern, "colorUsingColorSpace:", standardSpace("sRGBColorSpace")), nullptr);
    EXPECT_EQ(send(pattern, "colorWithAlphaComponent:", 0.5f), pattern);
    EXPECT_EQ(send(pattern, "blendedColorWithFraction:ofColor:", 0.5f, sendClass("NSColor", "redColor")), nullptr);
    EXPECT_EQ(send(sendClass("NSColor", "redColor"), "blendedColorWithFraction:ofColor:", 0.5f, pattern), nullptr);
    for (const char* const message : {"numberOfComponents", "colorSpace", "colorNameComponent"}) {
        EXPECT_TRUE(raises("NSInvalidArgumentException", [&] { send(pattern, message); })) << message;
    }
}

TEST(Pasteboard, KeepsTheLatestColorOfAnyKind) {
    Pool pool;
    EXPECT_EQ(pasted(), nullptr);
    for (const id color :
         {calibratedRGB(0.1f, 2, -1, 0.5f), sendClass("NSColor", "textColor"),
          colorIn(standardSpace("genericCMYKColorSpace"), {0.1f, 0.2f, 0.3f, 0.4f, 0.5f}), patternOf(image(8, 8))}) {
        send<void>(color, "writeToPasteboard:", pasteboard());
        EXPECT_TRUE(send<BOOL>(pasted(), "isEqual:", color));
    }
    send<void>(pasteboard(), "clearContents");
    EXPECT_EQ(pasted(), nullptr);
    send<void>(sendClass("NSColor", "redColor"), "writeToPasteboard:", id{});
    EXPECT_EQ(pasted(), nullptr);
    EXPECT_EQ(sendClass("NSColor", "colorFromPasteboard:", id{}), nullptr);
    pool.drain();
    EXPECT_EQ(builtin_liveInstances("NSImage"), 0u);
    EXPECT_EQ(builtin_liveInstances("NSColor"), 0u);
}
