#include "text/nearest_name.h"

#include "text/characters.h"

#include <algorithm>
#include <numeric>
#include <vector>

namespace host {
namespace {

// Returns the number of edits (insert, delete, replace, swap two neighbours) between the names, or one more than to the
// nearest beginning of `name`. Short names resemble too many others: in them a replaced letter counts twice, and beginnings
// do not count. In names of three letters every edit except a swap counts twice.
std::size_t distance(std::string_view wanted, std::string_view name) {
    constexpr std::size_t maxShort = 4;
    const bool isShort = wanted.size() <= maxShort;
    const std::size_t replacing = isShort ? 2 : 1, inserting = wanted.size() < maxShort ? 2 : 1;
    const auto same = [&](std::size_t i, std::size_t j) { return lower(wanted[i]) == lower(name[j]); };
    std::vector<std::size_t> beforeLast(name.size() + 1), last(name.size() + 1), row(name.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t{0});
    for (std::size_t i = 0; i < wanted.size(); ++i) {
        beforeLast.swap(last);
        last.swap(row);
        row[0] = i + 1;
        for (std::size_t j = 0; j < name.size(); ++j) {
            row[j + 1] = std::min({last[j] + (same(i, j) ? 0 : replacing), row[j] + inserting, last[j + 1] + inserting});
            if (i > 0 && j > 0 && same(i, j - 1) && same(i - 1, j)) row[j + 1] = std::min(row[j + 1], beforeLast[j - 1] + 1);
        }
    }
    return isShort ? row.back() : std::min(row.back(), *std::min_element(row.begin(), row.end()) + 1);
}

} // namespace

void NearestName::offer(std::string_view name) {
    constexpr std::size_t maxCompared = 200;
    const std::size_t tolerated = std::max<std::size_t>(1, wanted_.size() / 4);
    if (wanted_.size() < 2 || wanted_.size() > maxCompared || name.size() > maxCompared) return;
    const std::size_t found = distance(wanted_, name);
    if (found > tolerated || (!nearest_.empty() && found >= distance_)) return;
    nearest_ = name;
    distance_ = found;
}

std::string NearestName::suggestion() const {
    return nearest_.empty() ? std::string() : ", did you mean '" + nearest_ + "'?";
}

} // namespace host
