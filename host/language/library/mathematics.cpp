#include "language/library/mathematics.h"

#include "model/exceptions.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <random>
#include <string>

namespace host::language::mathematics {
namespace {

std::mt19937_64& generator() {
    static std::mt19937_64 generator = [] {
        std::random_device device;
        return std::mt19937_64(std::uint64_t{device()} << 32 | device());
    }();
    return generator;
}

} // namespace

double round(double value) { return std::round(value); }
double floor(double value) { return std::floor(value); }
double ceil(double value) { return std::ceil(value); }
double squareRoot(double value) { return std::sqrt(value); }

HostInteger absolute(HostInteger value) {
    return value < 0 ? static_cast<HostInteger>(-static_cast<std::uintptr_t>(value)) : value;
}
double absolute(double value) { return std::fabs(value); }
HostInteger lesser(HostInteger a, HostInteger b) { return std::min(a, b); }
double lesser(double a, double b) { return std::fmin(a, b); }
HostInteger greater(HostInteger a, HostInteger b) { return std::max(a, b); }
double greater(double a, double b) { return std::fmax(a, b); }

double pi() { return 3.14159265358979323846; }
double sine(double angle) { return std::sin(angle); }
double cosine(double angle) { return std::cos(angle); }
double tangent(double angle) { return std::tan(angle); }
double arcSine(double value) { return std::asin(value); }
double arcCosine(double value) { return std::acos(value); }
double arcTangent(double value) { return std::atan(value); }
double angleOf(double y, double x) { return std::atan2(y, x); }
double exponential(double value) { return std::exp(value); }
double logarithm(double value) { return std::log(value); }
double decimalLogarithm(double value) { return std::log10(value); }

void seedRandom(HostInteger seed) { generator().seed(static_cast<std::uint64_t>(std::int64_t{seed})); }

double randomReal() { return static_cast<double>(generator()() >> 11) * 0x1p-53; }

HostInteger randomInRange(HostInteger first, HostInteger last) {
    if (last < first) {
        raise("OutOfBoundsException",
              "There is no integer from " + std::to_string(first) + " to " + std::to_string(last) + ".");
        return 0;
    }
    const auto start = static_cast<std::uint64_t>(std::int64_t{first});
    const std::uint64_t count = static_cast<std::uint64_t>(std::int64_t{last}) - start + 1; // 0 for all 64-bit numbers
    std::uint64_t drawn = generator()();
    // the number of values from the greatest multiple of `count` on
    const std::uint64_t excess = count == 0 ? 0 : -count % count;
    while (drawn > UINT64_MAX - excess)
        drawn = generator()();
    return static_cast<HostInteger>(start + (count == 0 ? drawn : drawn % count));
}

} // namespace host::language::mathematics
