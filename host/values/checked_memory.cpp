#include "values/checked_memory.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <deque>
#include <unordered_map>

namespace host::memory {

namespace {

constexpr std::size_t guardSize = 32, keptBlocks = 256;
constexpr unsigned char guardByte = 0xA7, releasedByte = 0xDB;

struct Block {
    unsigned char* start;
    std::size_t size;
};

bool checks = false;
Damage damage;
// Both outlive every other static object, because destructors of static objects may release host objects.
auto& living = *new std::unordered_map<const void*, std::size_t>;
auto& released = *new std::deque<Block>;

bool holdsOnly(unsigned char byte, unsigned char* start, std::size_t size) {
    return std::all_of(start, start + size, [byte](unsigned char found) { return found == byte; });
}

// Restores the bytes, so that a second call reports no damage.
void expect(unsigned char byte, unsigned char* start, std::size_t size, bool& damaged) {
    if (holdsOnly(byte, start, size)) return;
    damaged = true;
    std::memset(start, byte, size);
}

void checkLiving(void* start, std::size_t size) {
    expect(guardByte, static_cast<unsigned char*>(start) + size, guardSize, damage.beyond);
}

void checkReleased(const Block& block) { expect(releasedByte, block.start, block.size + guardSize, damage.released); }

} // namespace

void* allocate(std::size_t size) { return checks ? allocateZeroed(size) : std::malloc(size); }

void* allocateZeroed(std::size_t size) {
    void* const block = std::calloc(1, size + (checks ? guardSize : 0));
    if (!block || !checks) return block;
    std::memset(static_cast<unsigned char*>(block) + size, guardByte, guardSize);
    living.emplace(block, size);
    return block;
}

void release(void* block) {
    const auto found = checks ? living.find(block) : living.end();
    if (found == living.end()) return std::free(block);
    const Block kept = {static_cast<unsigned char*>(block), found->second};
    checkLiving(block, kept.size);
    living.erase(found);
    std::memset(kept.start, releasedByte, kept.size + guardSize);
    released.push_back(kept);
    if (released.size() <= keptBlocks) return;
    checkReleased(released.front());
    std::free(released.front().start);
    released.pop_front();
}

void beginChecking() { checks = true; }
bool isChecking() { return checks; }

bool isAlive(const void* address) { return living.find(address) != living.end(); }

Damage takeDamage() {
    for (const auto& [block, size] : living)
        checkLiving(const_cast<void*>(block), size);
    for (const Block& block : released)
        checkReleased(block);
    const Damage found = damage;
    damage = {};
    return found;
}

} // namespace host::memory
