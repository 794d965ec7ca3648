#include "probe/host.h"

#include <cstdint>

namespace probe {

namespace {

struct Entries {
    RuntimeArrayCreateProc create;
    RuntimeUBoundProc upperBound;
    PluginDoubleArrayInsertProc doubleInserter;
    PluginObjectArrayInsertProc objectInserter;
    PluginDoubleArrayGetProc getter;
    REALUnlockObjectProc unlock;

    void drop(void* array) const {
        if (array && unlock) unlock(static_cast<REALobjectStruct*>(array));
    }
};

std::string bound(const Entries& entries, void* array) { return std::to_string(entries.upperBound(array)); }

void askCreation(const Entries& entries, Report& report) {
    for (const std::int32_t type : {REALarrayOfDoubles, REALarrayOfObjects}) {
        const std::string of = type == REALarrayOfDoubles ? "doubles" : "objects";
        for (const std::int32_t upperBound : {-1, 2}) {
            void* const array = entries.create(type, upperBound);
            if (!array) {
                report.complain("answers null for " + of + " with upper bound " + std::to_string(upperBound));
                continue;
            }
            if (entries.upperBound)
                report.expect(entries.upperBound(array) == upperBound, "an array of " + of + " with upper bound " +
                                                                           std::to_string(upperBound) + " has " +
                                                                           bound(entries, array));
            entries.drop(array);
        }
    }
}

// 1, 2 and 3, each at the first index past the end.
void* filled(const Entries& entries, Report& report) {
    void* const array = entries.create(REALarrayOfDoubles, -1);
    const REALarrayInsertDoubleProc insert = array ? entries.doubleInserter(array) : nullptr;
    if (!insert) {
        report.complain("answers no procedure for an array of doubles");
        entries.drop(array);
        return nullptr;
    }
    for (std::int32_t i = 0; i < 3; ++i)
        insert(array, i, i + 1.0);
    return array;
}

void askInsertion(const Host& host, const Entries& entries) {
    void* const array = filled(entries, host.report);
    if (!array) return;
    if (entries.upperBound)
        host.report.expect(entries.upperBound(array) == 2,
                           "three doubles inserted, the upper bound is " + bound(entries, array));
    const REALarrayGetDoubleProc get = entries.getter ? entries.getter(array) : nullptr;
    for (std::int32_t i = 0; get && i < 3; ++i)
        host.report.expect(get(array, i) == i + 1.0,
                           "element " + std::to_string(i) + " of 1, 2, 3 is " + std::to_string(get(array, i)));
    const auto* const shown = fieldAt<const double*>(array, REALarrayElementsOffset);
    if (host.version < REAL_SINCE_HIDDEN_STORAGE && shown) {
        for (int i = 0; i < 3; ++i)
            host.report.expect(fieldAt<double>(shown, 8 * i) == i + 1.0, "the storage at offset 28 has other elements");
    }
    entries.drop(array);
}

void askGetting(const Host& host, const Entries& entries) {
    void* const array = entries.create(REALarrayOfDoubles, -1);
    host.report.expect(!array || entries.getter(array), "answers no procedure for an array of doubles");
    entries.drop(array);
    askInsertion(host, entries);
}

// An object array keeps a reference of its own to each element.
void askObjects(const Host& host, const Entries& entries) {
    const auto make = host.entry(entries::PluginNewInstance);
    void* const array = entries.create(REALarrayOfObjects, -1);
    const REALarrayInsertObjectProc insert = array ? entries.objectInserter(array) : nullptr;
    if (!insert) host.report.complain("answers no procedure for an array of objects");
    REALobjectStruct* const object = insert && make && entries.unlock ? make(className) : nullptr;
    if (object) {
        const int before = life().destroyed;
        insert(array, 0, object);
        entries.unlock(object);
        host.report.expect(life().destroyed == before, "the array keeps no reference to its element");
        entries.drop(array);
        host.report.expect(life().destroyed == before + 1, "the element does not end with its array");
    } else {
        entries.drop(array);
    }
}

} // namespace

void askArrays(const Host& host) {
    Entries entries = {};
    entries.unlock = host.entry(entries::REALUnlockObject);
    entries.upperBound = host.entry(entries::RuntimeUBound);
    entries.create = host.begin(entries::RuntimeArrayCreateSingleDimBoundedArray);
    if (entries.create) askCreation(entries, host.report);
    if (host.begin(entries::RuntimeUBound) && entries.create) askCreation(entries, host.report);

    // By both names, the older of which serves both kinds of arrays.
    for (const auto& entry : {entries::PluginDoubleArrayInsertProc,
                              entries::RuntimeArrayDirectGetInsertProc.as<PluginDoubleArrayInsertProc>()}) {
        entries.doubleInserter = host.begin(entry);
        if (entries.doubleInserter && entries.create) askInsertion(host, entries);
    }
    for (const auto& entry : {entries::PluginObjectArrayInsertProc,
                              entries::RuntimeArrayDirectGetInsertProc.as<PluginObjectArrayInsertProc>()}) {
        entries.objectInserter = host.begin(entry);
        if (entries.objectInserter && entries.create) askObjects(host, entries);
    }
    if (!entries.doubleInserter) entries.doubleInserter = host.entry(entries::PluginDoubleArrayInsertProc);
    for (const auto& entry : {entries::PluginDoubleArrayGetProc, entries::RuntimeArrayDirectGetGetProc}) {
        entries.getter = host.begin(entry);
        if (entries.getter && entries.create && entries.doubleInserter) askGetting(host, entries);
    }
}

void askBlocks(const Host& host) {
    Report& report = host.report;
    const auto unlock = host.entry(entries::REALUnlockObject);
    const auto lock = life().wasHeld ? host.entry(entries::REALLockObject) : nullptr;
    const auto make = host.begin(entries::newMemoryBlock);
    REALmemoryBlockStruct* const block = make ? make(16) : nullptr;
    auto* const object = reinterpret_cast<REALobjectStruct*>(block);
    if (make) {
        report.expect(block, "answers null for 16 bytes");
        report.expect(make(-1) == nullptr, "answers a block of a negative size");
    }
    if (block && lock) lock(object); // what a plugin does before it reads
    unsigned char* bytes = nullptr;
    if (block && host.version < REAL_SINCE_HIDDEN_STORAGE) {
        bytes = fieldAt<unsigned char*>(block, REALmemoryBlockBytesOffset);
        const auto size = fieldAt<std::int32_t>(block, REALmemoryBlockSizeOffset);
        report.expect(bytes && size == 16, "does not show 16 bytes at the offsets of the contract");
    }
    const auto getBytes = host.begin(entries::memoryBlockGetPtr, true);
    if (getBytes && block) {
        auto* const answered = static_cast<unsigned char*>(getBytes(block));
        report.expect(answered, "answers null for a block of 16 bytes");
        report.expect(!bytes || bytes == answered, "answers other bytes than the record shows");
        bytes = answered;
    }
    const auto getSize = host.begin(entries::memoryBlockGetSize, true);
    if (getSize && block) report.expect(getSize(block) == 16, "answers " + std::to_string(getSize(block)) + " for 16 bytes");
    if (make) host.begin(entries::newMemoryBlock);
    if (bytes) {
        unsigned char none[16] = {};
        report.expect(std::memcmp(bytes, none, sizeof none) == 0, "does not zero the bytes");
        std::memset(bytes, 0x5A, sizeof none);
        report.expect(!getBytes || static_cast<unsigned char*>(getBytes(block))[15] == 0x5A, "loses what was written");
    }
    if (!block || !unlock) return;
    if (lock) unlock(object);
    unlock(object);
}

} // namespace probe
