// The host's own classes. They are class records like a plugin's: their functions have the same signatures, and the
// registration is the same.
#pragma once

#include "model/classes.h"

namespace host {

void registerMemoryBlockClass(Registry& registry);
void registerDictionaryClass(Registry& registry);
void registerFolderItemClass(Registry& registry); // without the property NativePath on hosts older than 2013.0

} // namespace host
