// The built-in class Dictionary: values by keys, in the order in which the keys were first entered.
#include "model/builtins.h"

#include "model/arrays.h"
#include "model/exceptions.h"
#include "model/owned.h"
#include "model/variants.h"

#include <cmath>
#include <cstdint>
#include <list>
#include <unordered_map>
#include <variant>

namespace host {

// The functions of classes are named alike: the files that are compiled together tell them apart by this.
namespace dictionaries {
namespace {

// Keys are the same when `=` finds them equal: numbers by their value, text by its characters, objects by identity.
using Key = std::variant<const Object*, bool, HostInteger, double, std::string>;

struct Pair {
    Owned<Object> key;
    Owned<Object> value;
};

struct Pairs {
    std::list<std::pair<Key, Pair>> inOrder;
    std::unordered_map<Key, std::list<std::pair<Key, Pair>>::iterator> byKey;
};

Pairs& pairsOf(const Object* dictionary) { return *static_cast<Pairs*>(dictionary->own.address); }

void construct(Object* dictionary) { dictionary->own = Slot::ofAddress(new Pairs); }
void destroy(Object* dictionary) { delete &pairsOf(dictionary); }

Key numberKey(double value) {
    const HostInteger whole = truncated(value);
    if (static_cast<double>(whole) == value) return whole;
    return value;
}

// None, with an exception recorded, for what equals nothing, not even itself.
std::optional<Key> keyOf(Object* variant) {
    const Type held = typeInVariant(variant);
    Slot value;
    if (held.isObjectReference()) return Key(variant);
    readVariant(variant, held, value);
    switch (held.kind) {
    case Kind::boolean: return Key(value.boolean != 0);
    case Kind::integer: return Key(value.integer);
    case Kind::color: return Key(static_cast<HostInteger>(std::uintptr_t{value.color}));
    case Kind::string: return Key(utf8Of(value.string));
    default: break;
    }
    if (!std::isnan(value.real)) return numberKey(value.real);
    raise("UnsupportedOperationException", "What is not a number cannot be a key.");
    return std::nullopt;
}

// Null when there is no such key.
Pair* find(Object* dictionary, Object* key) {
    const std::optional<Key> wanted = keyOf(key);
    if (!wanted) return nullptr;
    const auto found = pairsOf(dictionary).byKey.find(*wanted);
    return found == pairsOf(dictionary).byKey.end() ? nullptr : &found->second->second;
}

void raiseMissing(Object* key) {
    constexpr std::size_t maxShown = 40;
    std::string shown;
    if (const std::optional<Key> missing = keyOf(key)) {
        if (const auto* const text = std::get_if<std::string>(&*missing); text && text->size() <= maxShown)
            shown = '"' + *text + '"';
        if (typeInVariant(key).is(Kind::integer)) shown = std::to_string(std::get<HostInteger>(*missing));
    }
    raise("KeyNotFoundException", "The dictionary has " + (shown.empty() ? "no such key." : "no key " + shown + "."));
}

Object* value(Object* dictionary, Object* key) {
    if (const Pair* const entry = find(dictionary, key)) return Owned<Object>(entry->value).release();
    raiseMissing(key);
    return nullptr;
}

void setValue(Object* dictionary, Object* key, Object* value) {
    const std::optional<Key> wanted = keyOf(key);
    if (!wanted) return;
    Pairs& pairs = pairsOf(dictionary);
    if (Pair* const entry = find(dictionary, key)) {
        const Owned<Object> old = std::move(entry->value); // goes last: a destructor may run and look at the dictionary
        entry->value = Owned<Object>::shared(value);
        return;
    }
    pairs.inOrder.push_back({*wanted, {Owned<Object>::shared(key), Owned<Object>::shared(value)}});
    pairs.byKey.emplace(*wanted, std::prev(pairs.inOrder.end()));
}

Object* lookup(Object* dictionary, Object* key, Object* otherwise) {
    const Pair* const entry = find(dictionary, key);
    return Owned<Object>::shared(entry ? entry->value.get() : otherwise).release();
}

HostBoolean hasKey(Object* dictionary, Object* key) { return find(dictionary, key) ? 1 : 0; }

void removeKey(Object* dictionary, Object* key) {
    const std::optional<Key> wanted = keyOf(key);
    Pairs& pairs = pairsOf(dictionary);
    const auto found = wanted ? pairs.byKey.find(*wanted) : pairs.byKey.end();
    if (found == pairs.byKey.end()) return raiseMissing(key);
    const Pair old = std::move(found->second->second);
    pairs.inOrder.erase(found->second);
    pairs.byKey.erase(found);
}

void clear(Object* dictionary) {
    const Pairs old = std::move(pairsOf(dictionary));
    pairsOf(dictionary) = Pairs();
}

Array* listed(Object* dictionary, Owned<Object> Pair::*member) {
    Owned<Array> list(newArray(Type::plain(Kind::variant)));
    for (const auto& [key, entry] : pairsOf(dictionary).inOrder)
        appendElement(list.get(), Slot::ofObject((entry.*member).get()));
    return list.release();
}

Array* keys(Object* dictionary) { return listed(dictionary, &Pair::key); }
Array* values(Object* dictionary) { return listed(dictionary, &Pair::value); }
HostInteger count(Object* dictionary, REALword) { return static_cast<HostInteger>(pairsOf(dictionary).inOrder.size()); }

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
    record.properties = properties;
    record.propertyCount = std::size(properties);
    record.methods = methods;
    record.methodCount = std::size(methods);
    registry.add(record, true);
}

} // namespace host
