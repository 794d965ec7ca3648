#include "commands/commands.h"

#include "model/plugin.h"
#include "text/json.h"
#include "text/nearest_name.h"
#include "validator/validator.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <filesystem>
#include <iomanip>
#include <iostream>
#include <sstream>
#include <stdexcept>

namespace host::commands {
namespace {

using validator::Check;
using Json = nlohmann::ordered_json;

std::string suggestion(const std::string& name) {
    NearestName nearest(name);
    for (const Check& check : validator::checks())
        nearest.offer(check.name);
    return nearest.suggestion();
}

std::vector<const Check*> chosen(const std::vector<std::string>& names) {
    std::vector<const Check*> found;
    for (const Check& check : validator::checks())
        if (names.empty() || std::count(names.begin(), names.end(), check.name) > 0) found.push_back(&check);
    for (const std::string& name : names) {
        if (std::none_of(found.begin(), found.end(), [&](const Check* check) { return name == check->name; })) {
            throw std::invalid_argument("there is no check \"" + name + "\"" + suggestion(name) +
                                        " (validate --list tells them)");
        }
    }
    return found;
}

// Its processes run in other folders, and it does not stand beside itself: the two bundled plugins stand beside each other.
validator::Trial trialOf(const Start& start, const std::string& named) {
    std::error_code error;
    const std::string bundled = start.plugins.empty() ? bundledPlugin("libchromabridge.so") : start.plugins.front();
    const std::string plugin = named.empty() ? bundled : named;
    const std::string sibling = bundledPlugin("libchromasibling.so");
    const bool isSibling = std::filesystem::equivalent(plugin, sibling, error);
    const std::string beside = isSibling ? bundledPlugin("libchromabridge.so") : sibling;
    const bool isFile = std::filesystem::exists(plugin, error);
    return {isFile ? std::filesystem::absolute(plugin, error).string() : plugin, start.noSibling ? "" : beside};
}

void write(const Check& check, const std::string& complaint) {
    std::cout << std::left << std::setw(22) << check.name << (complaint.empty() ? "kept" : "BROKEN") << "\n";
    std::istringstream lines(complaint);
    for (std::string line; std::getline(lines, line);)
        std::cout << "    " << line << "\n";
    std::cout.flush();
}

void list(const std::vector<const Check*>& checks, bool json) {
    Json all = Json::array();
    for (const Check* check : checks) {
        if (json) {
            all.push_back({{"name", check->name}, {"promise", check->promise}});
        } else {
            std::cout << std::left << std::setw(22) << check->name << check->promise << "\n";
        }
    }
    if (json) writeJson(all, std::cout);
}

Json linesOf(const std::string& text) {
    Json all = Json::array();
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);)
        all.push_back(line);
    return all;
}

} // namespace

std::vector<std::string> checkNames() {
    std::vector<std::string> names;
    for (const Check& check : validator::checks())
        names.push_back(check.name);
    return names;
}

int validate(const Start& start, const ValidateOptions& options) {
    const std::vector<const Check*> checks = chosen(options.only);
    if (options.list) {
        list(checks, options.json);
        return success;
    }
    const validator::Trial trial = trialOf(start, options.plugin);
    Json all = Json::array();
    std::size_t kept = 0, tried = 0;
    bool isLoaded = true;
    for (const Check* check : checks) {
        if (!isLoaded) break;
        const std::string complaint = check->complaint(trial);
        kept += complaint.empty() ? 1 : 0;
        ++tried;
        isLoaded = complaint.empty() || check != &validator::checks().front();
        if (options.json) {
            all.push_back({{"name", check->name},
                           {"promise", check->promise},
                           {"kept", complaint.empty()},
                           {"complaints", linesOf(complaint)}});
        } else {
            write(*check, complaint);
        }
    }
    if (options.json) {
        writeJson(all, std::cout);
    } else {
        std::cout << kept << " of " << tried << " promises kept\n";
        if (tried < checks.size()) std::cout << "not tried without it: " << checks.size() - tried << "\n";
    }
    return kept == checks.size() ? success : failure;
}

} // namespace host::commands
