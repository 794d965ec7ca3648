// The functions that the table of checks refers to.
#pragma once

#include "validator/run.h"

namespace host::validator {

// The library and its start.
void loads(Run& run);
void exportsOneFunction(Run& run);
void acceptsNullResolver(Run& run);
void announcesOnce(Run& run);

// The class records.
void recordsParse(Run& run);
void recordsAreComplete(Run& run);
void typesAreKnown(Run& run);
void membersAreUnique(Run& run);

// Calls on the current host.
void acceptsNullReceivers(Run& run);
void acceptsEmptyReceivers(Run& run);
void acceptsArguments(Run& run);
void settersStore(Run& run);
void exceptionsHaveNullResults(Run& run);
void callsBalance(Run& run);
void resultsAreOwned(Run& run);
void destroyedValuesAreUnused(Run& run);
void instanceDataIsBounded(Run& run);
void textIsLocked(Run& run);
void usesOneThread(Run& run);

// Other hosts.
void servesVersions(Run& run);
void servesMissingEntries(Run& run);
void acceptsNulls(Run& run);
void survivesHostExceptions(Run& run);

} // namespace host::validator
