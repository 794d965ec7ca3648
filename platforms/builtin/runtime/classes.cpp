#include "runtime/classes.h"

#include "runtime/bootstrap.h"
#include "runtime/class_table.h"
#include "runtime/export.h"
#include "runtime/selectors.h"
#include "runtime/unrecognized.h"

#include <algorithm>
#include <cassert>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <mutex>
#include <new>
#include <string_view>
#include <unordered_map>

namespace chroma::builtin {
namespace {

std::mutex classLock;
ClassObject* firstClass = nullptr; // of the list of all classes and metaclasses

// Never destroyed, like the classes.
std::unordered_map<std::string_view, ClassObject*>& classesByName() {
    static auto* const classes = new std::unordered_map<std::string_view, ClassObject*>;
    return *classes;
}

std::unique_ptr<char[]> copyOf(const char* text) {
    auto copy = std::make_unique<char[]>(std::strlen(text) + 1);
    std::strcpy(copy.get(), text);
    return copy;
}

// Everything below that does not lock classLock runs under it.

MethodRecord* ownMethod(ClassObject& cls, SEL selector) {
    MethodRecord* record = cls.methods;
    while (record && record->selector != selector)
        record = record->next;
    return record;
}

MethodRecord* inheritedMethod(ClassObject* cls, SEL selector) {
    for (; cls; cls = cls->superclass)
        if (MethodRecord* const record = ownMethod(*cls, selector)) return record;
    return nullptr;
}

// Removes the selector from the dispatch tables of the class and its descendants, so the next message looks the function
// up.
void forget(const ClassObject& changed, SEL selector) {
    for (ClassObject* cls = firstClass; cls; cls = cls->next) {
        DispatchTable& table = *cls->dispatch.load(std::memory_order_relaxed);
        if (selector->index < table.size && descendsFrom(cls, &changed))
            table.slots()[selector->index].store(nullptr, std::memory_order_relaxed);
    }
}

// Returns a larger copy of the table, with null in the new slots, or null when memory is exhausted.
DispatchTable* grown(DispatchTable& present) {
    const std::uint32_t size = std::max(selectorCount(), 2 * present.size);
    void* const memory = std::calloc(1, sizeof(DispatchTable) + size * sizeof(std::atomic<IMP>));
    if (!memory) return nullptr;
    auto* const table = new (memory) DispatchTable{size, &present};
    for (std::uint32_t i = 0; i < present.size; ++i)
        table->slots()[i].store(present.slots()[i].load(std::memory_order_relaxed), std::memory_order_relaxed);
    return table;
}

// If memory is exhausted, the next message looks the function up again.
void remember(ClassObject& cls, SEL selector, IMP implementation) {
    DispatchTable* table = cls.dispatch.load(std::memory_order_relaxed);
    if (selector->index >= table->size) {
        table = grown(*table);
        if (!table) return;
        cls.dispatch.store(table, std::memory_order_release);
    }
    table->slots()[selector->index].store(implementation, std::memory_order_relaxed);
}

void addMethod(ClassObject& cls, SEL selector, IMP implementation, const char* types) {
    cls.methods = new MethodRecord{selector, implementation, types, &cls, cls.methods};
    forget(cls, selector);
}

void setImplementation(MethodRecord& record, IMP implementation) {
    record.implementation = implementation;
    forget(*record.owner, record.selector);
}

void addMethods(ClassObject& cls, const MethodEntries& methods) {
    for (std::size_t i = 0; i < methods.count; ++i) {
        const MethodEntry& entry = methods.entries[i];
        [[maybe_unused]] const char* const end = entry.selector + std::strlen(entry.selector);
        assert(static_cast<std::size_t>(std::count(entry.selector, end, ':')) == entry.arguments);
        addMethod(cls, internSelector(entry.selector), entry.implementation, entry.types);
    }
}

// Every metaclass is an instance of the root's metaclass, whose superclass is the root class. So class objects respond to
// every message that objects respond to.
ClassObject* makeMetaclass(ClassObject& cls) {
    auto* const meta = new ClassObject;
    ClassObject* const superclass = cls.superclass;
    meta->name = cls.name;
    meta->isMeta = true;
    meta->isa = superclass ? superclass->isa->isa : meta;
    meta->superclass = superclass ? superclass->isa : &cls;
    return meta;
}

void enlist(ClassObject& cls) {
    cls.isa->next = firstClass;
    cls.next = cls.isa;
    firstClass = &cls;
    classesByName().emplace(cls.name, &cls);
}

} // namespace

void registerClass(const ClassTable& table) {
    const std::lock_guard<std::mutex> lock(classLock);
    ClassObject& cls = *table.cls;
    cls.name = table.name;
    cls.superclass = table.superclass;
    cls.instanceSize = table.instanceSize;
    cls.construct = table.construct;
    cls.destroy = table.destroy;
    cls.isa = makeMetaclass(cls);
    addMethods(cls, table.methods);
    addMethods(*cls.isa, table.classMethods);
    enlist(cls);
}

void registerCategory(const Category& category) {
    const std::lock_guard<std::mutex> lock(classLock);
    addMethods(*category.cls, category.methods);
    addMethods(*category.cls->isa, category.classMethods);
}

ClassObject* findClass(const char* name) {
    if (!name) return nullptr;
    const std::lock_guard<std::mutex> lock(classLock);
    const auto& classes = classesByName();
    const auto known = classes.find(name);
    return known == classes.end() ? nullptr : known->second;
}

IMP findImplementation(ClassObject& cls, SEL selector) {
    const std::lock_guard<std::mutex> lock(classLock);
    const MethodRecord* const record = inheritedMethod(&cls, selector);
    return record ? record->implementation : nullptr;
}

IMP resolve(ClassObject& cls, SEL selector) {
    const std::lock_guard<std::mutex> lock(classLock);
    const MethodRecord* const record = inheritedMethod(&cls, selector);
    if (!record) return unrecognizedMessage();
    remember(cls, selector, record->implementation);
    return record->implementation;
}

} // namespace chroma::builtin

