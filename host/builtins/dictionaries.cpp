// The built-in class Dictionary: values by key, in the order in which the keys were first added.
#include "builtins/builtins.h"

#include "model/arrays.h"
#include "model/exceptions.h"
#include "model/owned.h"
#include "model/record_writing.h"
#include "model/variants.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace host {

// Functions of different classes have equal names. This namespace distinguishes them in files that are compiled together.
namespace dictionaries {
namespace {

// Key and value are stored without their variants, which would need twice the memory.
struct Entry {
    Slot keyValue;
    Slot itemValue;
    std::uint32_t hash;
    Kind keyKind; // nothing: removed
    Kind itemKind;

    Held key() const { return {keyKind, keyValue}; }
    Held item() const { return {itemKind, itemValue}; }
};

// Spreads the hashes of numbers, which are the numbers themselves.
std::uint32_t spreadHashOf(Held key) {
    constexpr std::uint64_t goldenRatio = 0x9E3779B97F4A7C15;
    return static_cast<std::uint32_t>(hashOf(key) * goldenRatio >> 32);
}

// A vector of entries in the order of their keys, and an open-addressing table of their indexes.
class Entries {
public:
    Entries() = default;
    Entries(Entries&&) = default;
    Entries& operator=(Entries&&) = default;
    ~Entries() {
        for (const Entry& entry : all_)
            release(entry);
    }

    std::size_t count() const { return count_; }

    // Returns null if the key does not exist.
    Entry* find(Held key) {
        if (places_.empty()) return nullptr;
        const std::uint32_t hash = spreadHashOf(key);
        for (std::size_t i = hash & mask(); places_[i] != 0; i = (i + 1) & mask()) {
            Entry& entry = all_[places_[i] - 1];
            if (entry.hash == hash && entry.keyKind != Kind::nothing && areEqual(entry.key(), key)) return &entry;
        }
        return nullptr;
    }

    // The key must be new.
    void add(Held key, Held item) {
        if ((all_.size() + 1) * 3 > places_.size() * 2) rebuild();
        all_.push_back({key.value, item.value, spreadHashOf(key), key.kind, item.kind});
        lock(key);
        lock(item);
        ++count_;
        enter(all_.size() - 1);
    }

    void remove(Entry& entry) {
        const Entry old = entry;
        entry.keyKind = Kind::nothing;
        --count_;
        release(old); // last: a destructor may run and use the dictionary
    }

    template <class Use>
    void forEach(Use use) const {
        for (const Entry& entry : all_)
            if (entry.keyKind != Kind::nothing) use(entry);
    }

private:
    static void release(const Entry& entry) {
        if (entry.keyKind == Kind::nothing) return;
        unlock(entry.key());
        unlock(entry.item());
    }

    std::size_t mask() const { return places_.size() - 1; }

    void enter(std::size_t index) {
        std::size_t i = all_[index].hash & mask();
        while (places_[i] != 0)
            i = (i + 1) & mask();
        places_[i] = static_cast<std::uint32_t>(index + 1);
    }

    // Drops the removed entries and reserves room for as many entries again.
    void rebuild() {
        std::size_t size = 8;
        while (size < (count_ + 1) * 2)
            size *= 2;
        std::vector<std::uint32_t> places(size);
        const auto isRemoved = [](const Entry& entry) { return entry.keyKind == Kind::nothing; };
        all_.erase(std::remove_if(all_.begin(), all_.end(), isRemoved), all_.end());
        places_ = std::move(places);
        for (std::size_t i = 0; i < all_.size(); ++i)
            enter(i);
    }

