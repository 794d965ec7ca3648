// Folder items: objects of the built-in class FolderItem, each a path of the file system. Lock and unlock them as objects.
#pragma once

#include "model/objects.h"

struct REALfolderItemStruct : REALobjectStruct {};
