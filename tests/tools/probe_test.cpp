// The probe in two correct hosts, and in the reference host with one faulty entry point at a time.
#include "entries/entries.h"
#include "entries/leaks.h"
#include "language/language.h"
#include "model/classes.h"
#include "model/objects.h"
#include "support/foreign_host.h"
#include "values/platform.h"
#include "values/strings.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <map>
#include <set>
#include <sstream>
#include <stdexcept>

#include <dlfcn.h>
#include <unistd.h>

extern "C" void __lsan_disable() __attribute__((weak)); // null without a sanitizer

namespace {

std::map<std::string, void*> faults; // by entry

void* resolveFaulty(const char* name) {
    const auto fault = faults.find(name);
    return fault != faults.end() ? fault->second : host::resolveEntry(name);
}

template <class Procedure>
Procedure proper(const char* name) {
    return reinterpret_cast<Procedure>(host::resolveEntry(name));
}

std::string contentsOf(const std::string& path) {
    std::ifstream file(path);
    return {std::istreambuf_iterator<char>(file), {}};
}

// Returns the complaints of a complete report, one per line.
std::string complaintsOf(const nlohmann::json& report) {
    std::string all = report["complete"] ? "" : "incomplete\n";
    std::set<std::string> entries;
    for (const auto& entry : report["entries"]) {
        entries.insert(entry["entry"]);
        for (const std::string complaint : entry["complaints"])
            all += entry["entry"].get<std::string>() + ": " + complaint + "\n";
    }
#define EXPECT_FINDING(name, Procedure, since) EXPECT_EQ(entries.count(#name), 1u) << #name;
    REAL_ENTRY_POINTS(EXPECT_FINDING)
    return all;
}

std::string reportPath() { return testing::TempDir() + "probe_test_" + std::to_string(getpid()); }

void load(REALresolver resolver) {
    void* const library = dlopen(CHROMAPROBE, RTLD_NOW | RTLD_LOCAL);
    if (!library) throw std::runtime_error(dlerror());
    reinterpret_cast<REALPluginMainProc>(dlsym(library, "REALPluginMain"))(resolver);
}

// Loads the probe into a started host. Returns its complaints, one per line.
std::string probed(REALresolver resolver = resolveFaulty) {
    setenv("CHROMAPROBE_REPORT", reportPath().c_str(), 1);
    setenv("CHROMAPROBE_JSON", "1", 1);
    load(resolver);
    const auto report = nlohmann::json::parse(contentsOf(reportPath()));
    std::remove(reportPath().c_str());
    return complaintsOf(report);
}

// Returns a lambda without captures as an entry's function.
template <class Procedure>
void* fault(Procedure procedure) {
    return reinterpret_cast<void*>(procedure);
}

testing::AssertionResult contains(const std::string& text, const std::string& part) {
    if (text.find(part) != std::string::npos) return testing::AssertionSuccess();
    return testing::AssertionFailure() << "no \"" << part << "\" in\n" << text;
}

struct Case {
    const char* name;
    const char* entry;
    void* function;
    const char* complaint;
};

void doNothing() {}

const Case cases[] = {
    {"UnknownEntry", "ChromaNoSuchEntry", fault(doNothing), "(resolver): returns an address for a name"},
    {"ChangingVersion", "REALGetRBVersion", fault<REALGetRBVersionProc>([] { return std::nan(""); }),
     "REALGetRBVersion: changes"},
    {"ChangedRecord", "PluginRegisterClass",
     fault<PluginRegisterClassProc>([](REALclassDefinition* record) { record->flags = 0; }),
     "PluginRegisterClass: changes more"},
    {"NoConstructor", "PluginNewInstance", fault<PluginNewInstanceProc>([](const char*) {
         return proper<PluginNewInstanceProc>("PluginNewInstance")("RuntimeException");
     }),
     "PluginNewInstance: does not call the class constructor"},
    {"ObjectLockWithoutEffect", "REALLockObject", fault<REALLockObjectProc>([](REALobjectStruct*) {}),
     "REALLockObject: destroys an object"},
    {"ObjectUnlockWithoutEffect", "REALUnlockObject", fault<REALUnlockObjectProc>([](REALobjectStruct*) {}),
     "REALUnlockObject: does not call the class destructor"},
    {"BlockUnlockWithoutEffect", "REALUnlockObject", fault<REALUnlockObjectProc>([](REALobjectStruct* object) {
         if (object && object->info->name() == "MemoryBlock") return;
         host::unlock(object);
     }),
     "newMemoryBlock: the block is not freed"},
    {"StringLockWithoutEffect", "REALLockString", fault<REALLockStringProc>([](REALstringStruct*) {}),
     "REALLockString: adds no reference"},
    {"StringUnlockWithoutEffect", "REALUnlockString", fault<REALUnlockStringProc>([](REALstringStruct*) {}),
     "REALUnlockString: does not free the string"},
    {"LostMessage", "REALSetPropValueString",
     fault<REALSetPropValueStringProc>([](REALobjectStruct*, const char*, REALstringStruct*) {}),
     "REALSetPropValueString: the Message is \"\" instead of \"a message\" after it was set"},
    {"EveryPropertyIsTheMessage", "REALSetPropValueString",
     fault<REALSetPropValueStringProc>([](REALobjectStruct* object, const char*, REALstringStruct* value) {
         proper<REALSetPropValueStringProc>("REALSetPropValueString")(object, "Message", value);
     }),
     "REALSetPropValueString: the Message is \"another\" instead of \"a message\" after an unknown property"},
    {"IgnoredNullMessage", "REALSetPropValueString",
     fault<REALSetPropValueStringProc>([](REALobjectStruct* object, const char* name, REALstringStruct* value) {
         if (value) proper<REALSetPropValueStringProc>("REALSetPropValueString")(object, name, value);
     }),
     "REALSetPropValueString: the Message is \"a message\" instead of \"\" after it was set to null"},
    {"InventedProperty", "REALGetPropValueString",
     fault<REALGetPropValueStringProc>([](REALobjectStruct*, const char*, REALstringStruct**) -> HostBoolean { return 1; }),
     "REALGetPropValueString: finds a property"},
    {"UnretainedProperty", "REALGetPropValueString",
     fault<REALGetPropValueStringProc>([](REALobjectStruct* object, const char* name, REALstringStruct** value) {
         const auto found = proper<REALGetPropValueStringProc>("REALGetPropValueString")(object, name, value);
         if (found) host::unlock(*value);
         return found;
     }),
     "REALGetPropValueString: returns the string without a reference"},
    {"EveryClass", "ChromaObjectIsA",
     fault<ChromaObjectIsAProc>([](REALobjectStruct*, const char*) -> HostBoolean { return 1; }),
     "ChromaObjectIsA: returns 1 for another class"},
    {"TextUpToZero", "REALBuildString", fault<REALBuildStringProc>([](const void* bytes, std::int32_t) {
         return host::newString(static_cast<const char*>(bytes), host::encoding::unknown);
     }),
     "REALBuildString: the string has 61 instead of 61 00 62 ff"},
    {"LostEncoding", "REALSetStringEncoding", fault<REALSetStringEncodingProc>([](REALstringStruct*, std::uint32_t) {}),
     "REALSetStringEncoding: loses the encoding"},
    {"InventedEncoding", "REALGetStringEncoding",
     fault<REALGetStringEncodingProc>([](REALstringStruct*) { return host::encoding::utf8; }),
     "REALBuildString: the recorded encoding"},
    {"UnrecordedEncoding", "REALBuildStringWithEncoding",
     fault<REALBuildStringWithEncodingProc>([](const void* bytes, std::int32_t size, std::uint32_t) {
         return proper<REALBuildStringProc>("REALBuildString")(bytes, size);
     }),
     "REALBuildStringWithEncoding: loses the encoding ASCII"},
    {"NoEncodedBuilder", "REALBuildStringWithEncoding", nullptr, "REALBuildStringWithEncoding: missing, although"},
    {"UnconvertedText", "REALConvertString",
     fault<REALConvertStringProc>([](REALstringStruct* string, std::uint32_t encoding) {
         return string ? host::newString(host::bytesOf(string), encoding) : nullptr;
     }),
     "REALConvertString: Mac Roman to UTF-8: 8e db instead of c3 a9 e2 82 ac"},
    {"UnretainedConversion", "REALConvertString",
     fault<REALConvertStringProc>([](REALstringStruct* string, std::uint32_t encoding) {
         const bool isConverted = string && host::encodingOf(string) == encoding;
         return isConverted ? string : proper<REALConvertStringProc>("REALConvertString")(string, encoding);
     }),
     "REALConvertString: returns the string without a reference"},
    {"OtherPlatformText", "REALGetStringCFString",
     fault<REALGetStringCFStringProc>([](REALstringStruct* string, std::int32_t) -> const void* {
         return host::platform::newCFString(host::bytesOf(string), host::encoding::isoLatin1);
     }),
     "REALGetStringCFString: Mac Roman: c2 8e c3 9b instead of"},
    {"OneElementTooMany", "RuntimeArrayCreateSingleDimBoundedArray",
     fault<RuntimeArrayCreateProc>([](std::int32_t type, std::int32_t) {
         return proper<RuntimeArrayCreateProc>("RuntimeArrayCreateSingleDimBoundedArray")(type, 0);
     }),
     "RuntimeArrayCreateSingleDimBoundedArray: an array of doubles that was created with -1 has the upper bound 0"},
    {"LengthAsBound", "RuntimeUBound",
     fault<RuntimeUBoundProc>([](void* array) { return proper<RuntimeUBoundProc>("RuntimeUBound")(array) + 1; }),
     "RuntimeUBound: an array of doubles"},
    {"NoInsertProcedure", "PluginDoubleArrayInsertProc",
     fault<PluginDoubleArrayInsertProc>([](void*) -> REALarrayInsertDoubleProc { return nullptr; }),
     "PluginDoubleArrayInsertProc: returns no procedure"},
    {"FloatsInserted", "PluginDoubleArrayInsertProc",
     fault<PluginDoubleArrayInsertProc>([](void*) -> REALarrayInsertDoubleProc {
         return [](void* array, std::int32_t index, double value) {
             const auto insert = proper<PluginDoubleArrayInsertProc>("PluginDoubleArrayInsertProc")(array);
             insert(array, index, static_cast<double>(static_cast<float>(value)));
         };
     }),
     "PluginDoubleArrayInsertProc: an element is 0.10000000149011612 instead of 0.10000000000000001"},
    {"FloatsRead", "PluginDoubleArrayGetProc", fault<PluginDoubleArrayGetProc>([](void*) -> REALarrayGetDoubleProc {
         return [](void* array, std::int32_t index) {
             const auto get = proper<PluginDoubleArrayGetProc>("PluginDoubleArrayGetProc")(array);
             return static_cast<double>(static_cast<float>(get(array, index)));
         };
     }),
     "PluginDoubleArrayGetProc: an element is 0.10000000149011612 instead of 0.10000000000000001"},
    {"UnretainedElement", "PluginObjectArrayInsertProc",
     fault<PluginObjectArrayInsertProc>(
         [](void*) -> REALarrayInsertObjectProc { return [](void*, std::int32_t, REALobjectStruct*) {}; }),
     "PluginObjectArrayInsertProc: the array has no reference"},
    {"IgnoredNullElement", "PluginObjectArrayInsertProc",
     fault<PluginObjectArrayInsertProc>([](void*) -> REALarrayInsertObjectProc {
         return [](void* array, std::int32_t index, REALobjectStruct* value) {
             const auto insert = proper<PluginObjectArrayInsertProc>("PluginObjectArrayInsertProc")(array);
             if (value) insert(array, index, value);
         };
     }),
     "PluginObjectArrayInsertProc: an array into which an object and null were inserted has the upper bound 0"},
    {"NegativeBlock", "newMemoryBlock", fault<NewMemoryBlockProc>([](std::int32_t size) {
         return proper<NewMemoryBlockProc>("newMemoryBlock")(size < 0 ? 1 : size);
     }),
     "newMemoryBlock: returns a block of a negative size"},
    {"RoundedBlock", "newMemoryBlock", fault<NewMemoryBlockProc>([](std::int32_t size) {
         return proper<NewMemoryBlockProc>("newMemoryBlock")(size < 0 ? size : (size + 7) / 8 * 8);
     }),
     "newMemoryBlock: creates 8 bytes instead of 5"},
    {"OtherBlockSize", "memoryBlockGetSize", fault<MemoryBlockGetSizeProc>([](REALmemoryBlockStruct*) { return 15; }),
     "memoryBlockGetSize: returns 15 bytes instead of 5"},
    {"NoBlockBytes", "memoryBlockGetPtr", nullptr, "memoryBlockGetPtr: missing, although"},
};

class BrokenHost : public testing::TestWithParam<Case> {};

} // namespace

