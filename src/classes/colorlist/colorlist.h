// NSColorListZRX, the host class around one NSColorList: the functions that its record binds.
//
// `object` is an NSColorListZRX object or null; null or an object without a list gives nil, false or the empty string and
// changes nothing. The null host string and a null or empty colour reach the platform as nil. An NSException becomes a host
// exception and gives the null result.
#pragma once

#include "chromabridge/host_abi.h"

namespace chroma::colorlist {

extern REALclassDefinition NSColorListClass;

void NSColorListConstructor(REALobjectStruct* object);
void NSColorListDestructor(REALobjectStruct* object);

// Loaders drop the list that the object holds before they ask for another; they answer whether the object then holds one.
HostBoolean Create1(REALobjectStruct* object, REALstringStruct* name);
HostBoolean Create2(REALobjectStruct* object, REALstringStruct* name, REALstringStruct* path);
HostBoolean Load(REALobjectStruct* object, REALstringStruct* name);

void insertColor(REALobjectStruct* object, REALobjectStruct* color, REALstringStruct* key, HostInteger index);
void setColor(REALobjectStruct* object, REALobjectStruct* color, REALstringStruct* key);
void removeColorWithKey(REALobjectStruct* object, REALstringStruct* key);

// A new reference to the NSColorZRX object of the colour; nil when the key is unknown.
REALobjectStruct* colorWithKey(REALobjectStruct* object, REALstringStruct* key);

// Whether the file was written.
HostBoolean writeToFile(REALobjectStruct* object, REALstringStruct* path);
void removeFile(REALobjectStruct* object);

HostBoolean isEditable(REALobjectStruct* object);
REALstringStruct* name(REALobjectStruct* object);

} // namespace chroma::colorlist
