#include "appkit/core_graphics.h"

namespace chroma::builtin {

ClassObject CGColorSpaceObject::cls;
ClassObject CGColorObject::cls;
ClassObject ProfileObject::cls;

ClassTable tableOfCGColorSpace() { return classTable<CGColorSpaceObject>("CGColorSpace", &NSObject::cls, {}); }

ClassTable tableOfCGColor() { return classTable<CGColorObject>("CGColor", &NSObject::cls, {}); }

ClassTable tableOfColorSyncProfile() { return classTable<ProfileObject>("ColorSyncProfile", &NSObject::cls, {}); }

} // namespace chroma::builtin
