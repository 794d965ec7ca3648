// Puts the figures of all builds together: a table on the terminal, and a file with one JSON object when one is named.
//
// report FOLDER [JSON FILE]
//
// FOLDER holds what the programs have written, for the builds that were measured: BUILD/*.json, each one object with figures
// by key, and in BUILD/profiles the profiles of callgrind, whose instruction counts become ratios.
#include <nlohmann/json.hpp>

#include <array>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <fstream>
#include <map>
#include <optional>
#include <stdexcept>
#include <string>

namespace {

using Json = nlohmann::ordered_json;
namespace fs = std::filesystem;

struct Build {
    const char* key;
    const char* title;
};

constexpr std::array<Build, 3> builds = {{{"m64", "m64"}, {"gnustep", "gnustep"}, {"m32_instructions", "m32, instr."}}};

struct Row {
    const char* key;
    const char* what;
    std::array<std::optional<double>, builds.size()> goals; // no more than this; none: no goal is set
};

constexpr std::nullopt_t none = std::nullopt;
const Row rows[] = {
    {"getRGB", "getRGB into three variables / bare message", {2.0, 1.5, none}},
    {"component", "redComponent / bare message", {2.0, 1.6, none}},
    {"wrap_hit", "a shared colour that has its object / bare message and look-up", {2.0, 2.0, none}},
    {"create_destroy", "a new colour and its end / make, retain, release", {2.0, 2.0, none}},
    {"string_short", "colorSpaceName / the host's own string", {2.5, 2.5, none}},
    {"array", "Components / the host's own array of four", {2.0, 2.0, none}},
    {"live_1e6", "wrap_hit with 1,000,000 live colours / with 1,000", {2.0, 2.0, none}},
    {"allocations", "heap allocations per getRGB, component, wrap_hit", {0.0, 0.0, 0.0}},
    {"entry_lookup", "host entries looked up per call", {0.0, 0.0, 0.0}},
    {"load_us", "loading: REALPluginMain, microseconds", {50.0, 50.0, none}},
    {"size_kib", "stripped library, KiB", {128.0, none, none}},
};

// The instructions of each profile by the name of its work.
std::map<std::string, double> readProfiles(const fs::path& folder) {
    constexpr const char trigger[] = "desc: Trigger: Client Request: ";
    std::map<std::string, double> counts;
    for (const fs::directory_entry& file : fs::directory_iterator(folder)) {
        std::ifstream input(file.path());
        std::string name;
        for (std::string line; std::getline(input, line);) {
            if (line.rfind(trigger, 0) == 0) name = line.substr(sizeof trigger - 1);
            if (line.rfind("totals: ", 0) == 0 && !name.empty()) counts[name] = std::stod(line.substr(8));
        }
    }
    return counts;
}

Json readFigures(const fs::path& folder) {
    Json figures = Json::object();
    for (const fs::directory_entry& file : fs::directory_iterator(folder)) {
        if (file.path().extension() == ".json") figures.update(Json::parse(std::ifstream(file.path())));
    }
    if (!fs::exists(folder / "profiles")) return figures;
    const std::map<std::string, double> counts = readProfiles(folder / "profiles");
    for (const auto& [name, instructions] : counts) {
        const std::size_t end = name.rfind(".bound");
        if (end == std::string::npos) continue;
        const std::string key = name.substr(0, end);
        figures[key] = instructions / counts.at(key + ".bare");
    }
    return figures;
}

Json inOrder(const Json& figures) {
    Json ordered = Json::object();
    for (const Row& row : rows)
        if (figures.contains(row.key)) ordered[row.key] = figures[row.key];
    return ordered;
}

std::string cell(double figure, std::optional<double> goal) {
    std::array<char, 32> text;
    const char* const verdict = !goal ? "" : figure <= *goal ? " met" : " missed";
    std::snprintf(text.data(), text.size(), "%.2f%s", figure, verdict);
    return text.data();
}

std::string goalText(const Row& row) {
    std::string text;
    for (const std::optional<double>& goal : row.goals) {
        std::array<char, 32> number;
        if (goal) std::snprintf(number.data(), number.size(), "%s%g", text.empty() ? "" : ", ", *goal);
        if (goal && (text.empty() || goal != row.goals[0])) text += number.data();
    }
    return text;
}

void print(const Json& all) {
    std::printf("%-14s %-62s %8s", "key", "what", "goal");
    for (const Build& build : builds)
        if (all.contains(build.key)) std::printf(" %13s", build.title);
    std::puts("");
    for (const Row& row : rows) {
        std::printf("%-14s %-62s %8s", row.key, row.what, goalText(row).c_str());
        for (std::size_t i = 0; i < builds.size(); ++i) {
            if (!all.contains(builds[i].key)) continue;
            const Json& figures = all.at(builds[i].key);
            const bool isThere = figures.contains(row.key);
            std::printf(" %13s", isThere ? cell(figures[row.key], row.goals[i]).c_str() : "-");
        }
        std::puts("");
    }
}

void report(const fs::path& folder, const char* file) {
    Json all = Json::object();
    for (const Build& build : builds)
        if (fs::exists(folder / build.key)) all[build.key] = inOrder(readFigures(folder / build.key));
    print(all);
    if (!file) return;
    std::ofstream output(file);
    output << all.dump(2) << '\n';
    if (!output.flush()) throw std::runtime_error(std::string("cannot write ") + file);
}

} // namespace

int main(int count, char** arguments) {
    if (count < 2 || count > 3) {
        std::fputs("usage: report FOLDER [JSON FILE]\n", stderr);
        return 2;
    }
    try {
        report(arguments[1], count == 3 ? arguments[2] : nullptr);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "report: %s\n", error.what());
        return 1;
    }
}
