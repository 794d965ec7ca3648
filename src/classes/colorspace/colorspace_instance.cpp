#include "classes/colorspace/colorspace.h"

#include "bridge/data.h"
#include "bridge/errors.h"
#include "bridge/frame.h"
#include "bridge/strings.h"
#include "platform/selectors.h"
#include "runtime/host_values.h"
#include "runtime/native_object.h"

namespace chroma::colorspace {
namespace {

// The body of every initialiser: `make` answers a space that it owns, or nil.
template <class Make, class Hold>
void initialise(REALobjectStruct* object, Make make, Hold hold) {
    if (!mayInitialise(object)) return;
    guarded([&] {
        initCocoa();
        hold(object, make());
    });
}

id newSpace(Selector& initialiser, const void* argument) {
    return send<id>(send<id>(cls::NSColorSpace, sel::alloc), initialiser, argument);
}

REALstringStruct* text(REALobjectStruct* object, Selector& message) {
    REALstringStruct* result = nullptr;
    guarded([&] { result = NSStringRB(send<id>(nativeObject(object), message)); });
    return result;
}

HostInteger integer(REALobjectStruct* object, Selector& message) {
    Question<SpaceInteger> question{nativeObject(object), message};
    guarded(question);
    return question.answer;
}

HostInteger handle(REALobjectStruct* object, Selector& message) {
    HostInteger result = 0;
    guarded([&] { result = asHandle(send<const void*>(nativeObject(object), message)); });
    return result;
}

} // namespace

void NSColorSpaceConstructor(REALobjectStruct*) { constructed(); }

void NSColorSpaceDestructor(REALobjectStruct* object) {
    guarded([&] { dropNative(object); });
}

void initWithICCProfileData(REALobjectStruct* object, REALmemoryBlockStruct* profile) {
    initialise(
        object, [&] { return newSpace(sel::initWithICCProfileData_, NewNSData(profile)); }, holdNative);
}

void initWithColorSyncProfile(REALobjectStruct* object, HostInteger profile) {
    initialise(
        object, [&] { return newSpace(sel::initWithColorSyncProfile_, fromHandle(profile)); }, holdNative);
}

// The one initialiser whose space is not entered in the registry: a space that the platform hands out elsewhere as well gets
// a host object of its own there.
void initWithCGColorSpace(REALobjectStruct* object, HostInteger space) {
    initialise(
        object, [&] { return newSpace(sel::initWithCGColorSpace_, fromHandle(space)); }, setNativeObject);
}

REALmemoryBlockStruct* ICCProfileData(REALobjectStruct* object) {
    REALmemoryBlockStruct* result = nullptr;
    guarded([&] { result = NSDataRB(send<id>(nativeObject(object), sel::ICCProfileData)); });
    return result;
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

} // namespace chroma::colorspace
