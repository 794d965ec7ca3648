// All that the host asks of the platform: autorelease pools around its statements, text conversion, the keys of a list,
// and what a registry holds.
#pragma once

#include "model/strings.h"

#include <optional>
#include <vector>

namespace host::platform {

// What is autoreleased between construction and destruction is released at its end. Pools nest.
class AutoreleasePool {
public:
    AutoreleasePool();
    ~AutoreleasePool();
    AutoreleasePool(const AutoreleasePool&) = delete;
    AutoreleasePool& operator=(const AutoreleasePool&) = delete;

private:
    void* pool_;
};

// A CFString that the caller releases; null when the bytes are invalid in the encoding or the encoding is not known.
const void* newCFString(std::string_view bytes, Encoding encoding);
void releaseCFString(const void* string);

// Returns the text of a CFString, or nullopt when the encoding does not have one of its characters.
std::optional<std::string> textOf(const void* string, Encoding encoding);

// The keys of an NSColorList, in order, as UTF-8; none for null. Wants an autorelease pool.
std::vector<std::string> keysOfColorList(void* list);

// The entries of the registry of native objects that a sibling plugin keeps; 0 without one.
std::size_t registeredObjectCount();

// The file of the platform's library; empty when it cannot be told.
std::string library();

} // namespace host::platform
