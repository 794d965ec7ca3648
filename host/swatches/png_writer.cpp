#include "swatches/picture.h"
#include "swatches/png_library.h"

#include "model/plugin.h"

#include <stdexcept>

#include <dlfcn.h>
#include <unistd.h>

#ifdef __SANITIZE_ADDRESS__
// What the font library keeps for a next text it refers to by offsets, where the search for leaks sees no pointers.
extern "C" __attribute__((visibility("default"))) const char* __lsan_default_suppressions();
const char* __lsan_default_suppressions() { return "leak:libfontconfig\n"; }
#endif

namespace host::swatches {

namespace {

constexpr double scale = 2.0; // for screens of today

decltype(&chromaDrawPNG) drawPNG() {
    if (sizeof(void*) == 4) throw std::invalid_argument("the 32-bit build writes SVG only");
    const std::string file = bundledPlugin("libchromapng.so");
    if (access(file.c_str(), F_OK) != 0) {
        throw std::runtime_error("this build has no libchromapng.so, which makes PNG: it is built where librsvg2-dev is "
                                 "installed. SVG needs nothing more");
    }
    void* const library = dlopen(file.c_str(), RTLD_NOW | RTLD_LOCAL | RTLD_NODELETE);
    void* const function = library ? dlsym(library, "chromaDrawPNG") : nullptr;
    if (!function) throw std::runtime_error(std::string("cannot draw: ") + dlerror());
    return reinterpret_cast<decltype(&chromaDrawPNG)>(function);
}

int append(void* text, const unsigned char* bytes, size_t count) {
    static_cast<std::string*>(text)->append(reinterpret_cast<const char*>(bytes), count);
    return 1;
}

} // namespace

std::string pngOf(const Picture& picture) {
    const auto draw = drawPNG();
    const std::string svg = svgOf(picture);
    std::string png;
    char message[256] = "";
    if (!draw(svg.data(), svg.size(), scale, append, &png, message, sizeof message))
        throw std::runtime_error(std::string("cannot draw: ") + message);
    return png;
}

} // namespace host::swatches
