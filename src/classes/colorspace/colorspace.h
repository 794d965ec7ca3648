// NSColorSpaceZRX, the host class around one NSColorSpace: the functions that its record binds.
//
// `object` is an NSColorSpaceZRX object or null; null or an empty one gives nil, 0 or the empty string. Objects and arrays
// that a function answers are new references, which the caller owns. An NSException becomes a host exception and gives the
// null result.
#pragma once

#include "chromabridge/host_abi.h"

namespace chroma::colorspace {

extern REALclassDefinition NSColorSpaceClass;

void NSColorSpaceConstructor(REALobjectStruct* object);
void NSColorSpaceDestructor(REALobjectStruct* object);

// Initialisers fill an empty object, which stays empty when the platform makes no space; one that holds a space keeps it and
// raises an "UnsupportedOperationException". A null or empty block and a handle of 0 reach the platform as nil and null.
void initWithICCProfileData(REALobjectStruct* object, REALmemoryBlockStruct* profile);
void initWithColorSyncProfile(REALobjectStruct* object, HostInteger profile);
void initWithCGColorSpace(REALobjectStruct* object, HostInteger space);

// A new memory block with a copy of the profile; null when the space has none.
REALmemoryBlockStruct* ICCProfileData(REALobjectStruct* object);

// Platform handles, borrowed from the space.
HostInteger colorSyncProfile(REALobjectStruct* object);
HostInteger CGColorSpace(REALobjectStruct* object);

REALstringStruct* localizedName(REALobjectStruct* object, REALword parameter);
REALstringStruct* colorSpaceName(REALobjectStruct* object, REALword parameter);
REALstringStruct* description(REALobjectStruct* object, REALword parameter);
HostInteger colorSpaceModel(REALobjectStruct* object, REALword parameter);
HostInteger numberOfColorComponents(REALobjectStruct* object, REALword parameter);

// Shared methods. What cannot be read, found or accepted is nil, without an exception of the library's own.
REALobjectStruct* ColorSpaceWithICCProfileFile(REALfolderItemStruct* file);
REALobjectStruct* ColorSpaceWithICCProfileData(REALmemoryBlockStruct* profile);
REALobjectStruct* ColorSpaceWithColorSyncProfile(HostInteger handle);
REALobjectStruct* ColorSpaceWithCGColorSpace(HostInteger handle);
REALobjectStruct* colorSpaceForColorSpaceName(REALstringStruct* name);

// An array of the platform's spaces of a model, empty for a model that it does not know.
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

} // namespace chroma::colorspace
