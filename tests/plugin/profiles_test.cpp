// Real profiles, those of Debian's icc-profiles-free and colord-data, which a colour management library reads alike.
#include "support/plugin_test.h"

#include "classes/colorspace/colorspace.h"

#include <filesystem>
#include <fstream>
#include <sstream>
#include <tuple>

#include <lcms2.h>

using namespace chroma;
using namespace chroma::colorspace;

namespace {

// Model, components and name of a profile; none when it makes no space.
using Facts = std::tuple<HostInteger, HostInteger, std::string>;

Facts factsOf(const Reference& space) {
    return {colorSpaceModel(space, 0), numberOfColorComponents(space, 0), foreign::take(localizedName(space, 0))};
}

Facts factsByLibrary(const std::string& bytes) {
    const cmsHPROFILE profile = cmsOpenProfileFromMem(bytes.data(), static_cast<cmsUInt32Number>(bytes.size()));
    if (!profile) return {};
    const cmsColorSpaceSignature space = cmsGetColorSpace(profile);
    char name[512] = {};
    cmsGetProfileInfoASCII(profile, cmsInfoDescription, "en", "US", name, sizeof name);
    cmsCloseProfile(profile);
    if (space == cmsSigXYZData) return {}; // a connection space, no colour model
    const std::map<cmsColorSpaceSignature, int> models = {
        {cmsSigGrayData, 0}, {cmsSigRgbData, 1}, {cmsSigCmykData, 2}, {cmsSigLabData, 3}};
    const auto model = models.find(space);
    return {model == models.end() ? 4 : model->second, cmsChannelsOf(space), name};
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
        const Facts expected = factsByLibrary(contents.str());
        const Reference file(foreign::plain("FolderItem", {{"NativePath", entry.path()}}));
        EXPECT_EQ(factsOf(ColorSpaceWithICCProfileFile(reinterpret_cast<REALfolderItemStruct*>(file.get()))), expected);
        const foreign::Owned block(foreign::block(contents.str()));
        EXPECT_EQ(factsOf(ColorSpaceWithICCProfileData(block)), expected) << entry.path();
        ++read;
    }
    EXPECT_GT(read, 30U);
}
