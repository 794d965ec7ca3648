// Uses colours like a program of the host language: every value comes from a member of a plugin's class.
#pragma once

#include "model/classes.h"
#include "model/owned.h"
#include "swatches/colorimetry.h"

#include <string>
#include <vector>

namespace host::swatches {

using Reference = Owned<Object>; // may be Nil

// These functions throw std::runtime_error if a class or a member is missing or the call raises a host exception.
Reference newColorList(const std::string& name, const std::string& path); // Nil: no such file, or not a colour list
Reference colorWithKey(const Reference& list, const std::string& key);    // Nil: no such key
Reference namedColor(const std::string& name);
Reference sRGBColor(const ScreenColor& color);
Reference colorInSpace(const Reference& space, const std::vector<double>& components); // alpha is the last component
Reference colorOfXYZ(const RelativeXYZ& color, double alpha);
Reference namedSpace(const std::string& name);
Reference displayP3Space();
Reference spaceOf(const Reference& color);                           // `color` must have components
Reference converted(const Reference& color, const Reference& space); // Nil: it cannot be converted
std::string textProperty(const Reference& object, const char* name);
std::vector<double> componentsOf(const Reference& color);
ScreenColor inSRGB(const Reference& color); // not clamped; transparent for a pattern, which has no components
Lab labOf(const Reference& color);          // `color` must have components; they are clamped to their space's range

// Returns the keys of a list in its order. The class has neither a member that returns them nor a Handle, so they come from
// the native list in its instance data.
std::vector<std::string> keysOf(const Reference& list);

// Returns the names of a class's shared methods without parameters that return an object of the same class, in declared
// order.
std::vector<std::string> sharedMakers(const char* className);

} // namespace host::swatches
