// The library's exported function.
#include "classes/color/color.h"
#include "classes/colorlist/colorlist.h"
#include "classes/colorspace/colorspace.h"
#include "runtime/start.h"

extern "C" __attribute__((visibility("default"))) void REALPluginMain(REALresolver resolver) {
    chroma::startPlugin(resolver, {&chroma::color::NSColorClass, &chroma::colorlist::NSColorListClass,
                                   &chroma::colorspace::NSColorSpaceClass});
}
