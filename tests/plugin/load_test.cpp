// Loads the built library into a host that knows only the ABI: by path, more than once, and used through the records that
// it registered.
#include "support/foreign_host.h"

#include <gtest/gtest.h>

#include <dlfcn.h>

#include <filesystem>

using foreign::bound;
using foreign::Host;

namespace {

// Loads and starts the library. It sees no symbols of the process except those of the libraries that it is linked with.
void start(const std::string& path, REALresolver resolver) {
    void* const library = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
    ASSERT_NE(library, nullptr) << dlerror();
    EXPECT_EQ(dlsym(RTLD_DEFAULT, "REALPluginMain"), nullptr);
    const auto main = reinterpret_cast<REALPluginMainProc>(dlsym(library, "REALPluginMain"));
    ASSERT_NE(main, nullptr);
    main(resolver);
}

void load(double version) {
    Host::instance().version = version;
    start(CHROMA_LIBRARY, Host::resolve);
}

const char* const constructorRGB = "Constructor(red as double, green as double, blue as double, alpha as double = 1.0)";
REALobjectStruct* newColor(double red, double green, double blue, double alpha) {
    REALobjectStruct* const object = foreign::make("NSColorZRX");
    bound<void(REALobjectStruct*, double, double, double, double)>(foreign::method("NSColorZRX", constructorRGB))(
        object, red, green, blue, alpha);
    return object;
}

const std::vector<foreign::Raised> outOfBounds{
    {"OutOfBoundsException", "Invalid values. Please pass values in range 0.0 to 1.0.", 0}};

int raisedElsewhere = 0;

// Resolves the entries of another host, which differs in raising exceptions.
void* otherHost(const char* entry) {
    if (std::string_view(entry) != "RuntimeRaiseException") return Host::resolve(entry);
    return reinterpret_cast<void*>(+[](REALobjectStruct*) { ++raisedElsewhere; });
}

using Records = std::vector<REALclassDefinition*>;

Records recordsOf(const std::string& path, double version, REALresolver resolver) {
    Host::instance().records.clear();
    Host::instance().version = version;
    start(path, resolver);
    return Host::instance().records;
}

// Creates a colour of the class in the records, which raises.
void refuseColor(const Records& records) {
    Host::instance().records = records;
    foreign::unlock(newColor(3.0, 0.0, 0.0, 1.0));
}

} // namespace

TEST(Load, ACopyOfTheLibrarySharesNoState) {
    const std::string copy = CHROMA_LIBRARY ".copy";
    std::filesystem::copy_file(CHROMA_LIBRARY, copy, std::filesystem::copy_options::overwrite_existing);
    const Records first = recordsOf(CHROMA_LIBRARY, 2013.0, Host::resolve);
    const Records second = recordsOf(copy, 2021.0, otherHost);
    std::filesystem::remove(copy);
    ASSERT_FALSE(first.empty());
    ASSERT_EQ(second.size(), first.size());
    EXPECT_EQ(first[0]->version, 11);
    EXPECT_EQ(second[0]->version, 13);

    refuseColor(first);
    EXPECT_EQ(Host::instance().takeRaised(), outOfBounds);
    EXPECT_EQ(raisedElsewhere, 0);
    refuseColor(second);
    EXPECT_EQ(Host::instance().takeRaised(), std::vector<foreign::Raised>());
    EXPECT_EQ(raisedElsewhere, 1);
}

#ifdef CHROMA_SIBLING
// The plugin found no registry before. It must not remove entries when its objects are destroyed.
TEST(Load, ASiblingLoadedLateRegistersNoForeignObjects) {
    load(2021.0);
    foreign::unlock(newColor(1.0, 0.0, 0.0, 1.0));
    start(CHROMA_SIBLING, Host::resolve);
    const foreign::Owned color(newColor(0.0, 1.0, 0.0, 1.0)), image(foreign::make("NSImageZRX"));
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
#endif
