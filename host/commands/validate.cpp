#include "commands/commands.h"

#include "commands/validation_report.h"
#include "entries/plugin.h"
#include "text/json.h"
#include "text/nearest_name.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <iomanip>
#include <iostream>
#include <stdexcept>

namespace host::commands {
namespace {

using validator::Check;
using validator::Result;
using Clock = std::chrono::steady_clock;

constexpr std::chrono::minutes longest{10}; // for one plugin

void requireCheck(const std::string& name) {
    NearestName nearest(name);
    for (const Check& check : validator::checks()) {
        if (name == check.name) return;
        nearest.offer(check.name);
    }
    throw std::invalid_argument("there is no check \"" + name + "\"" + nearest.suggestion() +
                                " (validate --list shows all)");
}

std::vector<const Check*> chosen(const ValidateOptions& options) {
    for (const std::vector<std::string>* names : {&options.only, &options.skip})
        std::for_each(names->begin(), names->end(), requireCheck);
    const auto isIn = [](const std::vector<std::string>& names, const Check& check) {
        return std::count(names.begin(), names.end(), check.name) > 0;
    };
    std::vector<const Check*> found;
    for (const Check& check : validator::checks())
        if ((options.only.empty() || isIn(options.only, check)) && !isIn(options.skip, check)) found.push_back(&check);
    if (found.empty()) throw std::invalid_argument("--only and --skip exclude every check");
    return found;
}

// Returns the trial with the plugin's absolute path, since the child processes run in other folders. Each of the two
// bundled plugins is checked together with the other one.
validator::Trial trialOf(const Start& start, const ValidateOptions& options) {
    std::error_code error;
    const std::string bundled = start.plugins.empty() ? bundledPlugin("libchromabridge.so") : start.plugins.front();
    const std::string plugin = options.plugin.empty() ? bundled : options.plugin;
    const std::string sibling = bundledPlugin("libchromasibling.so");
    const bool isSibling = std::filesystem::equivalent(plugin, sibling, error);
    const std::string other = isSibling ? bundledPlugin("libchromabridge.so") : sibling;
    const bool isFile = std::filesystem::exists(plugin, error);
    validator::Trial trial = {isFile ? std::filesystem::absolute(plugin, error).string() : plugin,
                              start.noSibling ? "" : other};
    trial.limits.forStep = std::chrono::milliseconds(static_cast<long>(options.timeout * 1000));
    trial.limits.end = Clock::now() + longest;
    return trial;
}

void list(const std::vector<const Check*>& checks, bool json) {
    nlohmann::ordered_json all = nlohmann::ordered_json::array();
    for (const Check* const check : checks) {
        if (json) {
            all.push_back(
                {{"name", check->name}, {"requirement", check->requirement}, {"severity", nameOf(check->severity)}});
        } else {
            const bool warns = check->severity == validator::Severity::warning;
            std::cout << std::left << std::setw(22) << check->name << check->requirement << (warns ? " (warning)" : "")
                      << "\n";
        }
    }
    if (json) writeJson(all, std::cout);
}

int callOnly(const Start& start, const ValidateOptions& options) {
    const Result result = validator::callFunction(options.call, trialOf(start, options), start.host, options.inProcess);
    writeCheck(options.call, result);
    if (result.state == Result::State::notTested) return nothingTested;
    return result.state == Result::State::failed ? failure : success;
}

} // namespace

std::vector<std::string> checkNames() {
    std::vector<std::string> names;
    for (const Check& check : validator::checks())
        names.push_back(check.name);
    return names;
}

int validate(const Start& start, const ValidateOptions& options) {
    if (!options.call.empty()) return callOnly(start, options);
    const std::vector<const Check*> checks = chosen(options);
    if (options.list) {
        list(checks, options.json);
        return success;
    }
    const validator::Trial trial = trialOf(start, options);
    ValidationReport report = {trial.plugin, {}};
    const bool isText = !options.json && !options.junit;
    bool isLoaded = true;
    for (const Check* const check : checks) {
        const Clock::time_point begin = Clock::now();
        Result result;
        if (isLoaded) {
            result = perform(*check, trial);
        } else {
            result.reason = "the library does not load";
        }
        isLoaded = isLoaded && (check != &validator::checks().front() || result.state != Result::State::failed);
        if (isText) writeCheck(check->name, result);
        report.checks.push_back({check, std::move(result), std::chrono::duration<double>(Clock::now() - begin).count()});
    }
    if (isText) writeSummary(report);
    if (options.json) writeReportAsJson(report);
    if (options.junit) writeReportAsJunit(report);
    return report.exitCode();
}

} // namespace host::commands
