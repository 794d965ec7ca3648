#include "entries/plugin.h"
#include "model/arrays.h"

#include "host_test.h"

#include <algorithm>
#include <fstream>

#include <unistd.h>

using namespace host;

using Exceptions = StartedHost;
using Properties = StartedHost;
using Plugins = StartedHost;

TEST(Entries, AreMissingIfTheHostIsTooOldOrWithholdsThem) {
    const std::string error = errorOf([] { startHost({2012.5, {"newMemoryblock"}}); });
    EXPECT_EQ(error.find("there is no entry \"newMemoryblock\""), 0u) << error;
    EXPECT_NE(error.find("\n    newMemoryBlock"), std::string::npos) << error;

    startHost({2012.5, {"newMemoryBlock", "REALLockObject"}});
    EXPECT_EQ(entry<REALGetRBVersionProc>("REALGetRBVersion")(), 2012.5);
    for (const char* const name : {"newMemoryBlock", "PluginDoubleArrayGetProc", "memoryBlockGetPtr", "reallockstring"})
        EXPECT_EQ(resolveEntry(name), nullptr) << name;
    const std::vector<std::string> names = entryNames();
    const auto offered = [](const std::string& name) { return resolveEntry(name.c_str()) != nullptr; };
    EXPECT_EQ(std::count_if(names.begin(), names.end(), offered),
              static_cast<std::ptrdiff_t>(names.size()) - 9); // a missing lock removes the unlock too
}

TEST_F(Properties, AreAccessedByNameAndType) {
    const auto newInstance = entry<PluginNewInstanceProc>("PluginNewInstance");
    const auto setString = entry<REALSetPropValueStringProc>("REALSetPropValueString");
    const auto getString = entry<REALGetPropValueStringProc>("REALGetPropValueString");
    EXPECT_EQ(newInstance("NoSuchClass"), nullptr);
    const Held exception(newInstance("OutOfBoundsException"));
    const Held text(newString("caf\xC3\xA9"));
    setString(exception, "Message", text);
    setString(exception, "ErrorNumber", text);
    entry<REALSetPropValueIntegerProc>("REALSetPropValueInt")(exception, "errornumber", -3);
    EXPECT_EQ(exceptionErrorNumber(exception), -3);

    String* read = nullptr;
    EXPECT_EQ(getString(exception, "message", &read), 1);
    EXPECT_EQ(bytesOf(Held(read)), "caf\xC3\xA9");
    EXPECT_EQ(getString(exception, "ErrorNumber", &read), 0);
    EXPECT_EQ(getString(exception, "Nothing", &read), 0);
    EXPECT_EQ(getString(nullptr, "Message", &read), 0);
}

TEST_F(Exceptions, HaveTheirClassAndStayPendingUntilTaken) {
    const Held second(entry<PluginNewInstanceProc>("PluginNewInstance")("NilObjectException"));
    const auto raiseObject = entry<RuntimeRaiseExceptionProc>("RuntimeRaiseException");
    raise("OutOfBoundsException", "first", 7);
    raiseObject(second);
    const Held first(takePendingException());
    EXPECT_EQ(exceptionMessage(first), "first");
    EXPECT_EQ(exceptionErrorNumber(first), 7);
    EXPECT_FALSE(hasPendingException());
    EXPECT_EQ(takePendingException(), nullptr);
    raiseObject(second);
    EXPECT_EQ(Held(takePendingException()), second.value); // the host retains it
    const auto isA = entry<ChromaObjectIsAProc>("ChromaObjectIsA");
    EXPECT_EQ(isA(second, "runtimeexception"), 1);
    EXPECT_EQ(isA(second, "OutOfBoundsException"), 0);
    EXPECT_EQ(isA(nullptr, "RuntimeException"), 0);

    for (const char* const className : {"NoSuchException", "MemoryBlock"}) {
        raise(className, className);
        EXPECT_EQ(pendingMessage("RuntimeException"), className);
    }
    EXPECT_FALSE(isException(Held(newArray(typeNamed("double")))));
}

TEST_F(Plugins, ReportWhyTheyCannotBeLoaded) {
    const std::string file = testing::TempDir() + "/no_plugin_" + std::to_string(getpid()) + ".so";
    std::ofstream(file) << "text";
    for (const std::string& path : {std::string("no/such/plugin.so"), file})
        EXPECT_EQ(errorOf([&] { loadPlugin(path); }).find("cannot load the plugin " + path), 0u) << path;
    EXPECT_EQ(errorOf([] { loadPlugin("libdl.so.2"); }), "libdl.so.2 is not a plugin: it has no REALPluginMain");
}
