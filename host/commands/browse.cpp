#include "commands/browse.h"

#include "documentation/browser.h"

namespace host::commands {

int browse(const BrowseOptions& options, std::ostream& out) {
    if (options.markdown) {
        documentation::writeReference(registry(), out);
    } else if (options.className.empty()) {
        documentation::browseClasses(registry(), out);
    } else if (options.member.empty()) {
        documentation::browseClass(registry(), options.className, out);
    } else {
        documentation::browseMember(registry(), options.className, options.member, out);
    }
    return 0;
}

} // namespace host::commands
