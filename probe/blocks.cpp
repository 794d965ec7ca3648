#include "probe/host.h"

namespace probe {

namespace {

constexpr std::int32_t size = 5; // not a multiple of any unit

struct Checks {
    const Host& host;
    Report& report;
    Function<NewMemoryBlockProc> make;
    Function<MemoryBlockGetPtrProc> getBytes;
    Function<MemoryBlockGetSizeProc> getSize;
    Function<REALUnlockObjectProc> unlock;

    explicit Checks(const Host& tested)
        : host(tested), report(tested.report), make(tested.entry(entries::newMemoryBlock)),
          getBytes(tested.entry(entries::memoryBlockGetPtr)), getSize(tested.entry(entries::memoryBlockGetSize)),
          unlock(tested.entry(entries::REALUnlockObject)) {}

    void drop(REALmemoryBlockStruct* block) const {
        if (block && unlock) unlock(reinterpret_cast<REALobjectStruct*>(block));
    }

    void expectSize(REALmemoryBlockStruct* block, const std::string& verb) const {
        const std::int32_t found = getSize(block);
        report.expect(found == size, verb + " " + std::to_string(found) + " bytes instead of 5");
    }

    bool showsStorage() const { return host.version < REAL_SINCE_HIDDEN_STORAGE; }
    unsigned char* shownBytes(REALmemoryBlockStruct* block) const {
        return fieldAt<unsigned char*>(block, REALmemoryBlockBytesOffset);
    }
    unsigned char* bytesOf(REALmemoryBlockStruct* block) const {
        if (showsStorage()) return shownBytes(block);
        return getBytes ? static_cast<unsigned char*>(getBytes(block)) : nullptr;
    }

    void checkCreation() const {
        report.expect(make(-1) == nullptr, "returns a block of a negative size");
        REALmemoryBlockStruct* const block = make(size);
        if (!block) return report.complain("returns null for 5 bytes");
        if (getSize) expectSize(block, "creates");
        if (showsStorage()) {
            const auto shown = fieldAt<std::int32_t>(block, REALmemoryBlockSizeOffset);
            report.expect(shown == size, "shows the size " + std::to_string(shown) + " for 5 bytes at offset 24");
            report.expect(shownBytes(block), "shows no bytes at offset 28");
        }
        if (unsigned char* const bytes = bytesOf(block)) {
            const unsigned char none[size] = {};
            report.expect(std::memcmp(bytes, none, size) == 0, "does not zero the bytes");
            std::memset(bytes, 0x5A, size);
            report.expect(bytesOf(block)[size - 1] == 0x5A, "loses written bytes");
        }
        drop(block);
    }

    void checkDestruction() const {
        const Growth growth;
        REALmemoryBlockStruct* const block = make(largeSize);
        unsigned char* const bytes = block ? bytesOf(block) : nullptr;
        if (bytes) std::memset(bytes, 0x5A, largeSize);
        const bool isVisible = bytes && growth.hasLargeValue();
        drop(block);
        if (isVisible && unlock)
            report.expect(!growth.hasLargeValue(), "the block is not freed when its last reference is dropped");
    }
};

} // namespace

void checkBlocks(const Host& host) {
    const Checks checks(host);
    if (host.begin(entries::newMemoryBlock)) {
        checks.checkCreation();
        checks.checkDestruction();
    }
    REALmemoryBlockStruct* const block = checks.make ? checks.make(size) : nullptr;
    const auto getBytes = host.begin(entries::memoryBlockGetPtr);
    host.require(entries::memoryBlockGetPtr, entries::newMemoryBlock);
    if (getBytes && block) {
        const void* const found = getBytes(block);
        host.report.expect(found, "returns null for a block of 5 bytes");
        if (checks.showsStorage())
            host.report.expect(found == checks.shownBytes(block), "returns other bytes than the block shows at offset 28");
    }
    const auto getSize = host.begin(entries::memoryBlockGetSize);
    host.require(entries::memoryBlockGetSize, entries::newMemoryBlock);
    if (getSize && block) checks.expectSize(block, "returns");
    checks.drop(block);
}

} // namespace probe
