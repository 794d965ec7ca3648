#include "documentation/suggestion.h"

#include <algorithm>
#include <numeric>

namespace host::documentation {

namespace {

std::string lowered(std::string_view text) {
    std::string result(text);
    for (char& c : result) {
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    }
    return result;
}

// How many letters must be added, left out or replaced to make one word of the other.
std::size_t distance(const std::string& a, const std::string& b) {
    std::vector<std::size_t> row(b.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t{0});
    for (std::size_t i = 0; i < a.size(); ++i) {
        std::size_t diagonal = row[0];
        row[0] = i + 1;
        for (std::size_t j = 0; j < b.size(); ++j) {
            const std::size_t replaced = diagonal + (a[i] == b[j] ? 0 : 1);
            diagonal = row[j + 1];
            row[j + 1] = std::min({replaced, row[j] + 1, diagonal + 1});
        }
    }
    return row.back();
}

} // namespace

std::string nearest(std::string_view word, const std::vector<std::string>& candidates) {
    if (word.empty()) return "";
    const std::string wanted = lowered(word);
    const std::size_t tolerance = std::min(std::max<std::size_t>(3, wanted.size() / 3), wanted.size() - 1);
    std::string best;
    std::size_t bestDistance = tolerance + 1;
    for (const std::string& candidate : candidates) {
        const std::string name = lowered(candidate);
        const std::size_t found = std::min(distance(wanted, name), distance(wanted, name.substr(0, wanted.size())) + 1);
        if (found >= bestDistance) continue;
        best = candidate;
        bestDistance = found;
    }
    if (!best.empty() || wanted.size() < 3) return best;
    const auto containing = std::find_if(candidates.begin(), candidates.end(), [&](const std::string& candidate) {
        return lowered(candidate).find(wanted) != std::string::npos;
    });
    return containing == candidates.end() ? "" : *containing;
}

} // namespace host::documentation
