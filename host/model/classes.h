// The classes of the language: those of plugins and the built-in ones, all created from class records.
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
    // For "object.name(arguments) = value": (object, arguments, value), no result. Null if the method cannot be assigned
    // to.
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

// Read and write a property of an object (not null) whose class has it. The caller owns a counted value that is read; a
// value to write is borrowed. May record a pending exception. The property must have a getter or a setter, respectively.
Slot readProperty(const Property& property, Object* object);
void writeProperty(const Property& property, Object* object, Slot value);

using OverloadSet = std::vector<const Method*>;

class ClassInfo {
public:
    // Creates the class from a record and writes the record's instanceDataOffset. Skips malformed members and adds one line
    // for each to `problems`. `super` may be null.
    ClassInfo(REALclassDefinition& record, ClassInfo* super, bool builtIn, std::vector<std::string>& problems);
    // Creates a class without a name in the language, members or a record.
    ClassInfo(std::string name, std::size_t instanceSize, void (*destructor)(Object*));
    ClassInfo(const ClassInfo&) = delete;
    ClassInfo& operator=(const ClassInfo&) = delete;

    const std::string& name() const { return name_; }
    ClassInfo* super() const { return super_; } // null: none
    bool isOrDescendsFrom(const ClassInfo& other) const;
    const REALclassDefinition* record() const { return record_; } // null without one
    bool isBuiltIn() const { return builtIn_; }

    // Returns the methods in declared order, without the superclass's.
    const std::vector<Method>& methods() const { return methods_; }
    const std::vector<Method>& sharedMethods() const { return sharedMethods_; }
    const std::vector<Property>& properties() const { return properties_; }
    const std::vector<Constant>& constants() const { return constants_; }

    // Look up members by name, ignoring case, in this class and then its superclasses. A superclass's overloads count
    // unless one with the same parameter types overrides them. "Constructor" is not inherited. Return an empty set or null
    // if there is none.
    OverloadSet findMethods(std::string_view name) const;
    OverloadSet findSharedMethods(std::string_view name) const;
    OverloadSet constructors() const;
    const Property* findProperty(std::string_view name) const;
    const Constant* findConstant(std::string_view name) const;

    // The size of the instance data in bytes, including the superclasses'.
    std::size_t instanceSize() const { return instanceSize_; }
    std::size_t liveObjects = 0;

private:
    friend Object* newObject(ClassInfo&);
    friend void destroyNested(Object*);

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
    // Adds a class. The record must stay readable and writable for the life of the process; this writes its
    // instanceDataOffset: 24, or the end of the superclasses' instance data. Adds one line per error to `problems`. Returns
    // null for an unusable record (no name, a name that is taken, an unknown superclass, an unknown version).
    ClassInfo* add(REALclassDefinition& record, bool builtIn = false);

    ClassInfo* find(std::string_view name) const; // null if there is no such class

    // In order of registration.
    const std::vector<std::unique_ptr<ClassInfo>>& classes() const { return classes_; }
    const std::vector<std::string>& problems() const { return problems_; }
    void report(std::string problem) { problems_.push_back(std::move(problem)); }

private:
    std::vector<std::unique_ptr<ClassInfo>> classes_;
    std::map<std::string, ClassInfo*, LessIgnoringCase> byName_;
    std::vector<std::string> problems_;
};

// The registry of this process. It contains the built-in classes once startHost (entries.h) has run.
Registry& registry();

// Returns whether an object of class `from` may be used as `to`. "Object" accepts any class; an unknown class accepts only
// itself.
bool isSubclass(std::string_view from, std::string_view to);

// Returns whether the object may be used as the class; true for null.
bool isKindOf(const Object* object, std::string_view className);

} // namespace host
