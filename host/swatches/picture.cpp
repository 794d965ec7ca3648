#include "swatches/picture.h"

#include <fstream>
#include <stdexcept>

namespace host::swatches {

namespace {

bool endsIn(const std::string& file, const char* suffix) {
    const std::string_view end = suffix;
    return file.size() > end.size() && equalIgnoringCase(std::string_view(file).substr(file.size() - end.size()), end);
}

void writeText(const std::string& text, const std::string& file) {
    std::ofstream out(file, std::ios::binary);
    out << text;
    out.close();
    if (!out) throw std::runtime_error(file + " cannot be written");
}

} // namespace

void writePicture(const Picture& picture, const std::string& file) {
    if (endsIn(file, ".svg")) {
        writeText(svgOf(picture), file);
    } else if (endsIn(file, ".png")) {
        writePNG(picture, file);
    } else {
        throw std::invalid_argument(file + " is neither an .svg nor a .png file");
    }
}

} // namespace host::swatches
