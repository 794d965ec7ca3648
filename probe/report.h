// The findings of the probe, one for each entry point.
//
// A host may crash during any call. Therefore the report on stderr grows line by line, and the report file is complete up to
// the entry point that is being called.
#pragma once

#include <cstdio>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace probe {

struct Finding {
    std::string entry;
    bool isProvided;
    bool isCalled;
    int checks; // expectations that were tested
    std::vector<std::string> complaints;

    const char* verdict() const;
};

class Report {
public:
    // Empties the report file of an earlier run. CHROMAPROBE_REPORT names this file. It is JSON if CHROMAPROBE_JSON is set.
    // Without CHROMAPROBE_REPORT the report is only printed on stderr.
    Report();

    void start(double hostVersion);

    // Prints the previous finding and starts the finding of the entry point, or continues it if it exists. Checks and
    // complaints belong to this finding from now on.
    void begin(const std::string& entry, bool isProvided);
    // Notes that the entry point is about to be called.
    void trying(const std::string& entry);
    void complain(std::string_view what);
    void expect(bool holds, std::string_view what);
    // Prints the last finding and the summary.
    void end();

    std::size_t complaints() const;
    std::string text() const;
    std::string json() const;

private:
    void print(const std::string& line) const;
    void write() const;
    void finish();
    std::string summary() const;

    std::FILE* file_; // the report file, or null
    double hostVersion_ = 0.0;
    std::vector<Finding> findings_;
    std::size_t current_ = 0;
    bool isOpen_ = false;          // whether the current finding is still to be printed
    bool isComplete_ = false;      // whether every entry point was tried
    std::string trying_;           // the entry point that is being called
    std::set<std::string> called_; // the entry points that have been called, for stderr
};

} // namespace probe
