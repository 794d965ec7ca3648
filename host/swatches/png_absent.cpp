// In a build without cairo, as every 32-bit one is.
#include "swatches/picture.h"

#include <stdexcept>

namespace host::swatches {

void writePNG(const Picture&, const std::string& file) {
    throw std::invalid_argument(file + ": this build writes SVG only; give a file name that ends in .svg");
}

} // namespace host::swatches
