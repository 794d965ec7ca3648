#include "language/reading/diagnostics.h"

#include <algorithm>

namespace host::language {

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

} // namespace host::language
