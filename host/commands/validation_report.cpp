#include "commands/validation_report.h"

#include "commands/commands.h"
#include "text/json.h"
#include "text/utf8.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <iomanip>
#include <iostream>
#include <sstream>

namespace host::commands {

namespace {

using Json = nlohmann::ordered_json;
using validator::Complaint;
using validator::Result;
using validator::Severity;
using State = Result::State;

const char* wordFor(State state) {
    switch (state) {
    case State::passed: return "passed";
    case State::warned: return "warning";
    case State::failed: return "failed";
    case State::notTested: break;
    }
    return "not tested";
}

std::string hostsOf(const Complaint& complaint, std::size_t most) {
    const std::vector<std::string>& hosts = complaint.hosts;
    std::string text;
    for (std::size_t i = 0; i < std::min(most, hosts.size()); ++i)
        text += (i == 0 ? "on hosts of " : ", ") + hosts[i];
    if (hosts.size() > most) text += " and " + std::to_string(hosts.size() - most) + " more (--json lists them)";
    return text;
}

void writeLines(const std::string& text, const char* before) {
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);)
        std::cout << before << line << "\n";
}

std::vector<State> statesOf(const ValidationReport& report, bool ofClasses) {
    std::vector<State> states;
    for (const CheckReport& row : report.checks)
        if (row.check->ofClasses == ofClasses) states.push_back(row.result.state);
    return states;
}

// ---- JUnit

// Escapes text for an element or an attribute value of XML 1.0, which does not allow most control characters.
std::string xml(const std::string& text) {
    std::string result;
    std::size_t valid = utf8::findInvalid(text); // the text is valid up to here
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        const bool isControl = static_cast<unsigned char>(c) < 0x20 && c != '\n' && c != '\t';
        if (c == '&') {
            result += "&amp;";
        } else if (c == '<') {
            result += "&lt;";
        } else if (c == '>') {
            result += "&gt;";
        } else if (c == '"') {
            result += "&quot;";
        } else if (isControl || i == valid) {
            result += "\xEF\xBF\xBD"; // the replacement character
        } else {
            result += c;
        }
        if (i != valid) continue;
        const std::size_t next = utf8::findInvalid(std::string_view(text).substr(i + 1));
        valid = next == std::string_view::npos ? next : i + 1 + next;
    }
    return result;
}

std::string junitText(const Result& result) {
    std::string text;
    for (const Complaint& complaint : result.complaints) {
        text += std::string(nameOf(complaint.severity)) + ": " + complaint.text;
        if (!complaint.hosts.empty()) text += " (" + hostsOf(complaint, complaint.hosts.size()) + ")";
        text += "\n";
    }
    return text;
}

} // namespace

const char* nameOf(Severity severity) { return severity == Severity::breach ? "breach" : "warning"; }

std::size_t ValidationReport::count(State state) const {
    return static_cast<std::size_t>(
        std::count_if(checks.begin(), checks.end(), [&](const CheckReport& row) { return row.result.state == state; }));
}

int ValidationReport::exitCode() const {
    if (count(State::failed) > 0) return failure;
    const auto isUntested = [](State state) { return state == State::notTested; };
    const std::vector<State> classes = statesOf(*this, true);
    const bool nothing = !classes.empty() && std::all_of(classes.begin(), classes.end(), isUntested);
    return nothing || count(State::notTested) == checks.size() ? nothingTested : success;
}

void writeCheck(const std::string& name, const Result& result) {
    std::cout << std::left << std::setw(22) << name << (result.state == State::failed ? "FAILED" : wordFor(result.state))
              << (result.reason.empty() ? "" : ": " + result.reason) << "\n";
    for (const Complaint& complaint : result.complaints) {
        const bool isMilder = result.state == State::failed && complaint.severity == Severity::warning;
        std::cout << "    " << (isMilder ? "warning: " : "") << complaint.text << "\n";
        if (!complaint.hosts.empty()) std::cout << "        " << hostsOf(complaint, 3) << "\n";
    }
    for (const std::string& function : result.skipped)
        std::cout << "    not called, because it hangs: " << function << "\n";
    if (!result.output.empty() && !result.complaints.empty()) {
        std::cout << "    the plugin printed:\n";
        writeLines(result.output, "    | ");
    }
    std::cout.flush();
}

void writeSummary(const ValidationReport& report) {
    std::cout << report.count(State::passed) << " passed, " << report.count(State::failed) << " failed, "
              << report.count(State::warned) << " with warnings, " << report.count(State::notTested) << " not tested\n";
}

void writeReportAsJson(const ValidationReport& report) {
    Json checks = Json::array();
    for (const CheckReport& row : report.checks) {
        Json complaints = Json::array();
        for (const Complaint& complaint : row.result.complaints) {
            complaints.push_back({{"severity", nameOf(complaint.severity)}, {"text", complaint.text}});
            if (!complaint.hosts.empty()) complaints.back()["hosts"] = complaint.hosts;
        }
        Json check = {{"name", row.check->name},
                      {"requirement", row.check->requirement},
                      {"severity", nameOf(row.check->severity)},
                      {"result", wordFor(row.result.state)},
                      {"complaints", std::move(complaints)},
                      {"seconds", row.seconds}};
        if (!row.result.reason.empty()) check["reason"] = row.result.reason;
        if (!row.result.skipped.empty()) check["notCalled"] = row.result.skipped;
        if (!row.result.output.empty()) check["output"] = row.result.output;
        checks.push_back(std::move(check));
    }
    writeJson(Json{{"plugin", report.plugin},
                   {"version", CHROMA_VERSION},
                   {"summary",
                    {{"passed", report.count(State::passed)},
                     {"failed", report.count(State::failed)},
                     {"warnings", report.count(State::warned)},
                     {"notTested", report.count(State::notTested)},
                     {"exitCode", report.exitCode()}}},
                   {"checks", std::move(checks)}},
              std::cout);
}

void writeReportAsJunit(const ValidationReport& report) {
    double seconds = 0;
    for (const CheckReport& row : report.checks)
        seconds += row.seconds;
    std::cout << "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<testsuites>\n<testsuite name=\"" << xml(report.plugin)
              << "\" tests=\"" << report.checks.size() << "\" failures=\"" << report.count(State::failed)
              << "\" errors=\"0\" skipped=\"" << report.count(State::notTested) << "\" time=\"" << seconds << "\">\n";
    for (const CheckReport& row : report.checks) {
        const Result& result = row.result;
        std::cout << "<testcase classname=\"chromahost.validate\" name=\"" << row.check->name << "\" time=\"" << row.seconds
                  << "\">\n";
        if (result.state == State::failed) {
            std::cout << "<failure message=\"" << xml(row.check->requirement) << "\">" << xml(junitText(result))
                      << "</failure>\n";
        } else if (result.state == State::notTested) {
            std::cout << "<skipped message=\"" << xml(result.reason) << "\"/>\n";
        } else if (result.state == State::warned) {
            std::cout << "<system-out>" << xml(junitText(result)) << "</system-out>\n";
        }
        if (!result.output.empty()) std::cout << "<system-err>" << xml(result.output) << "</system-err>\n";
        std::cout << "</testcase>\n";
    }
    std::cout << "</testsuite>\n</testsuites>\n";
}

} // namespace host::commands
