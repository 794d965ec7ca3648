// Colours as a program of the host language uses them: every value here comes from a member of a plugin's class.
#pragma once

#include "model/classes.h"
#include "model/owned.h"
#include "swatches/colorimetry.h"

#include <string>
#include <vector>

namespace host::swatches {

using Reference = Owned<Object>; // may be Nil

// These throw std::runtime_error when a class or a member is missing and when the call raises a host exception.
Reference newColorList(const std::string& name, const std::string& path); // Nil: no file, or not of a list
Reference colorWithKey(const Reference& list, const std::string& key);    // Nil: no such key
Reference namedColor(const std::string& name);
Reference sRGBColor(const ScreenColor& color);
Reference colorInSpace(const Reference& space, const std::vector<double>& components); // alpha last
Reference colorOfXYZ(const RelativeXYZ& color, double alpha);
Reference namedSpace(const std::string& name);
Reference displayP3Space();
Reference spaceOf(const Reference& color);                           // of a colour with components
Reference converted(const Reference& color, const Reference& space); // Nil: cannot be
std::string textProperty(const Reference& object, const char* name);
std::vector<double> componentsOf(const Reference& color);
ScreenColor inSRGB(const Reference& color); // not brought into range; of a pattern, which has no components: transparent
Lab labOf(const Reference& color);          // of one with components; those beyond their space's range count as at its edge

// The keys of a list in its order. The class has no member for them, so they come from the native list inside.
std::vector<std::string> keysOf(const Reference& list);

// The shared methods of a class without parameters that answer an object of that very class, in declared order.
std::vector<std::string> sharedMakers(const char* className);

} // namespace host::swatches
