// The classes that the probe registers, in the layout for the host's version.
//
// Host code completes the report. It calls ChromaProbe.Raise, catches the exception, and passes what it caught to
// ChromaProbe.Caught(message, errorNumber). ChromaProbe.Complaints is the number of complaints, ChromaProbe.Report their
// text.
#include "probe/host.h"

#include <cstdint>

namespace probe {

const char* const className = "ChromaProbe";

namespace {

constexpr const char* exceptionName = "ChromaProbeException";
constexpr int dataSize = 16;
constexpr const char* raisedMessage = "raised by ChromaProbe";
constexpr int raisedNumber = 7;

const Host* theHost; // for calls from host code; lives as long as the process

unsigned char* dataOf(REALobjectStruct* object) { return reinterpret_cast<unsigned char*>(object) + REALinstanceDataOffset; }

void construct(REALobjectStruct* object) {
    unsigned char none[dataSize] = {};
    life().wasZeroed = std::memcmp(dataOf(object), none, sizeof none) == 0;
    std::memset(dataOf(object), 0xA5, dataSize);
    ++life().constructed;
}

void destroy(REALobjectStruct* object) {
    unsigned char written[dataSize];
    std::memset(written, 0xA5, sizeof written);
    life().isPreserved = std::memcmp(dataOf(object), written, sizeof written) == 0;
    ++life().destroyed;
}

int exceptionsDestroyed;
void destroyException(REALobjectStruct*) { ++exceptionsDestroyed; }

// ---- Functions for host code

HostInteger complaints() { return static_cast<HostInteger>(theHost->report.complaints()); }

REALstringStruct* report() {
    const std::string text = theHost->report.text();
    const auto build = theHost->entry(entries::REALBuildString);
    const auto tag = theHost->entry(entries::REALSetStringEncoding);
    REALstringStruct* const string = build ? build(text.data(), static_cast<std::int32_t>(text.size())) : nullptr;
    if (string && tag) tag(string, REALencodingUTF8);
    return string;
}

// Returns the entry point that sets ErrorNumber, by its newer name if the host provides that.
EntryPoint<REALSetPropValueIntegerProc> numberSetter() {
    return theHost->entry(entries::REALSetPropValueInteger) ? entries::REALSetPropValueInteger
                                                            : entries::REALSetPropValueInt;
}

void raise() {
    const auto make = theHost->entry(entries::PluginNewInstance);
    const auto unlock = theHost->entry(entries::REALUnlockObject);
    const auto setText = theHost->entry(entries::REALSetPropValueString);
    const auto setNumber = theHost->entry(numberSetter());
    const Strings strings(*theHost);
    const auto record = theHost->begin(entries::RuntimeRaiseException);
    REALobjectStruct* const exception = make ? make(exceptionName) : nullptr;
    if (record && unlock && exception) {
        REALstringStruct* const text = strings.areUsable() ? strings.of(raisedMessage) : nullptr;
        if (setText) setText(exception, "Message", text);
        if (text) strings.drop(text);
        if (setNumber) setNumber(exception, "ErrorNumber", raisedNumber);
        record(exception);
        const int before = exceptionsDestroyed;
        unlock(exception);
        theHost->report.expect(exceptionsDestroyed == before,
                               "keeps no reference to the exception until host code catches it");
    }
    theHost->report.end();
}

void caught(REALstringStruct* message, HostInteger errorNumber) {
    const Strings strings(*theHost);
    if (theHost->begin(entries::REALSetPropValueString) && strings.areUsable()) {
        const std::string read = strings.bytesOf(message);
        theHost->report.expect(read == raisedMessage,
                               "host code reads the Message \"" + read + "\" instead of \"" + raisedMessage + "\"");
    }
    if (theHost->begin(numberSetter()))
        theHost->report.expect(errorNumber == raisedNumber,
                               "host code reads the ErrorNumber " + std::to_string(errorNumber) + " instead of 7");
    theHost->report.end();
}

template <class Method>
Method row(void (*function)(), const char* declaration) {
    Method method = {};
    method.function = reinterpret_cast<REALfunction>(function);
    method.declaration = declaration;
    method.flags = REALmethodFlags;
    return method;
}

// Both layouts have the fields that matter here under the same names.
template <class Record, class Method>
struct Records {
    Record own = {}, exception = {};
    Method methods[4];

    explicit Records(REALword version) {
        methods[0] = row<Method>(reinterpret_cast<void (*)()>(complaints), "Complaints as integer");
        methods[1] = row<Method>(reinterpret_cast<void (*)()>(report), "Report as string");
        methods[2] = row<Method>(reinterpret_cast<void (*)()>(raise), "Raise");
        methods[3] = row<Method>(reinterpret_cast<void (*)()>(caught), "Caught(message as string, errorNumber as integer)");
        own.version = exception.version = version;
        own.name = className;
        own.instanceDataSize = dataSize;
        own.constructor = reinterpret_cast<REALfunction>(construct);
        own.destructor = reinterpret_cast<REALfunction>(destroy);
        own.sharedMethods = methods;
        own.sharedMethodCount = 4;
        own.flags = exception.flags = REALclassFlags;
        exception.name = exceptionName;
        exception.superName = "RuntimeException";
        exception.destructor = reinterpret_cast<REALfunction>(destroyException);
    }
};

template <class Kind>
void registerAll(const Host& host, const Function<PluginRegisterClassProc>& registerClass, REALword version) {
    static Kind records(version);
    for (auto* record : {&records.own, &records.exception}) {
        auto before = *record;
        registerClass(reinterpret_cast<REALclassDefinition*>(record));
        before.instanceDataOffset = record->instanceDataOffset;
        host.report.expect(std::memcmp(&before, record, sizeof before) == 0,
                           std::string("changes more of the record of ") + record->name + " than instanceDataOffset");
    }
    host.report.expect(records.own.instanceDataOffset == REALinstanceDataOffset,
                       "writes instanceDataOffset " + std::to_string(records.own.instanceDataOffset) + " instead of 24");
}

} // namespace

Life& life() {
    static Life all = {};
    return all;
}

std::int32_t controlVersion(double hostVersion) {
#define PROBE_CONTROL_VERSION(from, controlVersion)                                                                         \
    if (hostVersion >= from) return controlVersion;
    REAL_CONTROL_VERSIONS(PROBE_CONTROL_VERSION)
#undef PROBE_CONTROL_VERSION
    return REALcontrolVersionLegacy;
}

void registerClasses(const Host& host, const Function<PluginRegisterClassProc>& registerClass) {
    theHost = &host;
    const std::int32_t version = controlVersion(host.version);
    if (version > REALcontrolVersionLegacy) {
        registerAll<Records<REALclassDefinition, REALmethodDefinition>>(host, registerClass, version);
    } else {
        registerAll<Records<REALclassDefinitionLegacy, REALmethodDefinitionLegacy>>(host, registerClass, version);
    }
}

} // namespace probe
