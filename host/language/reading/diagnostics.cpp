#include "language/reading/diagnostics.h"

#include <algorithm>

namespace host::language {

const char* nameOf(Level level) { return level == Level::error ? "error" : "warning"; }

void Diagnostics::add(Diagnostic diagnostic) {
    const bool isError = diagnostic.level == Level::error;
    const std::size_t known = isError ? errors_ : list_.size() - errors_;
    if (known >= limit_) {
        (isError ? droppedErrors_ : droppedWarnings_) = true;
        return;
    }
    errors_ += isError ? 1 : 0;
    list_.push_back(std::move(diagnostic));
}

void Diagnostics::warn(Offset offset, std::string message) {
    const bool known = std::any_of(list_.begin(), list_.end(), [&](const Diagnostic& other) {
        return other.level == Level::warning && other.offset == offset && other.message == message;
    });
    if (!known) add({Level::warning, offset, std::move(message)});
}

std::vector<Diagnostic> Diagnostics::inOrder() const {
    std::vector<Diagnostic> ordered = list_;
    std::stable_sort(ordered.begin(), ordered.end(), [](const auto& a, const auto& b) { return a.offset < b.offset; });
    return ordered;
}

std::string Diagnostics::report() const {
    std::string report;
    for (const Diagnostic& diagnostic : inOrder())
        report += source_.report(diagnostic.offset, std::string(nameOf(diagnostic.level)) + ": " + diagnostic.message);
    if (droppedErrors_) report += source_.name() + ": error: there are more errors\n";
    if (droppedWarnings_) report += source_.name() + ": warning: there are more warnings\n";
    return report;
}

} // namespace host::language
