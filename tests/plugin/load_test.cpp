// The built library in a host that knows nothing of it but the ABI: loaded by path, on hosts of every age and with entries
// missing, and used through the records that it registered.
#include "support/foreign_host.h"

#include <gtest/gtest.h>

#include <dlfcn.h>

using foreign::bound;
using foreign::Host;

namespace {

void load(double version) {
    Host::instance().version = version;
    void* const library = dlopen(CHROMA_LIBRARY, RTLD_NOW | RTLD_LOCAL);
    ASSERT_NE(library, nullptr) << dlerror();
    const auto start = reinterpret_cast<REALPluginMainProc>(dlsym(library, "REALPluginMain"));
    ASSERT_NE(start, nullptr);
    start(Host::resolve);
}

const char* const constructorRGB = "Constructor(red as double, green as double, blue as double, alpha as double = 1.0)";
const char* const getRGBA =
    "getRGB(byref red as double, byref green as double, byref blue as double, byref alpha as double)";

REALobjectStruct* newColor(double red, double green, double blue, double alpha) {
    REALobjectStruct* const object = foreign::make("NSColorZRX");
    bound<void(REALobjectStruct*, double, double, double, double)>(foreign::method("NSColorZRX", constructorRGB))(
        object, red, green, blue, alpha);
    return object;
}

} // namespace

class Load : public ::testing::TestWithParam<double> {};
INSTANTIATE_TEST_SUITE_P(Hosts, Load, ::testing::Values(2011.0, 2012.0, 2013.0, 2013.03, 2013.04, 2016.4, 2017.0, 2021.0));

TEST_P(Load, AForeignHostUsesTheClass) {
    load(GetParam());
    REALobjectStruct* const color = newColor(1.0, 0.5, 0.0, 0.25);
    double red = 9, green = 9, blue = 9, alpha = 9;
    bound<void(REALobjectStruct*, double*, double*, double*, double*)>(foreign::method("NSColorZRX", getRGBA))(
        color, &red, &green, &blue, &alpha);
    EXPECT_EQ(red, 1.0);
    EXPECT_EQ(green, 0.5);
    EXPECT_EQ(blue, 0.0);
    EXPECT_EQ(alpha, 0.25);
    auto* const components =
        bound<REALarrayDouble*(REALobjectStruct*)>(foreign::method("NSColorZRX", "Components as double()"))(color);
    EXPECT_EQ(foreign::take(components), (std::vector<double>{1.0, 0.5, 0.0, 0.25}));
    EXPECT_EQ(bound<HostColor(REALobjectStruct*, REALword)>(foreign::getter("NSColorZRX", "colorValue"))(color, 0),
              0xFF7F00U);
    EXPECT_EQ(foreign::take(bound<REALstringStruct*(REALobjectStruct*, REALword)>(
                  foreign::getter("NSColorZRX", "colorSpaceName"))(color, 0)),
              "NSCalibratedRGBColorSpace");
    foreign::unlock(color);

    REALobjectStruct* const refused = newColor(3.0, 0.0, 0.0, 1.0);
    EXPECT_EQ(Host::instance().takeRaised(),
              (std::vector<foreign::Raised>{
                  {"OutOfBoundsException", "Invalid values. Please pass values in range 0.0 to 1.0.", 0}}));
    foreign::unlock(refused);
    EXPECT_EQ(Host::liveObjects(), 0);
    EXPECT_EQ(Host::liveStrings(), 0);
}

TEST(LoadPartial, AHostWithTheFewestEntriesIsServed) {
    for (const char* entry : {"REALLockObject", "REALUnlockObject", "RuntimeRaiseException", "REALBuildString",
                              "REALBuildStringWithEncoding", "RuntimeArrayCreateSingleDimBoundedArray", "RuntimeUBound"})
        Host::instance().missing.insert(entry);
    load(2021.0);
    REALobjectStruct* const color = newColor(1.0, 0.5, 0.0, 1.0);
    EXPECT_EQ(bound<void*(REALobjectStruct*)>(foreign::method("NSColorZRX", "Components as double()"))(color), nullptr);
    EXPECT_EQ(bound<void*(REALobjectStruct*, REALword)>(foreign::getter("NSColorZRX", "description"))(color, 0), nullptr);
    EXPECT_EQ(bound<double(REALobjectStruct*, REALword)>(foreign::getter("NSColorZRX", "greenComponent"))(color, 0), 0.5);
    foreign::unlock(newColor(3.0, 0.0, 0.0, 1.0));
    foreign::unlock(color);
}
