// Profiles from outside: real ones, which a colour management library reads alike, and hostile ones, which must do no harm.
#include "support/plugin_test.h"

#include "classes/colorspace/colorspace.h"

#include <filesystem>
#include <fstream>
#include <random>
#include <sstream>

#ifdef CHROMA_HAS_LCMS
#include <lcms2.h>
#endif

using namespace chroma;
using namespace chroma::colorspace;
namespace fs = std::filesystem;

class ForeignProfiles : public PluginTest {
protected:
    void SetUp() override {
        PluginTest::SetUp();
        start();
    }

    static std::vector<fs::path> installed() {
        std::vector<fs::path> paths;
        for (const auto& entry : fs::recursive_directory_iterator(CHROMA_PROFILES)) {
            std::string extension = entry.path().extension();
            for (char& c : extension)
                c = static_cast<char>(std::tolower(c));
            if (extension == ".icc" || extension == ".icm") paths.push_back(entry.path());
        }
        return paths;
    }
    static std::string contents(const fs::path& path) {
        std::ostringstream text;
        text << std::ifstream(path, std::ios::binary).rdbuf();
        return text.str();
    }

    // What a space tells, as text; "nil" for none. Gives the space up.
    static std::string told(REALobjectStruct* space) {
        if (!space) return "nil";
        const std::string text = "model " + std::to_string(colorSpaceModel(space, 0)) + ", " +
                                 std::to_string(numberOfColorComponents(space, 0)) + " components, " +
                                 foreign::take(localizedName(space, 0));
        foreign::unlock(space);
        return text;
    }
    static std::string fromBlock(const std::string& bytes) {
        REALmemoryBlockStruct* const block = foreign::block(bytes);
        const std::string text = told(ColorSpaceWithICCProfileData(block));
        foreign::unlock(foreign::object(block));
        return text;
    }
};

#ifdef CHROMA_HAS_LCMS
TEST_F(ForeignProfiles, ReadAsAColourManagementLibraryReadsThem) {
    const auto expected = [](const std::string& bytes) -> std::string {
        const cmsHPROFILE profile = cmsOpenProfileFromMem(bytes.data(), static_cast<cmsUInt32Number>(bytes.size()));
        if (!profile) return "nil";
        const cmsColorSpaceSignature space = cmsGetColorSpace(profile);
        const cmsUInt32Number channels = cmsChannelsOf(space);
        if (space == cmsSigXYZData) { // a connection space, no colour model
            cmsCloseProfile(profile);
            return "nil";
        }
        const int model = space == cmsSigGrayData   ? 0
                          : space == cmsSigRgbData  ? 1
                          : space == cmsSigCmykData ? 2
                          : space == cmsSigLabData  ? 3
                                                    : 4;
        char name[512] = {};
        cmsGetProfileInfoASCII(profile, cmsInfoDescription, "en", "US", name, sizeof name);
        cmsCloseProfile(profile);
        return "model " + std::to_string(model) + ", " + std::to_string(channels) + " components, " + name;
    };
    std::size_t read = 0;
    for (const fs::path& path : installed()) {
        const std::string bytes = contents(path);
        REALfolderItemStruct* const file = foreign::folderItem({{"NativePath", path}});
        EXPECT_EQ(told(ColorSpaceWithICCProfileFile(file)), expected(bytes)) << path;
        foreign::unlock(foreign::object(file));
        EXPECT_EQ(fromBlock(bytes), expected(bytes)) << path;
        ++read;
    }
    EXPECT_GT(read, 30U);
}
#endif

TEST_F(ForeignProfiles, ThatAreDamagedAreNilOrUsable) {
    std::vector<std::string> originals;
    for (const fs::path& path : installed())
        if (fs::file_size(path) < 8192) originals.push_back(contents(path));
    ASSERT_GT(originals.size(), 5U);
    std::mt19937 random(20261124);
    const auto below = [&](std::size_t limit) { return random() % limit; };
    std::size_t accepted = 0, refused = 0;
    const auto count = [&](const std::string& bytes) { ++(fromBlock(bytes) == "nil" ? refused : accepted); };
    for (int i = 0; i < 25000; ++i) {
        native::tell<void>(pool, "drain");
        pool = native::tell(native::classNamed("NSAutoreleasePool"), "new");
        const std::string& original = originals[below(originals.size())];
        count(original.substr(0, below(original.size())));
        std::string flipped = original;
        for (std::size_t flips = 1 + below(8); flips > 0; --flips)
            flipped[below(std::min<std::size_t>(flipped.size(), 512))] ^= static_cast<char>(1 << below(8));
        count(flipped);
        std::string noise(below(300), '\0');
        for (char& c : noise)
            c = static_cast<char>(random());
        count(noise);
        // Noise behind a header that is whole.
        std::string headed = original.substr(0, 128) + noise;
        for (int byte = 0; byte < 4; ++byte)
            headed[static_cast<std::size_t>(byte)] = static_cast<char>(headed.size() >> (24 - 8 * byte));
        count(headed);
    }
    EXPECT_EQ(accepted + refused, 100000U);
    EXPECT_GT(accepted, 1000U);
    EXPECT_GT(refused, 1000U);
}
