#include "entry.h"
#include "model/plugin.h"
#include "model/strings.h"

#include <fstream>
#include <stdexcept>

#include <unistd.h>

using namespace host;

TEST(Entries, OlderHostsLackTheNewerOnes) {
    struct {
        const char* name;
        double since;
    } const cases[] = {{"REALBuildString", 2010.0},
                       {"REALBuildStringWithEncoding", 2012.0},
                       {"PluginDoubleArrayGetProc", 2013.0},
                       {"REALSetPropValueInteger", 2013.0},
                       {"memoryBlockGetPtr", 2017.0}};
    startHost({2012.5, {}});
    EXPECT_EQ(entry<REALGetRBVersionProc>("REALGetRBVersion")(), 2012.5);
    for (const auto& c : cases)
        EXPECT_EQ(resolveEntry(c.name) != nullptr, c.since <= 2012.5) << c.name;
}

TEST(Entries, CanBeTakenAway) {
    startHost({2021.0, {"newMemoryBlock", "REALSetPropValueInteger"}});
    EXPECT_EQ(resolveEntry("newMemoryBlock"), nullptr);
    EXPECT_EQ(resolveEntry("REALSetPropValueInteger"), nullptr);
    EXPECT_NE(resolveEntry("REALSetPropValueInt"), nullptr);
    EXPECT_EQ(resolveEntry("newmemoryblock"), nullptr) << "entry names are case-sensitive";
    for (const std::string& name : entryNames()) {
        const bool taken = name == "newMemoryBlock" || name == "REALSetPropValueInteger";
        EXPECT_EQ(resolveEntry(name.c_str()) == nullptr, taken) << name;
    }
}

TEST(Entries, TakingAwayAnUnknownOneNamesTheKnown) {
    try {
        startHost({2021.0, {"newMemoryblock"}});
        FAIL() << "an unknown name was accepted";
    } catch (const std::invalid_argument& error) {
        EXPECT_EQ(std::string(error.what()).find("there is no entry \"newMemoryblock\""), 0u);
        EXPECT_NE(std::string(error.what()).find("\n    newMemoryBlock"), std::string::npos);
    }
}

TEST(Entries, PropertiesAreReachedByNameAndType) {
    startHost();
    Object* const exception = entry<PluginNewInstanceProc>("PluginNewInstance")("OutOfBoundsException");
    EXPECT_EQ(entry<PluginNewInstanceProc>("PluginNewInstance")("NoSuchClass"), nullptr);
    String* const text = newString("caf\xC3\xA9");
    entry<REALSetPropValueStringProc>("REALSetPropValueString")(exception, "Message", text);
    entry<REALSetPropValueStringProc>("REALSetPropValueString")(exception, "ErrorNumber", text);
    entry<REALSetPropValueIntegerProc>("REALSetPropValueInt")(exception, "errornumber", -3);
    unlock(text);
    EXPECT_EQ(exceptionErrorNumber(exception), -3);

    const auto getString = entry<REALGetPropValueStringProc>("REALGetPropValueString");
    String* read = nullptr;
    EXPECT_EQ(getString(exception, "message", &read), 1);
    EXPECT_EQ(bytesOf(read), "caf\xC3\xA9");
    unlock(read);
    EXPECT_EQ(getString(exception, "ErrorNumber", &read), 0);
    EXPECT_EQ(getString(exception, "Nothing", &read), 0);
    EXPECT_EQ(getString(nullptr, "Message", &read), 0);
    unlock(exception);
    EXPECT_EQ(liveStringCount(), 0u);
}

TEST(Plugins, ThatCannotBeLoadedSayWhy) {
    startHost();
    const std::string file = testing::TempDir() + "/no_plugin_" + std::to_string(getpid()) + ".so";
    std::ofstream(file) << "text";
    for (const std::string& path : {std::string("no/such/plugin.so"), file}) {
        try {
            loadPlugin(path);
            ADD_FAILURE() << path << " was loaded";
        } catch (const std::runtime_error& error) {
            EXPECT_EQ(std::string(error.what()).find("cannot load the plugin " + path), 0u) << error.what();
        }
    }
    try {
        loadPlugin("libdl.so.2"); // a library, but no plugin
        ADD_FAILURE() << "loaded";
    } catch (const std::runtime_error& error) {
        EXPECT_STREQ(error.what(), "libdl.so.2 is no plugin: it has no REALPluginMain");
    }
}
