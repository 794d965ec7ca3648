#include "bridge/arrays.h"

#include "bridge/errors.h"
#include "runtime/host_entries.h"
#include "runtime/host_values.h"
#include "runtime/host_version.h"

#include <cstdint>

namespace chroma {

void REALInsertArrayValueDouble(REALarrayDouble* array, std::int32_t index, double value) {
    if (!array) return;
    if (const auto insert = insertDoubleProcedure(array)) insert(array, index, value);
}

void REALInsertArrayValueObject(void* array, std::int32_t index, REALobjectStruct* value) {
    if (!array) return;
    if (const auto insert = insertObjectProcedure(array)) insert(array, index, value);
}

void REALUnlockArray(void* array) {
    if (array) REALUnlockObject(arrayAsObject(array));
}

std::int32_t REALGetArrayUBound(void* array) { return array ? RuntimeUBound(array) : -1; }

double REALGetArrayValueDouble(REALarrayDouble* array, std::int32_t index) {
    if (!array) return 0.0;
    const std::int32_t upperBound = REALGetArrayUBound(array);
    if (index < 0 || index > upperBound) {
        RaiseOutOfBoundsException(index, 0, std::int64_t{upperBound} + 1, "index", "");
        return 0.0;
    }
    if (!hostHidesStorage()) {
        if (const double* const elements = storedElements(array))
            return readField<double>(elements, index * std::ptrdiff_t{sizeof(double)});
    }
    const auto get = getDoubleProcedure(array);
    return get ? get(array, index) : 0.0;
}

} // namespace chroma
