#include "swatches/picture.h"
#include "swatches/png_library.h"

#include "entries/plugin.h"
#include "text/utf8.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <stdexcept>

#include <dlfcn.h>
#include <unistd.h>

#ifdef __SANITIZE_ADDRESS__
// The font library caches data and refers to it by offsets. The leak detector sees no pointers there and would report the
// data.
extern "C" __attribute__((visibility("default"))) const char* __lsan_default_suppressions();
const char* __lsan_default_suppressions() { return "leak:libfontconfig\n"; }
#endif

namespace host::swatches {

namespace {

// Returns two pixels per unit of length, as current screens need, or as many as cairo's images and 1 GB of memory allow.
double scaleOf(const Picture& picture) {
    constexpr double usual = 2.0, longestSide = 32767.0, maxPixels = 268435456.0;
    const double bySide = longestSide / std::ceil(std::max(picture.width, picture.height));
    const double byMemory = std::sqrt(maxPixels / (picture.width * picture.height));
    return std::min({usual, bySide, byMemory});
}

template <class Function>
Function* libraryFunction(const char* name) {
    if (sizeof(void*) == 4) throw std::invalid_argument("the 32-bit build writes SVG only");
    const std::string file = bundledPlugin("libchromapng.so");
    if (access(file.c_str(), F_OK) != 0) {
        throw std::runtime_error("this build has no libchromapng.so, which draws PNG: it is built if librsvg2-dev is "
                                 "installed. SVG needs no further library");
    }
    void* const library = dlopen(file.c_str(), RTLD_NOW | RTLD_LOCAL | RTLD_NODELETE);
    void* const function = library ? dlsym(library, name) : nullptr;
    if (!function) throw std::runtime_error(std::string("cannot draw: ") + dlerror());
    return reinterpret_cast<Function*>(function);
}

int append(void* text, const unsigned char* bytes, size_t count) {
    static_cast<std::string*>(text)->append(reinterpret_cast<const char*>(bytes), count);
    return 1;
}

double widthOf(Label label) {
    static const auto measure = libraryFunction<decltype(chromaMeasureSVG)>("chromaMeasureSVG");
    label.x = 0.0;
    label.align = Align::left;
    const std::string svg = svgOf({"", 1, 1, {Shape(label)}});
    double right = 0.0;
    char message[256] = "";
    if (!measure(svg.data(), svg.size(), &right, message, sizeof message))
        throw std::runtime_error(std::string("cannot measure text: ") + message);
    return right;
}

// Returns whether the character belongs to a script that runs from right to left, such as Hebrew or Arabic.
bool runsLeft(std::uint32_t code) {
    return (code >= 0x590 && code < 0x900) || (code >= 0xFB1D && code < 0xFE00) || (code >= 0xFE70 && code < 0xFF00);
}

// Returns the first characters of the text and "…" on the side where the text would continue.
std::string shortened(const std::string& text, std::size_t characters) {
    std::string kept = text.substr(0, utf8::offsetOf(text, characters));
    kept.erase(kept.find_last_not_of(' ') + 1);
    const auto last = kept.empty() ? std::nullopt : utf8::firstOf(kept.substr(utf8::floor(kept, kept.size() - 1)));
    return kept + "…" + (last && runsLeft(*last) ? utf8::encoded(0x200F) : "");
}

Label fitted(const BoundedLabel& bounded) {
    Label label = bounded.label;
    if (widthOf(label) <= bounded.width) return label;
    std::size_t fits = 0, tooMany = utf8::length(bounded.label.text);
    while (tooMany - fits > 1) {
        const std::size_t middle = fits + (tooMany - fits) / 2;
        label.text = shortened(bounded.label.text, middle);
        (widthOf(label) <= bounded.width ? fits : tooMany) = middle;
    }
    label.text = shortened(bounded.label.text, fits);
    return label;
}

} // namespace

Picture measured(Picture picture) {
    for (Shape& shape : picture.shapes)
        if (const auto* const bounded = std::get_if<BoundedLabel>(&shape)) shape = fitted(*bounded);
    return picture;
}

std::string pngOf(const Picture& picture) {
    const auto draw = libraryFunction<decltype(chromaDrawPNG)>("chromaDrawPNG");
    const std::string svg = svgOf(measured(picture));
    std::string png;
    char message[256] = "";
    if (!draw(svg.data(), svg.size(), scaleOf(picture), append, &png, message, sizeof message))
        throw std::runtime_error(std::string("cannot draw: ") + message);
    return png;
}

} // namespace host::swatches
