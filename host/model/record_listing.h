// Class records as text and as JSON, word for word as the plugin passed them.
#pragma once

#include "model/classes.h"

#include <iosfwd>

namespace host {

// Prints the records of all classes that are not built in, in order of registration.
void listRecords(const Registry& registry, std::ostream& out);
void listRecordsAsJson(const Registry& registry, std::ostream& out);

} // namespace host
