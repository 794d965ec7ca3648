// A process of a host with the plugin and its sibling loaded, and what the cases work on.
#pragma once

#include "platform/objc.h"

#include "values/values.h"

#include <cstddef>
#include <string>
#include <vector>

namespace bench {

// How often the plugins have asked the host for an entry point.
std::size_t resolverCalls();

// Loads both plugins, as they were built, into the reference host; once per process.
void loadPlugins();

// The function behind a member of a plugin's class, the method with exactly that declaration or the property of that name.
// Throws std::runtime_error when there is none.
REALfunction boundFunction(const std::string& className, const std::string& declaration);

template <class Function>
Function bound(const std::string& className, const std::string& declaration) {
    return reinterpret_cast<Function>(boundFunction(className, declaration));
}

// The colour that a host object holds, borrowed.
chroma::id nativeColor(const host::Object* object);

// Host objects of distinct colours, alive until the process ends.
class LiveColors {
public:
    // Makes more of them until there are so many; there are never fewer.
    void growTo(std::size_t count);

private:
    std::vector<host::Object*> objects_;
};

} // namespace bench
