// The probe in the reference host, whole and with one entry at a time replaced by one that breaks the contract.
#include "language/language.h"
#include "model/classes.h"
#include "model/entries.h"
#include "model/leaks.h"
#include "model/objects.h"
#include "model/strings.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <map>

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

std::string complaintsOf(const nlohmann::json& report) {
    std::string all;
    for (const auto& entry : report["entries"]) {
        for (const std::string complaint : entry["complaints"])
            all += entry["entry"].get<std::string>() + ": " + complaint + "\n";
    }
    return all;
}

// Loads the probe, with the faults, into a host that was started; its complaints, a line each.
std::string probed() {
    const std::string path = testing::TempDir() + "probe_test_" + std::to_string(getpid()) + ".json";
    setenv("CHROMAPROBE_REPORT", path.c_str(), 1);
    setenv("CHROMAPROBE_JSON", "1", 1);
    void* const library = dlopen(CHROMAPROBE, RTLD_NOW | RTLD_LOCAL);
    if (!library) return dlerror();
    reinterpret_cast<REALPluginMainProc>(dlsym(library, "REALPluginMain"))(resolveFaulty);
    const nlohmann::json report = nlohmann::json::parse(std::ifstream(path));
    std::remove(path.c_str());
    EXPECT_GE(report["entries"].size(), 31u);
    return complaintsOf(report);
}

// A lambda without captures, as the function that an entry is.
template <class Procedure>
void* fault(Procedure procedure) {
    return reinterpret_cast<void*>(procedure);
}

struct Case {
    const char* entry;
    void* function;
    const char* complaint;
};

const Case cases[] = {
    {"ChromaNoSuchEntry", fault<void (*)()>([] {}), "(resolver): answers an address for a name"},
    {"REALGetRBVersion", fault<REALGetRBVersionProc>([] { return std::nan(""); }), "REALGetRBVersion: changes"},
    {"PluginRegisterClass", fault<PluginRegisterClassProc>([](REALclassDefinition* record) { record->flags = 0; }),
     "PluginRegisterClass: changes more"},
    {"PluginNewInstance", fault<PluginNewInstanceProc>([](const char*) {
         return proper<PluginNewInstanceProc>("PluginNewInstance")("RuntimeException");
     }),
     "PluginNewInstance: does not run the class constructor"},
    {"REALLockObject", fault<REALLockObjectProc>([](REALobjectStruct*) {}), "REALLockObject: ends an object"},
    {"REALUnlockObject", fault<REALUnlockObjectProc>([](REALobjectStruct*) {}),
     "REALUnlockObject: does not run the class destructor"},
    {"REALSetPropValueString", fault<REALSetPropValueStringProc>([](REALobjectStruct*, const char*, REALstringStruct*) {}),
     "REALSetPropValueString: reads \"\""},
    {"REALGetPropValueString",
     fault<REALGetPropValueStringProc>([](REALobjectStruct*, const char*, REALstringStruct**) -> HostBoolean { return 1; }),
     "REALGetPropValueString: finds a property"},
    {"ChromaObjectIsA", fault<ChromaObjectIsAProc>([](REALobjectStruct*, const char*) -> HostBoolean { return 1; }),
     "ChromaObjectIsA: takes an exception"},
    {"REALBuildString", fault<REALBuildStringProc>([](const void* bytes, std::int32_t) {
         return host::newString(static_cast<const char*>(bytes), host::encoding::unknown);
     }),
     "REALBuildString: the string gives 61 instead of 61 00 62 ff"},
    {"REALSetStringEncoding", fault<REALSetStringEncodingProc>([](REALstringStruct*, std::uint32_t) {}),
     "REALSetStringEncoding: loses the encoding"},
    {"REALGetStringEncoding", fault<REALGetStringEncodingProc>([](REALstringStruct*) { return host::encoding::utf8; }),
     "REALBuildString: records an encoding"},
    {"REALBuildStringWithEncoding",
     fault<REALBuildStringWithEncodingProc>([](const void* bytes, std::int32_t size, std::uint32_t) {
         return proper<REALBuildStringProc>("REALBuildString")(bytes, size);
     }),
     "REALBuildStringWithEncoding: loses the encoding ASCII"},
    {"REALConvertString", fault<REALConvertStringProc>([](REALstringStruct* string, std::uint32_t encoding) {
         return string ? host::newString(host::bytesOf(string), encoding) : nullptr;
     }),
     "REALConvertString: Mac Roman to UTF-8 gives 8e db instead of c3 a9 e2 82 ac"},
    {"REALGetStringCFString",
     fault<REALGetStringCFStringProc>([](REALstringStruct*, std::int32_t) -> const void* { return nullptr; }),
     "REALGetStringCFString: ASCII gives none"},
    {"RuntimeArrayCreateSingleDimBoundedArray", fault<RuntimeArrayCreateProc>([](std::int32_t type, std::int32_t) {
         return proper<RuntimeArrayCreateProc>("RuntimeArrayCreateSingleDimBoundedArray")(type, 0);
     }),
     "RuntimeArrayCreateSingleDimBoundedArray: an array of doubles with upper bound -1 has 0"},
    {"RuntimeUBound",
     fault<RuntimeUBoundProc>([](void* array) { return proper<RuntimeUBoundProc>("RuntimeUBound")(array) + 1; }),
     "RuntimeUBound: an array of doubles"},
    {"PluginDoubleArrayInsertProc",
     fault<PluginDoubleArrayInsertProc>([](void*) -> REALarrayInsertDoubleProc { return nullptr; }),
     "PluginDoubleArrayInsertProc: answers no procedure"},
    {"PluginObjectArrayInsertProc", fault<PluginObjectArrayInsertProc>([](void*) -> REALarrayInsertObjectProc {
         return [](void*, std::int32_t, REALobjectStruct*) {};
     }),
     "PluginObjectArrayInsertProc: the array keeps no reference"},
    {"PluginDoubleArrayGetProc", fault<PluginDoubleArrayGetProc>([](void*) -> REALarrayGetDoubleProc {
         return [](void*, std::int32_t) { return 1.0; };
     }),
     "PluginDoubleArrayGetProc: element 1 of 1, 2, 3 is 1.000000"},
    {"newMemoryBlock", fault<NewMemoryBlockProc>([](std::int32_t size) {
         const auto make = proper<NewMemoryBlockProc>("newMemoryBlock");
         return make(size < 0 ? 1 : size);
     }),
     "newMemoryBlock: answers a block of a negative size"},
    {"memoryBlockGetSize", fault<MemoryBlockGetSizeProc>([](REALmemoryBlockStruct*) { return 15; }),
     "memoryBlockGetSize: answers 15 for 16 bytes"},
    {"memoryBlockGetPtr", nullptr, "memoryBlockGetPtr: missing, though"},
};

