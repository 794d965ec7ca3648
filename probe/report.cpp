#include "probe/report.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <map>

#include <unistd.h>

namespace probe {

namespace {

bool isProgressShown() { return isatty(STDERR_FILENO) != 0; }

} // namespace

void Report::begin(const std::string& entry, bool isOffered) {
    const auto known = std::find_if(findings_.begin(), findings_.end(), [&](const auto& f) { return f.entry == entry; });
    current_ = static_cast<std::size_t>(known - findings_.begin());
    if (known == findings_.end()) findings_.push_back({entry, isOffered, false, {}});
    if (isProgressShown()) std::fprintf(stderr, "chromaprobe: %-45s\r", entry.c_str());
}

void Report::complain(const std::string& what) { findings_[current_].complaints.push_back(what); }

void Report::returned() { findings_[current_].isAsked = true; }

void Report::end() {
    if (isProgressShown()) std::fprintf(stderr, "%60s\r", "");
}

std::size_t Report::complaints() const {
    std::size_t count = 0;
    for (const Finding& finding : findings_)
        count += finding.complaints.size();
    return count;
}

std::string Report::text() const {
    char version[32];
    std::snprintf(version, sizeof version, "%g", hostVersion);
    std::string text = std::string("chromaprobe: a host of version ") + version + "\n";
    std::map<std::string, std::size_t> counts;
    for (const Finding& finding : findings_) {
        const char* const verdict = !finding.complaints.empty() ? "broken"
                                    : !finding.isOffered        ? "not offered"
                                    : !finding.isAsked          ? "not asked"
                                                                : "kept";
        ++counts[verdict];
        const std::string name = finding.entry + std::string(42 - std::min<std::size_t>(40, finding.entry.size()), ' ');
        text += "  " + name + verdict + "\n";
        for (const std::string& complaint : finding.complaints)
            text += "      " + complaint + "\n";
    }
    for (const char* verdict : {"kept", "broken", "not asked", "not offered"})
        text += std::to_string(counts[verdict]) + " " + verdict + (std::string(verdict) == "not offered" ? "\n" : ", ");
    return text;
}

std::string Report::json() const {
    nlohmann::ordered_json report = {{"hostVersion", hostVersion}, {"complaints", complaints()}};
    for (const Finding& finding : findings_)
        report["entries"].push_back({{"entry", finding.entry},
                                     {"offered", finding.isOffered},
                                     {"asked", finding.isAsked},
                                     {"complaints", finding.complaints}});
    return report.dump(2, ' ', false, nlohmann::json::error_handler_t::replace) + "\n";
}

void publish(const Report& report) {
    const std::string text = std::getenv("CHROMAPROBE_JSON") ? report.json() : report.text();
    const char* const path = std::getenv("CHROMAPROBE_REPORT");
    std::FILE* const file = path ? std::fopen(path, "w") : stderr;
    if (!file) {
        std::perror(path);
        return;
    }
    std::fwrite(text.data(), 1, text.size(), file);
    if (path) std::fclose(file);
}

} // namespace probe
