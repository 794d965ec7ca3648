#include "runtime/host_entries.h"

namespace chroma {

REALresolver gResolver = nullptr;

} // namespace chroma
