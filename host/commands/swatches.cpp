#include "commands/start.h"

#include "swatches/pages.h"
#include "system/files.h"
#include "text/terminal.h"

#include <filesystem>
#include <iostream>
#include <stdexcept>

#include <unistd.h>

namespace host::commands {

namespace {

bool endsIn(const std::string& file, const std::string& suffix) {
    return file.size() > suffix.size() && equalIgnoringCase(file.substr(file.size() - suffix.size()), suffix);
}

std::string formOf(const SwatchesOptions& options) {
    if (!options.form.empty()) return options.form;
    if (options.picture.empty()) return "text";
    if (options.picture == "-") return "svg";
    for (const char* const form : {"svg", "png"})
        if (endsIn(options.picture, std::string(".") + form)) return form;
    throw std::invalid_argument(options.picture +
                                " is neither an .svg nor a .png file; --format sets the format for any other name");
}

template <class Sheet>
std::string contents(const Sheet& sheet, const std::string& form, const SwatchesOptions& options, bool isFile) {
    using namespace host::swatches;
    if (form == "text")
        return isFile ? written(sheet, ColorDepth::none, 0) : written(sheet, outputColorDepth(), terminalSize().columns);
    const Picture picture = drawn(sheet, options.dark ? darkTheme : lightTheme);
    if (form == "svg") return svgOf(picture);
    if (!isFile && isatty(STDOUT_FILENO))
        throw std::invalid_argument("a PNG would garble the terminal: name a file, or redirect the output");
    return pngOf(picture);
}

void write(const std::filesystem::path& file, const std::string& bytes) {
    const std::error_code problem = replaceFile(file, bytes);
    if (!problem) return;
    const std::filesystem::path folder = file.parent_path();
    std::error_code error;
    const bool isFolderMissing = !folder.empty() && !std::filesystem::is_directory(folder, error);
    throw std::runtime_error(file.string() + " cannot be written: " +
                             (isFolderMissing ? "there is no folder " + folder.string() : problem.message()));
}

} // namespace

int swatches(const Start& start, const SwatchesOptions& options) {
    const std::string form = formOf(options);
    const bool isFile = !options.picture.empty() && options.picture != "-";
    if (options.dark && form == "text") std::cerr << "chromahost: --dark has no effect on text\n";
    startHost(start, true);
    using namespace host::swatches;
    const std::string bytes = !options.color.empty() ? contents(colorInSpaces(options.color), form, options, isFile)
                              : !options.list.empty()
                                  ? contents(colorsOfList(options.list, options.keys), form, options, isFile)
                                  : contents(systemColors(), form, options, isFile);
    if (isFile) {
        write(options.picture, bytes);
    } else {
        std::cout << bytes;
    }
    return success;
}

} // namespace host::commands
