// Loads the built library and its sibling by path into a host that knows only the ABI.
#include "support/foreign_host.h"

#include <gtest/gtest.h>

#include <dlfcn.h>

using foreign::bound;
using foreign::Host;

namespace {

// Loads and starts a library. It sees no symbols of the process except those of the libraries that it is linked with.
void start(const char* path) {
    void* const library = dlopen(path, RTLD_NOW | RTLD_LOCAL);
    ASSERT_NE(library, nullptr) << dlerror();
    EXPECT_EQ(dlsym(RTLD_DEFAULT, "REALPluginMain"), nullptr);
    const auto main = reinterpret_cast<REALPluginMainProc>(dlsym(library, "REALPluginMain"));
    ASSERT_NE(main, nullptr);
    main(Host::resolve);
}

const char* const constructorRGB = "Constructor(red as double, green as double, blue as double, alpha as double = 1.0)";
REALobjectStruct* newColor(double red, double green, double blue) {
    REALobjectStruct* const object = foreign::make("NSColorZRX");
    bound<void(REALobjectStruct*, double, double, double, double)>(foreign::method("NSColorZRX", constructorRGB))(
        object, red, green, blue, 1.0);
    return object;
}

} // namespace

// The plugin found no registry before. It must not remove entries when its objects are destroyed.
TEST(Load, ASiblingLoadedLateRegistersNoForeignObjects) {
    Host::instance().version = 2021.0;
    start(CHROMA_LIBRARY);
    foreign::unlock(newColor(1.0, 0.0, 0.0));
    start(CHROMA_SIBLING);
    const foreign::Owned color(newColor(0.0, 1.0, 0.0)), image(foreign::make("NSImageZRX"));
    bound<void(REALobjectStruct*, double, double, REALobjectStruct*)>(foreign::method(
        "NSImageZRX", "Constructor(width as double, height as double, c as NSColorZRX = nil)"))(image, 4.0, 4.0, color);
    const auto backgroundColor =
        bound<REALobjectStruct*(REALobjectStruct*)>(foreign::method("NSImageZRX", "backgroundColor as NSColorZRX"));
    for (int i = 0; i < 2; ++i) {
        const foreign::Owned background(backgroundColor(image));
        ASSERT_NE(background, nullptr);
        EXPECT_EQ(foreign::references(background), 1);
    }
}
