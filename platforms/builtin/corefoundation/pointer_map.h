// A map of plain pointers, null included: an open-addressing hash table. Only growth of its array allocates.
#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <utility>
#include <vector>

namespace chroma::builtin {

class PointerMap {
public:
    std::size_t size() const { return count_; }

    // Returns null if the key is not in the map.
    const void* find(const void* key) const {
        if (count_ == 0) return nullptr;
        const Slot& slot = slots_[position(key)];
        return slot.key == key ? slot.value : nullptr;
    }

    // Throws std::bad_alloc without changing the map.
    void set(const void* key, const void* value) {
        if (2 * (count_ + 1) > slots_.size()) grow();
        Slot& slot = slots_[position(key)];
        if (slot.key != key) ++count_;
        slot = {key, value};
    }

    void remove(const void* key) {
        if (count_ == 0) return;
        std::size_t hole = position(key);
        if (slots_[hole].key != key) return;
        // Moves displaced entries up into the hole, so that no search ends too early.
        for (std::size_t next = after(hole); slots_[next].key != vacant(); next = after(next)) {
            const std::size_t wanted = home(slots_[next].key);
            if (((next - wanted) & mask()) < ((next - hole) & mask())) continue;
            slots_[hole] = slots_[next];
            hole = next;
        }
        slots_[hole] = Slot();
        --count_;
    }

    template <class Visit>
    void forEach(Visit visit) const {
        for (const Slot& slot : slots_)
            if (slot.key != vacant()) visit(slot.key, slot.value);
    }

private:
    // The key of vacant slots: an address that belongs to this class.
    static const void* vacant() {
        static const char mark = 0;
        return &mark;
    }

    struct Slot {
        const void* key = vacant();
        const void* value = nullptr;
    };

    static constexpr std::size_t firstSize = 16;

    std::size_t mask() const { return slots_.size() - 1; }
    std::size_t after(std::size_t index) const { return (index + 1) & mask(); }

    // Addresses of objects differ in their middle bits; the multiplication moves those to the top.
    std::size_t home(const void* key) const {
        constexpr auto factor =
            static_cast<std::uintptr_t>(0x9E3779B97F4A7C15u >> (64 - std::numeric_limits<std::uintptr_t>::digits));
        return (reinterpret_cast<std::uintptr_t>(key) * factor) >> shift_;
    }

    // Returns the slot of the key, or the slot where it would go. Half of the slots are vacant, so the search ends.
    std::size_t position(const void* key) const {
        std::size_t index = home(key);
        while (slots_[index].key != key && slots_[index].key != vacant())
            index = after(index);
        return index;
    }

    void grow() {
        PointerMap larger;
        larger.slots_.resize(slots_.empty() ? firstSize : 2 * slots_.size());
        larger.shift_ = slots_.empty() ? std::numeric_limits<std::uintptr_t>::digits - 4 : shift_ - 1;
        forEach([&](const void* key, const void* value) { larger.slots_[larger.position(key)] = {key, value}; });
        larger.count_ = count_;
        *this = std::move(larger);
    }

    std::vector<Slot> slots_; // their number is a power of two
    std::size_t count_ = 0;
    int shift_ = 0; // the shift that leaves as many bits of the product as a slot's index has
};

} // namespace chroma::builtin
