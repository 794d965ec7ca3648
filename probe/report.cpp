#include "probe/report.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <map>

#include <unistd.h>

namespace probe {

namespace {

std::string head(double version) {
    char text[64];
    std::snprintf(text, sizeof text, "chromaprobe: a host of version %g\n", version);
    return text;
}

std::string lines(const Finding& finding) {
    std::string text = "  " + finding.entry + std::string(42 - std::min<std::size_t>(40, finding.entry.size()), ' ');
    text += std::string(finding.verdict()) + "\n";
    for (const std::string& complaint : finding.complaints)
        text += "      " + complaint + "\n";
    return text;
}

} // namespace

const char* Finding::verdict() const {
    if (!complaints.empty()) return "failed";
    if (!isProvided) return "not provided";
    if (checks > 0) return "ok";
    return isCalled ? "not observable" : "not tested";
}

Report::Report() {
    const char* const path = std::getenv("CHROMAPROBE_REPORT");
    file_ = path ? std::fopen(path, "w") : nullptr;
    if (path && !file_) std::perror(path);
}

void Report::start(double hostVersion) {
    hostVersion_ = hostVersion;
    print(head(hostVersion));
    write();
}

void Report::begin(const std::string& entry, bool isProvided) {
    finish();
    const auto known = std::find_if(findings_.begin(), findings_.end(), [&](const auto& f) { return f.entry == entry; });
    current_ = static_cast<std::size_t>(known - findings_.begin());
    if (known == findings_.end()) findings_.push_back({entry, isProvided, false, 0, {}});
    isOpen_ = true;
}

void Report::trying(const std::string& entry) {
    if (isOpen_ && findings_[current_].entry == entry) findings_[current_].isCalled = true;
    if (trying_ == entry) return;
    trying_ = entry;
    if (called_.insert(entry).second) print("  trying " + entry + "\n");
    write();
}

void Report::complain(std::string_view what) {
    std::vector<std::string>& all = findings_[current_].complaints;
    if (std::find(all.begin(), all.end(), what) == all.end()) all.emplace_back(what);
}

void Report::expect(bool holds, std::string_view what) {
    ++findings_[current_].checks;
    if (!holds) complain(what);
}

void Report::end() {
    finish();
    if (!isComplete_) print(summary());
    isComplete_ = true;
    write();
}

void Report::finish() {
    if (isOpen_) print(lines(findings_[current_]));
    isOpen_ = false;
    trying_.clear();
}

std::size_t Report::complaints() const {
    std::size_t count = 0;
    for (const Finding& finding : findings_)
        count += finding.complaints.size();
    return count;
}

std::string Report::summary() const {
    std::map<std::string, std::size_t> counts;
    for (const Finding& finding : findings_)
        ++counts[finding.verdict()];
    std::string text;
    for (const char* const verdict : {"ok", "failed", "not observable", "not tested", "not provided"})
        text += (text.empty() ? "" : ", ") + std::to_string(counts[verdict]) + " " + verdict;
    return text + "\n";
}

std::string Report::text() const {
    std::string text = head(hostVersion_);
    for (std::size_t i = 0; i < findings_.size(); ++i)
        if (!isOpen_ || i != current_) text += lines(findings_[i]);
    return text + (isComplete_ ? summary() : "  trying " + trying_ + "\n");
}

std::string Report::json() const {
    nlohmann::ordered_json report = {
        {"hostVersion", hostVersion_}, {"complete", isComplete_}, {"trying", trying_}, {"complaints", complaints()}};
    report["entries"] = nlohmann::ordered_json::array();
    for (const Finding& finding : findings_) {
        report["entries"].push_back({{"entry", finding.entry},
                                     {"provided", finding.isProvided},
                                     {"verdict", finding.verdict()},
                                     {"complaints", finding.complaints}});
    }
    return report.dump(2, ' ', false, nlohmann::json::error_handler_t::replace) + "\n";
}

void Report::print(const std::string& line) const { std::fwrite(line.data(), 1, line.size(), stderr); }

void Report::write() const {
    if (!file_) return;
    const std::string text = std::getenv("CHROMAPROBE_JSON") ? json() : this->text();
    std::rewind(file_);
    std::fwrite(text.data(), 1, text.size(), file_);
    std::fflush(file_);
    // The text may have become shorter. The file stays open, since closing a file that was emptied waits for the disk.
    if (ftruncate(fileno(file_), static_cast<off_t>(text.size())) != 0) std::perror("chromaprobe");
}

} // namespace probe
