// Real profiles, those of Debian's icc-profiles-free and colord-data, which a colour management library reads alike.
#include "support/plugin_test.h"

#include "classes/colorspace/colorspace.h"

#include <filesystem>
#include <fstream>
#include <sstream>

#include <lcms2.h>

using namespace chroma;
using namespace chroma::colorspace;

namespace {

std::string told(int model, int components, const std::string& name) {
    return "model " + std::to_string(model) + ", " + std::to_string(components) + " components, " + name;
}

// What the space tells, as text; "nil" for none.
std::string toldBy(const Reference& space) {
    if (!space) return "nil";
    return told(static_cast<int>(colorSpaceModel(space, 0)), static_cast<int>(numberOfColorComponents(space, 0)),
                foreign::take(localizedName(space, 0)));
}

std::string toldByLibrary(const std::string& bytes) {
    const cmsHPROFILE profile = cmsOpenProfileFromMem(bytes.data(), static_cast<cmsUInt32Number>(bytes.size()));
    if (!profile) return "nil";
    const cmsColorSpaceSignature space = cmsGetColorSpace(profile);
    char name[512] = {};
    cmsGetProfileInfoASCII(profile, cmsInfoDescription, "en", "US", name, sizeof name);
    cmsCloseProfile(profile);
    if (space == cmsSigXYZData) return "nil"; // a connection space, no colour model
    const std::map<cmsColorSpaceSignature, int> models = {
        {cmsSigGrayData, 0}, {cmsSigRgbData, 1}, {cmsSigCmykData, 2}, {cmsSigLabData, 3}};
    const auto model = models.find(space);
    return told(model == models.end() ? 4 : model->second, static_cast<int>(cmsChannelsOf(space)), name);
}

} // namespace

TEST_F(PluginTest, ReadsProfilesAsAColourManagementLibraryDoes) {
    start();
    std::size_t read = 0;
    for (const auto& entry : std::filesystem::recursive_directory_iterator("/usr/share/color/icc")) {
        std::string extension = entry.path().extension();
        for (char& c : extension)
            c = static_cast<char>(std::tolower(c));
        if (extension != ".icc" && extension != ".icm") continue;
        std::ostringstream contents;
        contents << std::ifstream(entry.path(), std::ios::binary).rdbuf();
        const std::string expected = toldByLibrary(contents.str());
        const Reference file(foreign::plain("FolderItem", {{"NativePath", entry.path()}}));
        EXPECT_EQ(toldBy(ColorSpaceWithICCProfileFile(reinterpret_cast<REALfolderItemStruct*>(file.get()))), expected);
        const foreign::Owned block(foreign::block(contents.str()));
        EXPECT_EQ(toldBy(ColorSpaceWithICCProfileData(block)), expected) << entry.path();
        ++read;
    }
    EXPECT_GT(read, 30U);
}
