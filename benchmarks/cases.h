// What is measured, for every way of measuring: pairs of work whose cost is compared.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace bench {

// Does the same thing so many times.
using Work = std::function<void(std::size_t times)>;

struct Side {
    std::string name; // "getRGB.bound"
    Work work;
    std::size_t liveColors; // while it runs, so many wrapped colours are alive besides those of the work
};

// A ratio: what the library's work costs against the bare work. Without bare work it is the cost itself.
struct Case {
    std::string key; // "getRGB"
    Side bound;
    Side bare;
    bool isAllocationFree = false; // the bound work must not allocate
};

constexpr std::size_t fewColors = 1000, manyColors = 1000000;

// A pass runs its works this many times in a row, within one autorelease pool.
constexpr std::size_t batch = 1000;

// The cases, in the order of the table. loadPlugins must have run. Every work has been run and its result compared with what
// it has to be: throws std::runtime_error when one is wrong.
std::vector<Case> makeCases();

// Conversions of one sRGB colour by the platform: the message that makes the colour in the other space against Little CMS's
// transform of the same numbers. Throws too when the two differ by more than 1/255 or a profile is not installed.
std::vector<Case> conversionCases();

} // namespace bench
