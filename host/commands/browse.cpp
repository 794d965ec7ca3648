#include "commands/start.h"

#include "documentation/browser.h"
#include "documentation/grammar.h"
#include "documentation/pager.h"

#include <iostream>
#include <sstream>

namespace host::commands {

int browse(const Start& start, const BrowseOptions& options) {
    startHost(start, true);
    if (options.json) {
        documentation::browseAsJson(registry(), options.name, options.member, std::cout);
        return success;
    }
    if (options.markdown) {
        if (options.name.empty()) {
            documentation::writeReference(registry(), std::cout);
        } else {
            documentation::writeReference(registry(), options.name, std::cout);
        }
        return success;
    }
    std::ostringstream page;
    documentation::browse(registry(), options.name, options.member, documentation::outputWidth(), page);
    documentation::showPaged(page.str());
    return success;
}

int grammar(const Start& start) {
    startHost(start, true);
    documentation::writeGrammar(registry(), std::cout);
    return success;
}

} // namespace host::commands
