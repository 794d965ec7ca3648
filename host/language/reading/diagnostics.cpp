#include "language/reading/diagnostics.h"

#include "text/letters.h"

#include <algorithm>
#include <numeric>

namespace host::language {
namespace {

// Edits (insert, delete, replace, swap two neighbours) between two names, in any case.
std::size_t editDistance(std::string_view a, std::string_view b) {
    const auto same = [&](std::size_t i, std::size_t j) { return lower(a[i]) == lower(b[j]); };
    std::vector<std::size_t> beforeLast(b.size() + 1), last(b.size() + 1), row(b.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t{0});
    for (std::size_t i = 0; i < a.size(); ++i) {
        beforeLast.swap(last);
        last.swap(row);
        row[0] = i + 1;
        for (std::size_t j = 0; j < b.size(); ++j) {
            row[j + 1] = std::min({last[j] + (same(i, j) ? 0 : 1), row[j] + 1, last[j + 1] + 1});
            if (i > 0 && j > 0 && same(i, j - 1) && same(i - 1, j)) row[j + 1] = std::min(row[j + 1], beforeLast[j - 1] + 1);
        }
    }
    return row.back();
}

} // namespace

std::vector<Diagnostic> Diagnostics::inOrder() const {
    std::vector<Diagnostic> ordered = list_;
    std::stable_sort(ordered.begin(), ordered.end(), [](const auto& a, const auto& b) { return a.offset < b.offset; });
    return ordered;
}

std::string Diagnostics::report(const Source& source) const {
    std::string report;
    for (const Diagnostic& diagnostic : inOrder())
        report += source.report(diagnostic.offset, "error: " + diagnostic.message);
    if (dropped_) report += source.name() + ": error: there are more errors\n";
    return report;
}

void NearestName::offer(std::string_view name) {
    constexpr std::size_t maxCompared = 200;
    const std::size_t tolerated = std::max<std::size_t>(1, wanted_.size() / 4);
    if (wanted_.size() < 2 || wanted_.size() > maxCompared || name.size() > wanted_.size() + tolerated ||
        wanted_.size() > name.size() + tolerated)
        return;
    const std::size_t distance = editDistance(wanted_, name);
    if (distance > tolerated || (!nearest_.empty() && distance >= distance_)) return;
    nearest_ = name;
    distance_ = distance;
}

std::string NearestName::suggestion() const {
    return nearest_.empty() ? std::string() : ", did you mean '" + nearest_ + "'?";
}

} // namespace host::language
