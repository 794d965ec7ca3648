#include "commands/start.h"

#include "entries/record_listing.h"
#include "model/classes.h"
#include "text/terminal.h"

#include <iostream>

namespace host::commands {

int records(const Start& start, bool json) {
    startHost(start, false); // the sibling's records belong to another plugin
    if (json) {
        listRecordsAsJson(registry(), std::cout);
    } else {
        listRecords(registry(), terminalSize().columns, std::cout);
    }
    return success;
}

} // namespace host::commands
