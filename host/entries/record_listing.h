// Class records as text and as JSON, word for word as the plugin passed them.
#pragma once

#include "model/classes.h"

#include <cstddef>
#include <iosfwd>

namespace host {

// Prints the records of all classes that are not built in, in order of registration. Lines of tables end at the
// width, unless that is 0.
void listRecords(const Registry& registry, std::size_t width, std::ostream& out);
void listRecordsAsJson(const Registry& registry, std::ostream& out);

} // namespace host
