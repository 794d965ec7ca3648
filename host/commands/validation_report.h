// Writes the reports of validate.
#pragma once

#include "validator/validator.h"

#include <string>
#include <vector>

namespace host::commands {

struct CheckReport {
    const validator::Check* check;
    validator::Result result;
    double seconds;
};

struct ValidationReport {
    std::string plugin;
    std::vector<CheckReport> checks;

    std::size_t count(validator::Result::State state) const;
    int exitCode() const;
};

void writeCheck(const std::string& name, const validator::Result& result);
void writeSummary(const ValidationReport& report);
void writeReportAsJson(const ValidationReport& report);
void writeReportAsJunit(const ValidationReport& report);

const char* nameOf(validator::Severity severity);

} // namespace host::commands
