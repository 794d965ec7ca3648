// A host process with the plugin and its sibling loaded, and the values that the cases use.
#pragma once

#include "platform/objc.h"

#include "values/values.h"

#include <cstddef>
#include <string>
#include <vector>

namespace bench {

// Returns how often the plugins have called the resolver.
std::size_t resolverCalls();

// Loads both plugins, as they were built, into the reference host. Call it once per process.
void loadPlugins();

// Returns the function that a member of a plugin's class is bound to: the method with exactly that declaration, or the
// property of that name. Throws std::runtime_error if the class has no such member.
REALfunction boundFunction(const std::string& className, const std::string& declaration);

template <class Function>
Function bound(const std::string& className, const std::string& declaration) {
    return reinterpret_cast<Function>(boundFunction(className, declaration));
}

// Returns the colour that a host object wraps. The caller borrows it.
chroma::id nativeColor(const host::Object* object);

// Host objects of distinct colours, which stay alive until the process ends.
class LiveColors {
public:
    // Creates objects until there are `count`. Never destroys any.
    void growTo(std::size_t count);

private:
    std::vector<host::Object*> objects_;
};

} // namespace bench
