#include "classes/color_space/color_space.h"

#include "bridge/data.h"
#include "bridge/errors.h"
#include "bridge/frame.h"
#include "bridge/strings.h"
#include "platform/selectors.h"
#include "runtime/host_values.h"
#include "runtime/native_object.h"

namespace chroma::color_space {
namespace {

// The body of every initialiser: `make` returns a space that the caller owns, or nil.
template <class Make>
void initialise(REALobjectStruct* object, Make make, Entry entry = Entry::added) {
    if (!mayInitialise(object)) return;
    guarded([&] {
        initCocoa();
        holdNative(object, make(), entry);
    });
}

template <class Argument>
id newSpace(Message<id(Argument)>& initialiser, Argument argument) {
    return initialiser(sel::alloc(cls::NSColorSpace), argument);
}

REALstringStruct* text(REALobjectStruct* object, Message<id()>& message) {
    return guardedResult([&] { return NSStringRB(message(nativeObject(object))); });
}

HostInteger integer(REALobjectStruct* object, Message<SpaceInteger()>& message) {
    Getter<SpaceInteger> getter{nativeObject(object), message};
    guarded(getter);
    return getter.result;
}

HostInteger handle(REALobjectStruct* object, Message<const void*()>& message) {
    return guardedResult([&] { return asHandle(message(nativeObject(object))); });
}

} // namespace

void NSColorSpaceConstructor(REALobjectStruct*) { constructed(); }

void NSColorSpaceDestructor(REALobjectStruct* object) {
    guarded([&] { dropNative(object); });
}

void initWithICCProfileData(REALobjectStruct* object, REALmemoryBlockStruct* profile) {
    initialise(object, [&] { return newSpace(sel::initWithICCProfileData_, NewNSData(profile)); });
}

void initWithColorSyncProfile(REALobjectStruct* object, HostInteger profile) {
    initialise(object, [&] { return newSpace(sel::initWithColorSyncProfile_, fromHandle(profile)); });
}

// This initialiser does not enter its space in the registry: the platform may return the same space elsewhere, and there it
// gets its own host object.
void initWithCGColorSpace(REALobjectStruct* object, HostInteger space) {
    initialise(
        object, [&] { return newSpace(sel::initWithCGColorSpace_, fromHandle(space)); }, Entry::none);
}

REALmemoryBlockStruct* ICCProfileData(REALobjectStruct* object) {
    return guardedResult([&] { return NSDataRB(sel::ICCProfileData(nativeObject(object))); });
}

HostInteger colorSyncProfile(REALobjectStruct* object) { return handle(object, sel::colorSyncProfile); }
HostInteger CGColorSpace(REALobjectStruct* object) { return handle(object, sel::CGColorSpace); }

REALstringStruct* localizedName(REALobjectStruct* object, REALword) { return text(object, sel::localizedName); }
REALstringStruct* colorSpaceName(REALobjectStruct* object, REALword) { return text(object, sel::colorSpaceName); }
REALstringStruct* description(REALobjectStruct* object, REALword) { return text(object, sel::description); }

HostInteger colorSpaceModel(REALobjectStruct* object, REALword) { return integer(object, sel::colorSpaceModel); }
HostInteger numberOfColorComponents(REALobjectStruct* object, REALword) {
    return integer(object, sel::numberOfColorComponents);
}

} // namespace chroma::color_space
