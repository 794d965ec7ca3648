#include "commands/swatches.h"

#include "swatches/pages.h"

namespace host::commands {

int swatches(const SwatchesOptions& options) {
    using namespace host::swatches;
    writePicture(!options.list.empty()    ? colorListPage(options.list, options.keys)
                 : !options.color.empty() ? spacesPage(colorOfHex(options.color))
                                          : systemColorPage(),
                 options.picture);
    return 0;
}

} // namespace host::commands