    std::vector<Entry> all_;
    std::vector<std::uint32_t> places_; // a power of two; index + 1, or 0 for none
    std::size_t count_ = 0;
};

Entries& entriesOf(const Object* dictionary) { return *static_cast<Entries*>(dictionary->own.address); }

void construct(Object* dictionary) { dictionary->own = Slot::ofAddress(new Entries); }
void destroy(Object* dictionary) { delete &entriesOf(dictionary); }

// Returns false and records an exception for not-a-number, which does not even equal itself.
bool canBeKey(Held key) {
    if (key.kind != Kind::real || !std::isnan(key.value.real)) return true;
    raise("UnsupportedOperationException", "Not-a-number (NaN) cannot be a key.");
    return false;
}

// Returns null if the key does not exist.
Entry* find(Object* dictionary, Object* key) {
    const Held wanted = heldIn(key);
    return canBeKey(wanted) ? entriesOf(dictionary).find(wanted) : nullptr;
}

void raiseMissing(Held key) {
    constexpr std::size_t maxShown = 40;
    std::string shown;
    if (key.kind == Kind::string && bytesOf(key.value.string).size() <= maxShown)
        shown = '"' + utf8Of(key.value.string) + '"';
    if (key.kind == Kind::integer) shown = std::to_string(key.value.integer);
    raise("KeyNotFoundException", "The dictionary has " + (shown.empty() ? "no such key." : "no key " + shown + "."));
}

Object* value(Object* dictionary, Object* key) {
    if (const Entry* const entry = find(dictionary, key)) return newVariant(entry->item());
    raiseMissing(heldIn(key));
    return nullptr;
}

void setValue(Object* dictionary, Object* key, Object* value) {
    const Held wanted = heldIn(key), item = heldIn(value);
    if (!canBeKey(wanted)) return;
    Entry* const entry = entriesOf(dictionary).find(wanted);
    if (!entry) return entriesOf(dictionary).add(wanted, item);
    const Held old = entry->item();
    lock(item);
    entry->itemKind = item.kind;
    entry->itemValue = item.value;
    unlock(old); // last: a destructor may run and use the dictionary
}

Object* lookup(Object* dictionary, Object* key, Object* otherwise) {
    const Entry* const entry = find(dictionary, key);
    return entry ? newVariant(entry->item()) : Owned<Object>::shared(otherwise).release();
}

HostBoolean hasKey(Object* dictionary, Object* key) { return find(dictionary, key) ? 1 : 0; }

void removeKey(Object* dictionary, Object* key) {
    if (Entry* const entry = find(dictionary, key)) return entriesOf(dictionary).remove(*entry);
    raiseMissing(heldIn(key));
}

void clear(Object* dictionary) { const Entries old = std::exchange(entriesOf(dictionary), Entries()); }

Array* listed(Object* dictionary, Held (Entry::*part)() const) {
    Owned<Array> list(newArray(Type::plain(Kind::variant)));
    entriesOf(dictionary).forEach([&](const Entry& entry) {
        const Owned<Object> boxed(newVariant((entry.*part)()));
        appendElement(list.get(), Slot::ofObject(boxed.get()));
    });
    return list.release();
}

Array* keys(Object* dictionary) { return listed(dictionary, &Entry::key); }
Array* values(Object* dictionary) { return listed(dictionary, &Entry::item); }
HostInteger count(Object* dictionary, REALword) { return static_cast<HostInteger>(entriesOf(dictionary).count()); }

REALproperty properties[] = {readOnlyProperty("Count", "Integer", count)};

REALmethodDefinition methods[] = {
    assignableMethod("Value(key as variant) as variant", value, setValue),
    method("Lookup(key as variant, otherwise as variant) as variant", lookup),
    method("HasKey(key as variant) as boolean", hasKey),
    method("Remove(key as variant)", removeKey),
    method("Clear()", clear),
    method("Keys() as variant()", keys),
    method("Values() as variant()", values),
};

} // namespace
} // namespace dictionaries

void registerDictionaryClass(Registry& registry) {
    using namespace dictionaries;
    static REALclassDefinition record = builtInRecord("Dictionary", nullptr, 16, construct, destroy);
    setRows(record.properties, record.propertyCount, properties);
    setRows(record.methods, record.methodCount, methods);
    registry.add(record, true);
}

} // namespace host
