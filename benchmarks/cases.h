// The measured cases, which every way of measuring uses. Each case compares the costs of two works.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace bench {

// Does the same thing `times` times.
using Work = std::function<void(std::size_t times)>;

struct Side {
    std::string name; // "getRGB.bound"
    Work work;
    std::size_t liveColors; // the number of wrapped colours that are alive meanwhile, besides those of the work
};

// A ratio: the cost of the library's work relative to the baseline. Without a baseline, the figure is the cost itself.
struct Case {
    std::string key; // "getRGB"
    Side bound;
    Side baseline;
    bool isAllocationFree = false; // the bound work must not allocate
};

constexpr std::size_t fewColors = 1000, manyColors = 1000000;

// The number of times that a pass runs a work in a row, within one autorelease pool.
constexpr std::size_t batch = 1000;

// Returns the cases in the order of the table. loadPlugins must have run. Runs every work once and compares its result with
// the expected one. Throws std::runtime_error if a result is wrong.
std::vector<Case> makeCases();

// Returns the conversions of one sRGB colour by the platform. Each case compares the message that creates the colour in the
// other space with Little CMS's transform of the same numbers. Also throws if the two results differ by more than 1/255 or
// a profile is not installed.
std::vector<Case> conversionCases();

} // namespace bench
