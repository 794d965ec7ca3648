#include "probe/host.h"

#include <cstdio>

namespace probe {

namespace {

// Neither 32-bit floats nor integers can represent these values.
constexpr double values[] = {0.1, -2.5e300, 1.0 / 3};
constexpr std::int32_t count = 3;

std::string digits(double value) {
    char text[32];
    std::snprintf(text, sizeof text, "%.17g", value);
    return text;
}

struct Checks {
    const Host& host;
    Report& report;
    Function<RuntimeArrayCreateProc> create;
    Function<RuntimeUBoundProc> upperBound;
    Function<REALUnlockObjectProc> unlock;
    Function<PluginDoubleArrayInsertProc> inserter;
    Function<PluginDoubleArrayGetProc> getter;

    explicit Checks(const Host& tested)
        : host(tested), report(tested.report), create(tested.entry(entries::RuntimeArrayCreateSingleDimBoundedArray)),
          upperBound(tested.entry(entries::RuntimeUBound)), unlock(tested.entry(entries::REALUnlockObject)) {}

    void drop(void* array) const {
        if (array && unlock) unlock(static_cast<REALobjectStruct*>(array));
    }

    void expectBound(void* array, std::int32_t expected, const std::string& what) const {
        if (!upperBound) return;
        const std::int32_t found = upperBound(array);
        report.expect(found == expected, what + " has the upper bound " + std::to_string(found));
    }

    // A host may support only empty arrays, and only arrays of doubles.
    void checkCreation() const {
        for (const std::int32_t type : {REALarrayOfDoubles, REALarrayOfObjects}) {
            const std::string what = type == REALarrayOfDoubles ? "array of doubles" : "array of objects";
            for (const std::int32_t bound : {-1, 2}) {
                void* const array = create(type, bound);
                if (type == REALarrayOfDoubles && bound == -1) report.expect(array, "returns null for an empty " + what);
                if (!array) continue;
                expectBound(array, bound, "an " + what + " that was created with " + std::to_string(bound));
                drop(array);
            }
        }
    }

    // Returns an array of the values, each inserted at the first index past the end.
    void* filled() const {
        void* const array = create(REALarrayOfDoubles, -1);
        const auto insert = inserter.procedure(array ? inserter(array) : nullptr);
        if (!insert) {
            report.complain("returns no procedure for an array of doubles");
            drop(array);
            return nullptr;
        }
        for (std::int32_t i = 0; i < count; ++i)
            insert(array, i, values[i]);
        return array;
    }

    void checkDoubles() const {
        void* const array = filled();
        if (!array) return;
        expectBound(array, count - 1, "an array into which three doubles were inserted");
        const auto get = getter.procedure(getter ? getter(array) : nullptr);
        for (std::int32_t i = 0; get && i < count; ++i) {
            const double found = get(array, i);
            report.expect(found == values[i], "an element is " + digits(found) + " instead of " + digits(values[i]));
        }
        const auto* const shown = fieldAt<const double*>(array, REALarrayElementsOffset);
        for (int i = 0; host.version < REAL_SINCE_HIDDEN_STORAGE && shown && i < count; ++i) {
            const auto found = fieldAt<double>(shown, 8 * i);
            report.expect(found == values[i],
                          "an element in the storage at offset 28 is " + digits(found) + " instead of " + digits(values[i]));
        }
        drop(array);
    }

    void checkGetting() const {
        void* const array = create(REALarrayOfDoubles, -1);
        if (array) report.expect(getter(array), "returns no procedure for an array of doubles");
        drop(array);
        checkDoubles();
    }

    void checkObjects(const Function<PluginObjectArrayInsertProc>& objectInserter) const {
        const auto make = host.entry(entries::PluginNewInstance);
        void* const array = create(REALarrayOfObjects, -1);
        if (!array) return; // the host has no arrays of objects
        const auto insert = objectInserter.procedure(objectInserter(array));
        if (!insert) report.complain("returns no procedure for an array of objects");
        REALobjectStruct* const object = insert && make && unlock ? make(className) : nullptr;
        if (!object) return drop(array);
        const int before = life().destroyed;
        insert(array, 0, object);
        unlock(object);
        report.expect(life().destroyed == before, "the array has no reference to its element");
        insert(array, 1, nullptr);
        expectBound(array, 1, "an array into which an object and null were inserted");
        drop(array);
        report.expect(life().destroyed == before + 1, "the element is not destroyed with its array");
    }
};

} // namespace

// Entry points of other procedure types have the older names too.
void checkArrays(const Host& host) {
    Checks checks(host);
    if (host.begin(entries::RuntimeArrayCreateSingleDimBoundedArray)) checks.checkCreation();
    if (host.begin(entries::RuntimeUBound) && checks.create) checks.checkCreation();
    if (const auto objects = host.begin(entries::PluginObjectArrayInsertProc); objects && checks.create)
        checks.checkObjects(objects);

    checks.getter = host.entry(entries::PluginDoubleArrayGetProc);
    if (!checks.getter) checks.getter = host.entry(entries::RuntimeArrayDirectGetGetProc);
    const PluginDoubleArrayInsertProc asDoubles = nullptr;
    const PluginObjectArrayInsertProc asObjects = nullptr;
    checks.inserter = host.begin(entries::RuntimeArrayDirectGetInsertProc, asDoubles);
    if (checks.inserter && checks.create) {
        checks.checkDoubles();
        checks.checkObjects(host.entry(entries::RuntimeArrayDirectGetInsertProc, asObjects));
    }
    if (const auto doubles = host.begin(entries::PluginDoubleArrayInsertProc)) checks.inserter = doubles;
    if (checks.inserter && checks.create) checks.checkDoubles();

    for (const auto& entry : {entries::PluginDoubleArrayGetProc, entries::RuntimeArrayDirectGetGetProc}) {
        checks.getter = host.begin(entry);
        if (checks.getter && checks.create && checks.inserter) checks.checkGetting();
    }
}

} // namespace probe
