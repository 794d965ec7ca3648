#include "model/classes.h"

#include "model/handles.h"
#include "text/characters.h"
#include "values/storage.h"

#include <algorithm>

namespace host {

namespace {

using ObjectFunction = void (*)(Object*);
ObjectFunction objectFunction(REALfunction function) { return reinterpret_cast<ObjectFunction>(function); }

// Returns the number of bytes that the standard accessor moves, or 0 for a type that it does not support.
std::size_t standardSize(const Type& type) {
    if (type.isArray) return 0;
    switch (type.kind) {
    case Kind::integer: return sizeof(HostInteger);
    case Kind::real: return sizeof(double);
    case Kind::color: return sizeof(HostColor);
    case Kind::boolean: return sizeof(HostBoolean);
    case Kind::nothing:
    case Kind::string:
    case Kind::object:
    case Kind::variant: break;
    }
    return 0;
}

std::size_t standardOffset(const Property& property) {
    const REALclassDefinition& record = *property.owner->record();
    return static_cast<std::size_t>(record.instanceDataOffset + property.parameter);
}

bool isHandle(const Property& property) {
    return property.getter == REALstandardAccessor && property.setter == REALstandardAccessor &&
           property.type.is(Kind::integer) && equalIgnoringCase(property.name, "Handle");
}

void checkStandardAccess(const Property& property, std::size_t dataSize) {
    const std::size_t size = standardSize(property.type);
    if (size == 0) throw std::runtime_error("the standard accessor cannot serve a " + nameOf(property.type));
    const auto offset = static_cast<std::size_t>(property.parameter);
    if (property.parameter < 0 || offset > dataSize || size > dataSize - offset)
        throw std::runtime_error("the standard accessor would access memory outside the instance data");
}

Property makeProperty(ClassInfo& owner, const REALpropertyLegacy& record, std::size_t dataSize) {
    if (!record.name || !record.type) throw std::runtime_error("no name or no type");
    if (!isName(record.name)) throw std::runtime_error("\"" + std::string(record.name) + "\" is not a name");
    Property property;
    property.owner = &owner;
    property.name = record.name;
    property.type = parseType(record.type);
    property.getter = record.getter;
    property.setter = record.setter;
    property.parameter = record.parameter;
    property.invokeGetter = Invoker::getter(property.type);
    property.invokeSetter = Invoker::setter(property.type);
    if (record.getter == REALstandardAccessor || record.setter == REALstandardAccessor)
        checkStandardAccess(property, dataSize);
    return property;
}

Method makeMethod(ClassInfo& owner, const REALmethodDefinitionLegacy& record, bool shared, std::size_t index) {
    if (!record.declaration) throw std::runtime_error("no declaration");
    if (!record.function) throw std::runtime_error("no function");
    Method method = {};
    method.owner = &owner;
    method.declaration = record.declaration;
    method.signature = parseSignature(record.declaration);
    method.function = record.function;
    method.invoke = Invoker(method.signature, !shared);
    method.shared = shared;
    method.index = index;
    if (!method.invoke) throw std::runtime_error("more than " + std::to_string(maximumArguments) + " arguments");
    if (record.setter) {
        Signature assignment = method.signature;
        assignment.parameters.push_back({"value", assignment.result, false, false, {}});
        assignment.result = Type();
        method.setter = record.setter;
        method.invokeSetter = Invoker(assignment, !shared);
        if (!method.invokeSetter) throw std::runtime_error("too many arguments for its setter");
    }
    return method;
}

// Creates the members one by one; reports and skips those that cannot be created.
template <class Member, class Make>
void makeMembers(std::vector<Member>& members, std::size_t count, const std::string& table,
                 std::vector<std::string>& problems, Make make) {
    members.reserve(count);
    for (std::size_t i = 0; i < count; ++i) {
        try {
            members.push_back(make(i));
        } catch (const std::runtime_error& error) {
            problems.push_back(table + " " + std::to_string(i) + ": " + error.what());
        }
    }
}

template <class Member, class NameOf>
const Member* findNamed(const std::vector<Member>& members, std::string_view name, NameOf nameOfMember) {
    const auto found = std::find_if(members.begin(), members.end(),
                                    [&](const Member& member) { return equalIgnoringCase(nameOfMember(member), name); });
    return found == members.end() ? nullptr : &*found;
}

bool haveSameParameters(const Method& a, const Method& b) {
    return std::equal(a.signature.parameters.begin(), a.signature.parameters.end(), b.signature.parameters.begin(),
                      b.signature.parameters.end(), [](const Parameter& x, const Parameter& y) { return x.type == y.type; });
}

// A superclass's methods come later and are skipped if the subclass overrides them.
void appendNamed(OverloadSet& found, const ClassInfo& info, const std::vector<Method>& methods, std::string_view name) {
    for (const Method& method : methods) {
        if (!equalIgnoringCase(method.signature.name, name)) continue;
        const bool overridden = std::any_of(found.begin(), found.end(), [&](const Method* other) {
            return other->owner != &info && haveSameParameters(*other, method);
        });
        if (!overridden) found.push_back(&method);
    }
}

bool isConstructor(std::string_view name) { return equalIgnoringCase(name, "Constructor"); }

} // namespace

// ---- Properties

Slot readProperty(const Property& property, Object* object) {
    Slot result;
    if (property.getter == REALstandardAccessor) {
        unsigned char* const place = addressAt(object, standardOffset(property));
        if (isHandle(property)) return Slot::ofInteger(readHandle(object, place));
        std::memcpy(&result, place, standardSize(property.type));
    } else {
        const Slot arguments[] = {Slot::ofObject(object), Slot::ofInteger(property.parameter)};
        property.invokeGetter(property.getter, arguments, &result);
    }
    return result;
}

void writeProperty(const Property& property, Object* object, Slot value) {
    if (property.setter == REALstandardAccessor) {
        unsigned char* const place = addressAt(object, standardOffset(property));
        if (isHandle(property)) return writeHandle(object, *property.owner, place, value.integer);
        std::memcpy(place, &value, standardSize(property.type));
    } else {
        Slot none;
        const Slot arguments[] = {Slot::ofObject(object), Slot::ofInteger(property.parameter), value};
        property.invokeSetter(property.setter, arguments, &none);
    }
}

// ---- Classes

ClassInfo::ClassInfo(REALclassDefinition& record, ClassInfo* super, bool builtIn, std::vector<std::string>& problems)
    : name_(record.name), super_(super), record_(&record), builtIn_(builtIn) {
    const std::size_t ownSize = record.instanceDataSize > 0 ? static_cast<std::size_t>(record.instanceDataSize) : 0;
    const std::size_t superSize = super ? super->instanceSize() : 0;
    instanceSize_ = superSize + ownSize;
    record.instanceDataOffset = static_cast<REALword>(REALinstanceDataOffset + superSize);
    constructor_ = objectFunction(record.constructor);
    destructor_ = objectFunction(record.destructor);

    const RecordView view(record);
    makeMembers(properties_, view.propertyCount(), name_ + ": property", problems,
                [&](std::size_t i) { return makeProperty(*this, view.property(i), ownSize); });
    makeMembers(methods_, view.methodCount(), name_ + ": method", problems,
                [&](std::size_t i) { return makeMethod(*this, view.method(i), false, i); });
    makeMembers(sharedMethods_, view.sharedMethodCount(), name_ + ": shared method", problems,
                [&](std::size_t i) { return makeMethod(*this, view.sharedMethod(i), true, i); });
    makeMembers(constants_, view.constantCount(), name_ + ": constant", problems, [&](std::size_t i) {
        const char* const declaration = view.constant(i).declaration;
        if (!declaration) throw std::runtime_error("no declaration");
        return parseConstant(declaration);
    });
}

ClassInfo::ClassInfo(std::string name, std::size_t instanceSize, void (*destructor)(Object*))
    : name_(std::move(name)), builtIn_(true), instanceSize_(instanceSize), destructor_(destructor) {}

void ClassInfo::construct(Object* object) {
    if (super_) super_->construct(object);
    if (constructor_) constructor_(object);
}

void ClassInfo::destruct(Object* object) {
    if (destructor_) destructor_(object);
    if (super_) super_->destruct(object);
}

bool ClassInfo::isOrDescendsFrom(const ClassInfo& other) const {
    for (const ClassInfo* info = this; info; info = info->super_)
        if (info == &other) return true;
    return false;
}

OverloadSet ClassInfo::findMethods(std::string_view name) const {
    OverloadSet found;
    for (const ClassInfo* info = this; info; info = info->super_) {
        appendNamed(found, *info, info->methods_, name);
        if (isConstructor(name)) break;
    }
    return found;
}

OverloadSet ClassInfo::findSharedMethods(std::string_view name) const {
    OverloadSet found;
    for (const ClassInfo* info = this; info; info = info->super_)
        appendNamed(found, *info, info->sharedMethods_, name);
    return found;
}

OverloadSet ClassInfo::constructors() const { return findMethods("Constructor"); }

const Property* ClassInfo::findProperty(std::string_view name) const {
    for (const ClassInfo* info = this; info; info = info->super_) {
        const Property* const found =
            findNamed(info->properties_, name, [](const Property& p) { return std::string_view(p.name); });
        if (found) return found;
    }
    return nullptr;
}

const Constant* ClassInfo::findConstant(std::string_view name) const {
    for (const ClassInfo* info = this; info; info = info->super_) {
        const Constant* const found =
            findNamed(info->constants_, name, [](const Constant& c) { return std::string_view(c.name); });
        if (found) return found;
    }
    return nullptr;
}

// ---- The registry

ClassInfo* Registry::add(REALclassDefinition& record, bool builtIn) {
    const std::string name = record.name ? record.name : "";
    if (record.version < 9 || record.version > 13) {
        report("a class record of the unknown version " + std::to_string(record.version));
        return nullptr;
    }
    if (name.empty()) {
        report("a class record without a name");
        return nullptr;
    }
    if (!isName(name)) {
        report("a class record whose name is \"" + name + "\", which is not a name");
        return nullptr;
    }
    if (find(name) || typeNamed(name).kind != Kind::object || equalIgnoringCase(name, "Object")) {
        report(name + ": the name is taken");
        return nullptr;
    }
    ClassInfo* const super = record.superName ? find(record.superName) : nullptr;
    if (record.superName && !super) {
        report(name + ": there is no superclass " + record.superName);
        return nullptr;
    }
    if (record.instanceDataSize < 0 || record.instanceDataSize % 16 != 0) {
        report(name + ": the instance data size " + std::to_string(record.instanceDataSize) + " is not a multiple of 16");
        return nullptr;
    }
    for (const char* const members : RecordView(record).unknownMembers())
        report(name + ": this host does not support " + members);
    classes_.push_back(std::make_unique<ClassInfo>(record, super, builtIn, problems_));
    byName_.emplace(name, classes_.back().get());
    return classes_.back().get();
}

ClassInfo* Registry::find(std::string_view name) const {
    const auto found = byName_.find(name);
    return found == byName_.end() ? nullptr : found->second;
}

Registry& registry() {
    static Registry theRegistry;
    return theRegistry;
}

bool isSubclass(std::string_view from, std::string_view to) {
    if (equalIgnoringCase(from, to) || equalIgnoringCase(to, "Object")) return true;
    const ClassInfo* const subclass = registry().find(from);
    const ClassInfo* const superclass = registry().find(to);
    return subclass && superclass && subclass->isOrDescendsFrom(*superclass);
}

bool isKindOf(const Object* object, std::string_view className) {
    return !object || isSubclass(object->info->name(), className);
}

} // namespace host
