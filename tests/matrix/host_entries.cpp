// The reference host's entries as the plugin gets them: what makes values and what runs other code of the host's is behind a
// function of the same type, inside which nothing is counted.
#include "driver.h"

#include "model/entries.h"

#include <stdexcept>
#include <string_view>
#include <type_traits>

namespace matrix {

std::set<std::string> missingEntries;

namespace {

template <class Procedure>
struct Entry;

template <class Result, class... Arguments>
struct Entry<Result (*)(Arguments...)> {
    template <int index>
    struct At {
        static inline Result (*target)(Arguments...) = nullptr;

        static Result call(Arguments... arguments) {
            if constexpr (std::is_pointer_v<Result>)
                if (strikes(Fault::HostAnswersNull, Fault::HostAnswersNull)) return nullptr;
            if constexpr (std::is_same_v<Result, REALstringStruct*> || std::is_same_v<Result, REALmemoryBlockStruct*>)
                if (strikes(Fault::HostThrows, Fault::HostThrows)) throw std::range_error("thrown by the host");
            const Suspension suspension;
            if constexpr (index == 0) countRaised();
            return target(arguments...);
        }
    };
};

template <class Procedure, int index>
void* around(void* address) {
    using Around = typename Entry<Procedure>::template At<index>;
    Around::target = reinterpret_cast<Procedure>(address);
    return address ? reinterpret_cast<void*>(Around::call) : nullptr;
}

constexpr struct {
    std::string_view name;
    void* (*around)(void* address);
} entries[] = {
    {"RuntimeRaiseException", around<RuntimeRaiseExceptionProc, 0>},
    {"PluginNewInstance", around<PluginNewInstanceProc, 1>},
    {"REALUnlockObject", around<REALUnlockObjectProc, 2>},
    {"REALGetPropValueString", around<REALGetPropValueStringProc, 3>},
    {"REALBuildString", around<REALBuildStringProc, 4>},
    {"REALBuildStringWithEncoding", around<REALBuildStringWithEncodingProc, 5>},
    {"REALConvertString", around<REALConvertStringProc, 6>},
    {"REALGetStringCFString", around<REALGetStringCFStringProc, 7>},
    {"RuntimeArrayCreateSingleDimBoundedArray", around<RuntimeArrayCreateProc, 8>},
    {"newMemoryBlock", around<NewMemoryBlockProc, 9>},
    {"memoryBlockGetPtr", around<MemoryBlockGetPtrProc, 10>},
};

} // namespace

void* resolveEntry(const char* name) {
    const Suspension suspension;
    void* const address = host::resolveEntry(name);
    for (const auto& entry : entries)
        if (entry.name == name) return entry.around(address);
    return address;
}

} // namespace matrix
