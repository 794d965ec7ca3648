// The classes that the language sees: those of plugins and the built-in ones, all made from class records.
#pragma once

#include "model/calls.h"
#include "model/objects.h"
#include "model/records.h"

#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace host {

struct Method {
    ClassInfo* owner;
    const char* declaration; // as in the record
    Signature signature;
    REALfunction function;
    Invoker invoke;
    // For "object.name(arguments) = value": (object, arguments, value) -> nothing. Null when it cannot be assigned to.
    REALfunction setter;
    Invoker invokeSetter;
    bool shared;       // called on the class: no receiver
    std::size_t index; // in its table of the record
};

struct Property {
    ClassInfo* owner;
    std::string name;
    Type type;
    REALfunction getter; // null: write-only
    REALfunction setter; // null: read-only
    REALword parameter;
    Invoker invokeGetter;
    Invoker invokeSetter;
};

// Reads or writes a property of an object (not null) whose class has it. A counted value that is read belongs to the caller;
// one that is written is borrowed. May record a pending exception. The property must have a getter, or a setter.
Slot readProperty(const Property& property, Object* object);
void writeProperty(const Property& property, Object* object, Slot value);

using OverloadSet = std::vector<const Method*>;

class ClassInfo {
public:
    // From a record, whose instanceDataOffset it writes; malformed members are left out and reported to `problems`, one line
    // each. `super` may be null.
    ClassInfo(REALclassDefinition& record, ClassInfo* super, bool builtIn, std::vector<std::string>& problems);
    // A class without a name in the language, members or a record.
    ClassInfo(std::string name, std::size_t instanceSize, void (*destructor)(Object*));
    ClassInfo(const ClassInfo&) = delete;
    ClassInfo& operator=(const ClassInfo&) = delete;

    const std::string& name() const { return name_; }
    ClassInfo* super() const { return super_; } // null: none
    bool isOrDescendsFrom(const ClassInfo& other) const;
    const REALclassDefinition* record() const { return record_; } // null without one
    bool isBuiltIn() const { return builtIn_; }

    // In declared order, without those of the superclass.
    const std::vector<Method>& methods() const { return methods_; }
    const std::vector<Method>& sharedMethods() const { return sharedMethods_; }
    const std::vector<Property>& properties() const { return properties_; }
    const std::vector<Constant>& constants() const { return constants_; }

    // By name without regard to case, in this class and then its superclasses, whose overloads count unless one of the same
    // parameter types overrides them. "Constructor" is not inherited. Empty or null when there is none.
    OverloadSet findMethods(std::string_view name) const;
    OverloadSet findSharedMethods(std::string_view name) const;
    OverloadSet constructors() const;
    const Property* findProperty(std::string_view name) const;
    const Constant* findConstant(std::string_view name) const;

    // Bytes of instance data, those of the superclasses included.
    std::size_t instanceSize() const { return instanceSize_; }
    std::size_t liveObjects = 0;

private:
    friend Object* newObject(ClassInfo&);
    friend void destroyObject(Object*);

    void construct(Object* object);
    void destruct(Object* object);

    std::string name_;
    ClassInfo* super_ = nullptr;
    REALclassDefinition* record_ = nullptr;
    bool builtIn_ = false;
    std::size_t instanceSize_ = 0;
    void (*constructor_)(Object*) = nullptr;
    void (*destructor_)(Object*) = nullptr;
    std::vector<Method> methods_;
    std::vector<Method> sharedMethods_;
    std::vector<Property> properties_;
    std::vector<Constant> constants_;
};

class Registry {
public:
    // Keeps the record, which stays readable and writable for the life of the process, and writes its instanceDataOffset:
    // 24, or behind the instance data of the superclasses. What is wrong with a record is added to `problems`, one line
    // each; a record that cannot be used at all (no name, a name taken, an unknown superclass, an unknown version) gives
    // null.
    ClassInfo* add(REALclassDefinition& record, bool builtIn = false);

    ClassInfo* find(std::string_view name) const; // null: no such class

    // In order of registration.
    const std::vector<std::unique_ptr<ClassInfo>>& classes() const { return classes_; }
    const std::vector<std::string>& problems() const { return problems_; }
    void report(std::string problem) { problems_.push_back(std::move(problem)); }

private:
    std::vector<std::unique_ptr<ClassInfo>> classes_;
    std::map<std::string, ClassInfo*, LessIgnoringCase> byName_;
    std::vector<std::string> problems_;
};

// The one registry of this process. The built-in classes are in it once startHost (entries.h) has run.
Registry& registry();

// Whether an object of class `from` may stand where `to` is asked for. "Object" takes any; an unknown class only itself.
bool isSubclass(std::string_view from, std::string_view to);

// Whether the object may stand where the class is asked for; null may.
bool isKindOf(const Object* object, std::string_view className);

} // namespace host