namespace chroma {

using builtin::asClass;
using builtin::classLock;
using builtin::ClassObject;

BUILTIN_EXPORT id objc_getClass(const char* name) {
    builtin::ensurePlatform();
    return builtin::findClass(name);
}

BUILTIN_EXPORT Class class_getSuperclass(Class cls) { return cls ? asClass(cls)->superclass : nullptr; }

BUILTIN_EXPORT Class object_getClass(id object) { return object ? object->isa : nullptr; }

BUILTIN_EXPORT const char* object_getClassName(id object) { return object ? object->isa->name : "nil"; }

BUILTIN_EXPORT Class objc_allocateClassPair(Class superclass, const char* name, std::size_t extraBytes) {
    ClassObject* const parent = asClass(superclass);
    if (!parent || objc_getClass(name)) return nullptr;
    return builtin::orNull([&]() -> Class {
        auto cls = std::make_unique<ClassObject>();
        auto copy = builtin::copyOf(name);
        cls->superclass = parent;
        cls->instanceSize = parent->instanceSize + extraBytes;
        cls->construct = parent->construct;
        cls->destroy = parent->destroy;
        cls->isa = builtin::makeMetaclass(*cls);
        cls->name = cls->isa->name = copy.release();
        return cls.release();
    });
}

BUILTIN_EXPORT void objc_registerClassPair(Class cls) {
    const std::lock_guard<std::mutex> lock(classLock);
    builtin::enlist(*asClass(cls));
}

// The function for every message to nil.
static id returnZero(id, SEL) { return nullptr; }

// The function for the null selector.
static id raiseExhausted(id, SEL) { builtin::raiseMemoryExhausted(); }

BUILTIN_EXPORT IMP objc_msg_lookup(id receiver, SEL selector) {
    if (!receiver) return reinterpret_cast<IMP>(returnZero);
    if (!selector) return reinterpret_cast<IMP>(raiseExhausted);
    return builtin::lookUp(*receiver->isa, selector);
}

BUILTIN_EXPORT Method class_getInstanceMethod(Class cls, SEL selector) {
    const std::lock_guard<std::mutex> lock(classLock);
    return builtin::inheritedMethod(asClass(cls), selector);
}

BUILTIN_EXPORT IMP class_getMethodImplementation(Class cls, SEL selector) {
    return cls ? builtin::lookUp(*asClass(cls), selector) : nullptr;
}

BUILTIN_EXPORT IMP method_getImplementation(Method method) {
    const std::lock_guard<std::mutex> lock(classLock);
    return method->implementation;
}

BUILTIN_EXPORT const char* method_getTypeEncoding(Method method) { return method->types; }

BUILTIN_EXPORT BOOL class_addMethod(Class cls, SEL selector, IMP implementation, const char* types) {
    const std::lock_guard<std::mutex> lock(classLock);
    ClassObject* const target = asClass(cls);
    if (!target || builtin::ownMethod(*target, selector)) return 0;
    return builtin::orNull([&]() -> BOOL {
        auto copy = types ? builtin::copyOf(types) : nullptr;
        builtin::addMethod(*target, selector, implementation, copy.get());
        copy.release();
        return 1;
    });
}

BUILTIN_EXPORT IMP class_replaceMethod(Class cls, SEL selector, IMP implementation, const char* types) {
    if (class_addMethod(cls, selector, implementation, types) || !cls) return nullptr;
    const std::lock_guard<std::mutex> lock(classLock);
    MethodRecord& record = *builtin::ownMethod(*asClass(cls), selector);
    const IMP previous = record.implementation;
    builtin::setImplementation(record, implementation);
    return previous;
}

} // namespace chroma
