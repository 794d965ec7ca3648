#include "classes/color_list/color_list.h"

#include "bridge/frame.h"
#include "bridge/strings.h"
#include "platform/selectors.h"
#include "runtime/host_values.h"
#include "runtime/native_object.h"

#include <algorithm>
#include <limits>

namespace chroma::color_list {
namespace {

// The offset of the list in an object, as the host reported it when it registered the class.
std::ptrdiff_t listOffset() {
    const REALword reported = NSColorListClass.instanceDataOffset;
    return reported > 0 ? reported : std::ptrdiff_t{REALinstanceDataOffset};
}

id listOf(const REALobjectStruct* object) { return nativeObject(object, listOffset()); }

// Inside the frame: calls `use` with the list if the object holds one.
template <class Use>
void withList(REALobjectStruct* object, Use use) {
    guarded([&] {
        if (const id list = listOf(object)) use(list);
    });
}

// The body of every loader: releases the held list, then stores the list that `load` returns, if any.
template <class Load>
HostBoolean loaded(REALobjectStruct* object, Load load) {
    if (!object) return false;
    bool holds = false;
    guarded([&] {
        dropNative(object, listOffset());
        load();
        holds = listOf(object) != nullptr;
    });
    return holds;
}

// Passes a negative index as the platform's unsigned one. If the platform's index is narrower, a value that does not fit
// becomes its maximum.
ListIndex listIndex(HostInteger index) {
    constexpr NSUInteger greatest = std::numeric_limits<ListIndex>::max();
    return static_cast<ListIndex>(std::min(static_cast<NSUInteger>(index), greatest));
}

id newList() { return sel::alloc(cls::NSColorList); }

} // namespace

void NSColorListConstructor(REALobjectStruct*) { constructed(); }

void NSColorListDestructor(REALobjectStruct* object) {
    guarded([&] { dropNative(object, listOffset()); });
}

HostBoolean Create1(REALobjectStruct* object, REALstringStruct* name) {
    return loaded(object, [&] {
        const id listName = autoreleasedString(name);
        holdNative(object, sel::initWithName_(newList(), listName), Entry::added, listOffset());
    });
}

HostBoolean Create2(REALobjectStruct* object, REALstringStruct* name, REALstringStruct* path) {
    return loaded(object, [&] {
        const id listName = autoreleasedString(name);
        const id file = autoreleasedString(path);
        holdNative(object, sel::initWithName_fromFile_(newList(), listName, file), Entry::added, listOffset());
    });
}

// The list may be the platform's own and shared by all who load it, so it is not entered in the registry.
HostBoolean Load(REALobjectStruct* object, REALstringStruct* name) {
    return loaded(object, [&] {
        const id list = sel::colorListNamed_(cls::NSColorList, autoreleasedString(name));
        holdNative(object, sel::retain(list), Entry::none, listOffset());
    });
}

void insertColor(REALobjectStruct* object, REALobjectStruct* color, REALstringStruct* key, HostInteger index) {
    withList(object, [&](id list) {
        sel::insertColor_key_atIndex_(list, nativeObject(color), autoreleasedString(key), listIndex(index));
    });
}

void setColor(REALobjectStruct* object, REALobjectStruct* color, REALstringStruct* key) {
    withList(object, [&](id list) { sel::setColor_forKey_(list, nativeObject(color), autoreleasedString(key)); });
}

REALobjectStruct* colorWithKey(REALobjectStruct* object, REALstringStruct* key) {
    REALobjectStruct* result = nullptr;
    withList(object, [&](id list) { result = NewNSColorZRX(sel::colorWithKey_(list, autoreleasedString(key))); });
    return result;
}

void removeColorWithKey(REALobjectStruct* object, REALstringStruct* key) {
    withList(object, [&](id list) { sel::removeColorWithKey_(list, autoreleasedString(key)); });
}

HostBoolean writeToFile(REALobjectStruct* object, REALstringStruct* path) {
    HostBoolean written = false;
    withList(object, [&](id list) { written = sel::writeToFile_(list, autoreleasedString(path)) != 0; });
    return written;
}

void removeFile(REALobjectStruct* object) {
    guarded([&] { sel::removeFile(listOf(object)); });
}

HostBoolean isEditable(REALobjectStruct* object) {
    return guardedResult([&] { return HostBoolean{sel::isEditable(listOf(object)) != 0}; });
}

REALstringStruct* name(REALobjectStruct* object) {
    return guardedResult([&] { return NSStringRB(sel::name(listOf(object))); });
}

} // namespace chroma::color_list
