#include "model/record_writing.h"

namespace host {

REALclassDefinition builtInRecord(const char* name, const char* superName, REALword instanceDataSize,
                                  void (*constructor)(Object*), void (*destructor)(Object*)) {
    REALclassDefinition record = {};
    record.version = 13;
    record.name = name;
    record.superName = superName;
    record.instanceDataSize = instanceDataSize;
    if (constructor) record.constructor = bound(constructor);
    if (destructor) record.destructor = bound(destructor);
    return record;
}

} // namespace host
