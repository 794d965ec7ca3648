#include "commands/start.h"

#include "documentation/browser.h"

#include <iostream>

namespace host::commands {

int browse(const Start& start, const BrowseOptions& options) {
    startHost(start, true);
    if (options.markdown) {
        documentation::writeReference(registry(), std::cout);
    } else if (options.className.empty()) {
        documentation::browseClasses(registry(), std::cout);
    } else if (options.member.empty()) {
        documentation::browseClass(registry(), options.className, std::cout);
    } else {
        documentation::browseMember(registry(), options.className, options.member, std::cout);
    }
    return success;
}

} // namespace host::commands
