#include "commands/start.h"

#include "documentation/browser.h"
#include "documentation/pager.h"

#include <iostream>
#include <sstream>

namespace host::commands {

int browse(const Start& start, const BrowseOptions& options) {
    startHost(start, true);
    if (options.markdown) {
        documentation::writeReference(registry(), std::cout);
        return success;
    }
    std::ostringstream page;
    documentation::browse(registry(), options.name, options.member, documentation::outputWidth(), page);
    documentation::showPaged(page.str());
    return success;
}

} // namespace host::commands
