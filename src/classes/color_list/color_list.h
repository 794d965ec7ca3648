// NSColorListZRX, the host class around one NSColorList: the functions that its class record binds.
//
// `object` is an NSColorListZRX object or null. For null and for an object without a list every function returns nil, false
// or the empty string and changes nothing. The null host string and a null or empty colour are passed as nil. An
// NSException becomes a host exception and the function returns its null result.
#pragma once

#include "chromabridge/host_abi.h"

namespace chroma::color_list {

extern REALclassDefinition NSColorListClass;

void NSColorListConstructor(REALobjectStruct* object);
void NSColorListDestructor(REALobjectStruct* object);

// The loaders release the object's list before they create or look up another. They return whether the object then holds a
// list.
HostBoolean Create1(REALobjectStruct* object, REALstringStruct* name);
HostBoolean Create2(REALobjectStruct* object, REALstringStruct* name, REALstringStruct* path);
HostBoolean Load(REALobjectStruct* object, REALstringStruct* name);

void insertColor(REALobjectStruct* object, REALobjectStruct* color, REALstringStruct* key, HostInteger index);
void setColor(REALobjectStruct* object, REALobjectStruct* color, REALstringStruct* key);
void removeColorWithKey(REALobjectStruct* object, REALstringStruct* key);

// Returns a new reference to the NSColorZRX object of the colour, or nil if the key is unknown.
REALobjectStruct* colorWithKey(REALobjectStruct* object, REALstringStruct* key);

// Returns whether the file was written.
HostBoolean writeToFile(REALobjectStruct* object, REALstringStruct* path);
void removeFile(REALobjectStruct* object);

HostBoolean isEditable(REALobjectStruct* object);
REALstringStruct* name(REALobjectStruct* object);

} // namespace chroma::color_list
