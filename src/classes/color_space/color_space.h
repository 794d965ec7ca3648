// NSColorSpaceZRX, the host class around one NSColorSpace: the functions that its class record binds.
//
// `object` is an NSColorSpaceZRX object or null. For null and for an empty object every function returns nil, 0 or the
// empty string. Returned objects and arrays are new references, which the caller owns. An NSException becomes a host
// exception and the function returns its null result.
#pragma once

#include "chromabridge/host_abi.h"

namespace chroma::color_space {

extern REALclassDefinition NSColorSpaceClass;

void NSColorSpaceConstructor(REALobjectStruct* object);
void NSColorSpaceDestructor(REALobjectStruct* object);

// The initialisers fill an empty object; it stays empty if the platform creates no space. An object that already holds a
// space keeps it and raises an "UnsupportedOperationException". A null or empty block is passed as nil, a handle of 0 as
// null.
void initWithICCProfileData(REALobjectStruct* object, REALmemoryBlockStruct* profile);
void initWithColorSyncProfile(REALobjectStruct* object, HostInteger profile);
void initWithCGColorSpace(REALobjectStruct* object, HostInteger space);

// Returns a new memory block with a copy of the profile, or null if the space has none.
REALmemoryBlockStruct* ICCProfileData(REALobjectStruct* object);

// Return platform handles, borrowed from the space.
HostInteger colorSyncProfile(REALobjectStruct* object);
HostInteger CGColorSpace(REALobjectStruct* object);

REALstringStruct* localizedName(REALobjectStruct* object, REALword parameter);
REALstringStruct* colorSpaceName(REALobjectStruct* object, REALword parameter);
REALstringStruct* description(REALobjectStruct* object, REALword parameter);
HostInteger colorSpaceModel(REALobjectStruct* object, REALword parameter);
HostInteger numberOfColorComponents(REALobjectStruct* object, REALword parameter);

// Shared methods. They return nil, without raising an exception themselves, if something cannot be read, found or accepted.
REALobjectStruct* ColorSpaceWithICCProfileFile(REALfolderItemStruct* file);
REALobjectStruct* ColorSpaceWithICCProfileData(REALmemoryBlockStruct* profile);
REALobjectStruct* ColorSpaceWithColorSyncProfile(HostInteger handle);
REALobjectStruct* ColorSpaceWithCGColorSpace(HostInteger handle);
REALobjectStruct* colorSpaceForColorSpaceName(REALstringStruct* name);

// Returns an array of the platform's spaces of a model, empty for an unknown model.
void* availableColorSpacesWithModel(HostInteger model);

#define CHROMA_NAMED_SPACES(X)                                                                                              \
    X(genericRGBColorSpace)                                                                                                 \
    X(genericGrayColorSpace)                                                                                                \
    X(genericCMYKColorSpace)                                                                                                \
    X(deviceRGBColorSpace)                                                                                                  \
    X(deviceGrayColorSpace)                                                                                                 \
    X(deviceCMYKColorSpace)                                                                                                 \
    X(sRGBColorSpace)                                                                                                       \
    X(adobeRGB1998ColorSpace)                                                                                               \
    X(genericGamma22GrayColorSpace)

#define CHROMA_DECLARE(name) REALobjectStruct* get##name();
CHROMA_NAMED_SPACES(CHROMA_DECLARE)
#undef CHROMA_DECLARE

} // namespace chroma::color_space