TEST(Probe, AcceptsTheReferenceHostOfEveryVersion) {
    for (const double version : {2005.1, 2012.0, 2013.0, 2016.4, 2021.0}) {
        EXPECT_EXIT(
            {
                host::startHost({version, {}});
                const std::string complaints = probed() + host::describeLeaks();
                std::fputs(complaints.c_str(), stderr);
                std::exit(complaints.empty() ? 0 : 1);
            },
            testing::ExitedWithCode(0), "")
            << version;
    }
}

// The host of the plugin's tests uses every freedom that the header allows hosts.
TEST(Probe, AcceptsTheStrictHostOfEveryVersion) {
    for (const double version : {2005.1, 2012.0, 2013.0, 2016.4, 2021.0}) {
        EXPECT_EXIT(
            {
                foreign::Host::instance().version = version;
                const std::string complaints = probed(foreign::Host::resolve);
                std::fputs(complaints.c_str(), stderr);
                const int left = foreign::Host::liveObjects() + foreign::Host::liveStrings();
                std::exit(complaints.empty() && left == 0 ? 0 : 1);
            },
            testing::ExitedWithCode(0), "")
            << version;
    }
}

TEST(Probe, NamesTheEntryThatCrashes) {
    const std::string path = reportPath();
    setenv("CHROMAPROBE_REPORT", path.c_str(), 1);
    std::ofstream(path) << "an old report";
    EXPECT_DEATH(
        {
            host::startHost();
            faults["RuntimeUBound"] = fault<RuntimeUBoundProc>([](void*) -> std::int32_t { std::abort(); });
            load(resolveFaulty);
        },
        "REALLockString +ok\n(.|\n)*trying RuntimeUBound\n");
    const std::string report = contentsOf(path), last = "  trying RuntimeUBound\n";
    EXPECT_EQ(report.find("old report"), std::string::npos);
    EXPECT_TRUE(contains(report, "REALLockString"));
    EXPECT_EQ(report.substr(report.size() - std::min(report.size(), last.size())), last) << report;
    std::remove(path.c_str());
}

