// Combines the figures of all builds: prints a table on the terminal, and writes one JSON object to a file if one is named.
//
// report FOLDER [JSON FILE]
//
// FOLDER contains the output of the programs for each measured build. BUILD/*.json has one object per file, and
// BUILD/profiles the profiles of callgrind. An object maps keys to figures, and "KEY.bound" and "KEY.baseline" to costs. The
// report takes the lowest cost of all files, and the ratio of the two costs is the figure. The folder BUILD.before has the
// same for an earlier revision.
#include <nlohmann/json.hpp>

#include <algorithm>
#include <array>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <fstream>
#include <map>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

using Json = nlohmann::ordered_json;
namespace fs = std::filesystem;

struct Build {
    const char* key;
    const char* title;
};

constexpr std::array<Build, 3> builds = {
    {{"m64", "m64"}, {"gnustep", "gnustep"}, {"m32_instructions", "m32, instructions"}}};

struct Row {
    const char* key;
    const char* what;
    std::array<std::optional<double>, builds.size()> goals; // the maximum; none: no goal is set
};

constexpr std::nullopt_t none = std::nullopt;
const Row rows[] = {
    {"getRGB", "getRGB into three variables / only the message", {1.6, 1.5, none}},
    {"component", "redComponent / only the message", {1.6, 1.6, none}},
    {"wrap_hit", "a shared colour that has an object / only message and look-up", {1.7, 2.0, none}},
    {"create_destroy", "a colour created and destroyed / create, retain, release", {1.7, 2.0, none}},
    {"string_short", "colorSpaceName / the host's own string", {2.5, none, none}},
    {"string_fair", "the same / UTF8String copied into the host's string", {none, 4.0, none}},
    {"dropped", "redComponent of a grey colour, exception dropped: us, instr.", {1.7, none, none}},
    {"array", "Components / the host's own array of four", {2.0, 2.0, none}},
    {"to_rgb", "sRGB to Adobe RGB / Little CMS, one colour", {1.5, none, none}},
    {"to_matrix", "sRGB to a matrix profile / Little CMS, one colour", {1.5, none, none}},
    {"to_cmyk", "sRGB to a CMYK table profile / Little CMS, one colour", {1.5, none, none}},
    {"live_1e6", "wrap_hit with 1,000,000 live colours / with 1,000", {2.0, 2.0, none}},
    {"allocations", "heap allocations per getRGB, component, wrap_hit", {0.0, 0.0, 0.0}},
    {"entry_lookup", "host entries looked up per call", {0.0, 0.0, 0.0}},
    {"load_us", "loading: REALPluginMain, microseconds", {50.0, 50.0, none}},
    {"size_kib", "stripped library, KiB", {128.0, none, none}},
};

// Returns the number of instructions in each profile by the name of its work.
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

// The measurements of one build.
struct Measured {
    Json figures = Json::object();
    std::map<std::string, double> costs; // in nanoseconds, or instructions

    void add(const std::string& key, double value) {
        if (key.find('.') == std::string::npos) {
            figures[key] = value;
        } else if (const auto [known, isNew] = costs.emplace(key, value); !isNew) {
            known->second = std::min(known->second, value);
        }
    }

    void makeRatios() {
        constexpr const char bound[] = ".bound";
        constexpr double perMicrosecond = 1000; // also the number of calls in a profile
        for (const auto& [name, cost] : costs) {
            const std::size_t end = name.rfind(bound);
            if (end == std::string::npos) continue;
            const std::string key = name.substr(0, end);
            const auto baseline = costs.find(key + ".baseline");
            figures[key] = baseline == costs.end() ? cost / perMicrosecond : cost / baseline->second;
        }
    }
};

Measured readFigures(const fs::path& folder) {
    Measured measured;
    for (const fs::directory_entry& file : fs::directory_iterator(folder)) {
        if (file.path().extension() != ".json") continue;
        const Json read = Json::parse(std::ifstream(file.path()));
        for (const auto& [key, value] : read.items())
            measured.add(key, value);
    }
    if (fs::exists(folder / "profiles")) {
        for (const auto& [name, instructions] : readProfiles(folder / "profiles"))
            measured.add(name, instructions);
    }
    measured.makeRatios();
    return measured;
}

Json inOrder(const Json& figures) {
    Json ordered = Json::object();
    for (const Row& row : rows)
        if (figures.contains(row.key)) ordered[row.key] = figures[row.key];
    return ordered;
}

// Returns the text of a figure: its value, whether it meets its goal, and the two costs whose ratio it is.
std::string cell(const Measured& measured, const std::string& key, std::optional<double> goal, bool isInstructions) {
    if (!measured.figures.contains(key)) return "-";
    const double figure = measured.figures[key];
    const auto bound = measured.costs.find(key + ".bound"), baseline = measured.costs.find(key + ".baseline");
    std::array<char, 64> text;
    const char* const verdict = !goal ? "" : figure <= *goal ? " met" : " missed";
    if (isInstructions || baseline == measured.costs.end()) {
        std::snprintf(text.data(), text.size(), "%.2f%s", figure, verdict);
    } else {
        std::snprintf(text.data(), text.size(), "%.2f%s (%.3g/%.3g ns)", figure, verdict, bound->second, baseline->second);
    }
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

struct Column {
    std::string key;
    std::string title;
    std::size_t goals; // the index of the build's goal in Row::goals
    Measured measured;
};

// The column of a build's earlier revision comes before the column of the build.
std::vector<Column> readColumns(const fs::path& folder) {
    std::vector<Column> columns;
    for (std::size_t i = 0; i < builds.size(); ++i) {
        for (const bool isBefore : {true, false}) {
            const std::string key = std::string(builds[i].key) + (isBefore ? ".before" : "");
            if (!fs::exists(folder / key)) continue;
            const std::string title = std::string(builds[i].title) + (isBefore ? ", before" : "");
            columns.push_back({key, title, i, readFigures(folder / key)});
        }
    }
    return columns;
}

void print(const std::vector<Column>& columns) {
    std::printf("%-14s %-62s %8s", "key", "what", "goal");
    for (const Column& column : columns)
        std::printf(" %25s", column.title.c_str());
    std::puts("");
    for (const Row& row : rows) {
        std::printf("%-14s %-62s %8s", row.key, row.what, goalText(row).c_str());
        for (const Column& column : columns) {
            const bool isInstructions = column.key.find("instructions") != std::string::npos;
            std::printf(" %25s", cell(column.measured, row.key, row.goals[column.goals], isInstructions).c_str());
        }
        std::puts("");
    }
}

void report(const fs::path& folder, const char* file) {
    const std::vector<Column> columns = readColumns(folder);
    print(columns);
    if (!file) return;
    Json all = Json::object();
    for (const Column& column : columns)
        all[column.key] = inOrder(column.measured.figures);
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
