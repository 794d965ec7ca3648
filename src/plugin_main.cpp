// The library's exported function.
#include "classes/color/color.h"
#include "classes/color_list/color_list.h"
#include "classes/color_space/color_space.h"
#include "runtime/start.h"

extern "C" __attribute__((visibility("default"))) void REALPluginMain(REALresolver resolver) {
    chroma::startPlugin(resolver, {&chroma::color::NSColorClass, &chroma::color_list::NSColorListClass,
                                   &chroma::color_space::NSColorSpaceClass});
}