// Runs a program that makes the probe raise an exception and passes the caught exception's data back to it. Returns the
// program's output.
std::string raised() {
    std::ostringstream output, errors;
    const char* const program = R"(
Try
    ChromaProbe.Raise
    Print "nothing"
Catch e As ChromaProbeException
    Print "caught"
    ChromaProbe.Caught e.Message, e.ErrorNumber
End Try
Print ChromaProbe.Report
Print ChromaProbe.Complaints
)";
    EXPECT_EQ(host::language::runText("probe", program, output, errors), 0) << errors.str();
    return output.str();
}

std::string raisedWith(const char* entry, void* function) {
    faults = {{entry, function}};
    return raised();
}

TEST(Probe, ObservesExceptionsThroughHostCode) {
    host::startHost();
    EXPECT_EQ(probed(), "");
    unsetenv("CHROMAPROBE_REPORT");
    const std::string name = "  REALSetPropValueInteger                   ";
    EXPECT_TRUE(contains(raisedWith("RuntimeRaiseException", fault<RuntimeRaiseExceptionProc>([](REALobjectStruct*) {})),
                         "keeps no reference to the exception"));
    EXPECT_TRUE(contains(raised(), name + "not observable"));
    faults.clear();
    EXPECT_TRUE(contains(raised(), name + "ok"));
    const auto dropped = fault<REALSetPropValueIntegerProc>([](REALobjectStruct*, const char*, std::int32_t) {});
    EXPECT_TRUE(contains(raisedWith("REALSetPropValueInteger", dropped), "reads the ErrorNumber 0 instead of 7"));
}

TEST_P(BrokenHost, IsDetected) {
    if (__lsan_disable) __lsan_disable(); // leaks of a broken host are not the probe's
    host::startHost();
    faults[GetParam().entry] = GetParam().function;
    const std::string complaints = probed();
    EXPECT_NE(complaints.find(GetParam().complaint), std::string::npos) << complaints;
}

INSTANTIATE_TEST_SUITE_P(Probe, BrokenHost, testing::ValuesIn(cases), [](const auto& broken) { return broken.param.name; });