class BrokenHost : public testing::TestWithParam<Case> {};

} // namespace

TEST(Probe, HasNoComplaintAboutTheReferenceHostOfAnyAge) {
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

// What a program prints that has the probe raise an exception.
std::string raised() {
    const std::string program = testing::TempDir() + "probe_test_" + std::to_string(getpid()) + ".bas";
    std::ofstream(program) << R"(
Try
    ChromaProbe.Raise
    Print "nothing"
Catch e As ChromaProbeException
    Print "caught"
End Try
Print ChromaProbe.Complaints
Print InStr(ChromaProbe.Report, "keeps no reference to the exception") > 0
)";
    testing::internal::CaptureStdout();
    EXPECT_EQ(host::language::runFile(program), 0);
    std::cout.flush();
    std::remove(program.c_str());
    return testing::internal::GetCapturedStdout();
}

TEST(Probe, RaisesForHostCodeAndTellsIt) {
    host::startHost();
    EXPECT_EQ(probed(), "");
    EXPECT_EQ(raised(), "caught\n0\nFalse\n");
    faults["RuntimeRaiseException"] = fault<RuntimeRaiseExceptionProc>([](REALobjectStruct*) {});
    EXPECT_EQ(raised(), "nothing\n1\nTrue\n");
}

TEST_P(BrokenHost, IsFoundOut) {
    if (__lsan_disable) __lsan_disable(); // what such a host loses is its own
    host::startHost();
    faults[GetParam().entry] = GetParam().function;
    const std::string complaints = probed();
    EXPECT_NE(complaints.find(GetParam().complaint), std::string::npos) << complaints;
}

INSTANTIATE_TEST_SUITE_P(Probe, BrokenHost, testing::ValuesIn(cases), [](const auto& broken) { return broken.param.entry; });
