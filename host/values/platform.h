// The platform functions that the host uses: autorelease pools around statements, text conversion, the keys of a list, and
// the size of the registry.
#pragma once

#include "values/strings.h"

#include <optional>
#include <vector>

namespace host::platform {

// Objects autoreleased between construction and destruction are released at destruction. Pools nest.
class AutoreleasePool {
public:
    AutoreleasePool();
    ~AutoreleasePool();
    AutoreleasePool(const AutoreleasePool&) = delete;
    AutoreleasePool& operator=(const AutoreleasePool&) = delete;

private:
    void* pool_;
};

// Returns a CFString that the caller releases, or null if the bytes are invalid in the encoding or the encoding is unknown.
const void* newCFString(std::string_view bytes, Encoding encoding);
void releaseCFString(const void* string);

// Returns the text of a CFString, or nullopt if the encoding does not have one of its characters.
std::optional<std::string> textOf(const void* string, Encoding encoding);

// Returns the keys of an NSColorList in order, as UTF-8; none for null. Requires an autorelease pool.
std::vector<std::string> keysOfColorList(void* list);

// Returns the number of entries in the sibling plugin's registry of native objects; 0 without a sibling.
std::size_t registeredObjectCount();

// Returns the path of the platform's library, or "" if it is unknown.
std::string library();

} // namespace host::platform
