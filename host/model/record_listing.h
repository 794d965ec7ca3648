// Class records as text and as JSON, word for word as a plugin handed them over.
#pragma once

#include "model/classes.h"

#include <iosfwd>

namespace host {

// The records of all classes that are not built in, in order of registration.
void listRecords(const Registry& registry, std::ostream& out);
void listRecordsAsJson(const Registry& registry, std::ostream& out);

} // namespace host
