#include "support/native.h"

#include <cstdint>

namespace chroma::test {

void PlatformTest::TearDown() {
    pool.drain();
    for (const char* const cls :
         {"NSAutoreleasePool", "NSArray", "NSEnumerator", "NSData", "NSException", "NSString", "NSURL",
          "NSMutableDictionary", "NSColor", "NSColorList", "NSColorSpace", "ColorSyncProfile", "NSImage"}) {
        EXPECT_EQ(builtin_liveInstances(cls), 0u) << cls;
    }
}

id dataOf(std::string_view bytes) {
    return sendClass("NSData", "dataWithBytes:length:", static_cast<const void*>(bytes.data()),
                     std::uintptr_t{bytes.size()});
}

std::string bytesOf(id data) {
    const std::uintptr_t length = send<std::uintptr_t>(data, "length");
    return length > 0 ? std::string(static_cast<const char*>(send<const void*>(data, "bytes")), length) : "";
}

id calibratedRGB(float red, float green, float blue, float alpha) {
    return color("colorWithCalibratedRed:green:blue:alpha:", red, green, blue, alpha);
}

id standardSpace(const char* message) { return sendClass("NSColorSpace", message); }

std::vector<float> componentsOf(id color) {
    std::vector<CGFloat> components(color ? static_cast<std::size_t>(send<std::intptr_t>(color, "numberOfComponents")) : 0);
    send<void>(color, "getComponents:", components.data());
    return {components.begin(), components.end()};
}

void expectNear(const std::vector<float>& actual, const std::vector<float>& expected, double tolerance) {
    ASSERT_EQ(actual.size(), expected.size());
    for (std::size_t i = 0; i < actual.size(); ++i)
        EXPECT_NEAR(actual[i], expected[i], tolerance) << "component " << i;
}

id inSpace(id color, const char* space) { return send(color, "colorUsingColorSpace:", standardSpace(space)); }
id named(id color, const char* name) { return send(color, "colorUsingColorSpaceName:", string(name)); }

} // namespace chroma::test
