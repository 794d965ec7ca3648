#include "runtime/class_records.h"

#include "runtime/host_entries.h"
#include "runtime/host_version.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>

namespace chroma {
namespace {

// In the 32-bit reference layout every record has exactly these sizes in bytes; elsewhere the same slots are pointer-sized.
constexpr std::size_t words(std::size_t count) { return count * sizeof(void*); }
static_assert(sizeof(REALclassDefinition) == words(29) && sizeof(REALclassDefinitionLegacy) == words(25));
static_assert(sizeof(REALproperty) == words(12) && sizeof(REALpropertyLegacy) == words(10));
static_assert(sizeof(REALmethodDefinition) == words(6) && sizeof(REALmethodDefinitionLegacy) == words(4));
static_assert(sizeof(REALconstant) == words(5) && sizeof(REALconstantLegacy) == words(3));
static_assert(sizeof(REALevent) == words(4) && sizeof(REALeventLegacy) == words(2));
static_assert(sizeof(void*) != 4 || (sizeof(REALclassDefinition) == 116 && sizeof(REALclassDefinitionLegacy) == 100));

static_assert(offsetof(REALclassDefinition, instanceDataOffset) == words(4));
static_assert(offsetof(REALclassDefinition, properties) == words(7));
static_assert(offsetof(REALclassDefinition, methods) == words(9));
static_assert(offsetof(REALclassDefinition, interfaces) == words(15));
static_assert(offsetof(REALclassDefinition, constants) == words(18));
static_assert(offsetof(REALclassDefinition, flags) == words(20));
static_assert(offsetof(REALclassDefinition, sharedMethods) == words(23));
static_assert(offsetof(REALclassDefinition, enumerations) == words(27));
static_assert(offsetof(REALclassDefinitionLegacy, bindings) == offsetof(REALclassDefinition, bindings));
static_assert(offsetof(REALclassDefinitionLegacy, sharedMethodCount) == offsetof(REALclassDefinition, sharedMethodCount));
static_assert(offsetof(REALproperty, getter) == words(4) && offsetof(REALproperty, parameter) == words(6));
static_assert(offsetof(REALmethodDefinition, declaration) == words(2) && offsetof(REALconstant, flags) == words(2));

// Returns a new array with the leading words of each row, which the caller frees. Returns null without rows, and when memory
// is exhausted.
template <class LegacyRow, class Row>
LegacyRow* leadingWords(const Row* rows, REALword count) {
    static_assert(sizeof(LegacyRow) <= sizeof(Row));
    if (!rows || count <= 0) return nullptr;
    auto* const copy = static_cast<LegacyRow*>(std::calloc(static_cast<std::size_t>(count), sizeof(LegacyRow)));
    for (REALword i = 0; copy && i < count; ++i)
        std::memcpy(&copy[i], &rows[i], sizeof(LegacyRow));
    return copy;
}

bool isExhausted(const void* copy, const void* rows, REALword count) { return !copy && rows && count > 0; }

// Rewrites the record and its arrays in the legacy layout. Returns false and changes nothing when memory is exhausted.
bool rewriteInLegacyLayout(REALclassDefinition& record) {
    REALclassDefinitionLegacy legacy;
    std::memcpy(&legacy, &record, sizeof legacy);
    legacy.bindings = nullptr;
    legacy.bindingCount = 0;
    legacy.properties = FixProperties(record.properties, record.propertyCount);
    legacy.methods = leadingWords<REALmethodDefinitionLegacy>(record.methods, record.methodCount);
    legacy.events = leadingWords<REALeventLegacy>(record.events, record.eventCount);
    legacy.constants = leadingWords<REALconstantLegacy>(record.constants, record.constantCount);
    legacy.sharedProperties = FixProperties(record.sharedProperties, record.sharedPropertyCount);
    legacy.sharedMethods = leadingWords<REALmethodDefinitionLegacy>(record.sharedMethods, record.sharedMethodCount);
    if (isExhausted(legacy.properties, record.properties, record.propertyCount) ||
        isExhausted(legacy.methods, record.methods, record.methodCount) ||
        isExhausted(legacy.events, record.events, record.eventCount) ||
        isExhausted(legacy.constants, record.constants, record.constantCount) ||
        isExhausted(legacy.sharedProperties, record.sharedProperties, record.sharedPropertyCount) ||
        isExhausted(legacy.sharedMethods, record.sharedMethods, record.sharedMethodCount)) {
        std::free(legacy.properties);
        std::free(legacy.methods);
        std::free(legacy.events);
        std::free(legacy.constants);
        std::free(legacy.sharedProperties);
        std::free(legacy.sharedMethods);
        return false;
    }
    std::memcpy(&record, &legacy, sizeof legacy);
    return true;
}

} // namespace

REALpropertyLegacy* FixProperties(const REALproperty* properties, REALword count) {
    return leadingWords<REALpropertyLegacy>(properties, count);
}

void MyREALRegisterClass(REALclassDefinition* record) {
    const std::int32_t version = CurrentREALControlVersion;
    if (version <= REALcontrolVersionLegacy && !rewriteInLegacyLayout(*record)) return;
    record->instanceDataSize = (record->instanceDataSize + 15) / 16 * 16;
    record->version = version;
    REALRegisterClass(record);
}

} // namespace chroma
