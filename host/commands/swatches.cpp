#include "commands/start.h"

#include "swatches/pages.h"

namespace host::commands {

int swatches(const Start& start, const SwatchesOptions& options) {
    startHost(start, true);
    using namespace host::swatches;
    writePicture(!options.list.empty()    ? colorListPage(options.list, options.keys)
                 : !options.color.empty() ? spacesPage(colorOfHex(options.color))
                                          : systemColorPage(),
                 options.picture);
    return success;
}

} // namespace host::commands
