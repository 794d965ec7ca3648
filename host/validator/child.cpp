#include "validator/child.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <exception>
#include <filesystem>
#include <stdexcept>

#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

namespace host::validator {

namespace {

constexpr unsigned secondsToEnd = 120;

// In memory that parent and child share, so that it outlives the child.
struct Report {
    char step[400];
    char complaint[8000];
};
Report* report = nullptr;

Report* newReport() {
    void* const memory = mmap(nullptr, sizeof(Report), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    if (memory == MAP_FAILED) throw std::runtime_error("no memory to share with a child process");
    return static_cast<Report*>(memory);
}

std::string newFolder() {
    std::string name = (std::filesystem::temp_directory_path() / "chromahost.XXXXXX").string();
    if (!mkdtemp(name.data())) throw std::runtime_error("cannot make a folder in " + name);
    return name;
}

[[noreturn]] void runChild(const std::string& folder, const std::function<std::string()>& body) {
    setenv("HOME", folder.c_str(), 1);
    unsetenv("XDG_DATA_HOME");
    if (chdir(folder.c_str()) != 0) _exit(1);
    dup2(STDERR_FILENO, STDOUT_FILENO); // the output is the report's
    alarm(secondsToEnd);
    std::string complaint;
    try {
        complaint = body();
    } catch (const std::exception& error) {
        complaint = error.what();
    }
    std::snprintf(report->complaint, sizeof report->complaint, "%s", complaint.c_str());
    std::fflush(nullptr);
    _exit(0); // what a plugin does when it is unloaded is not asked
}

std::string endOf(int status) {
    if (WIFSIGNALED(status)) {
        const int number = WTERMSIG(status);
        if (number == SIGALRM) return "it does not end within " + std::to_string(secondsToEnd) + " seconds";
        const char* const name = sigabbrev_np(number);
        return "the process ended by " + (name ? "SIG" + std::string(name) : "signal " + std::to_string(number));
    }
    return "the process ended with the code " + std::to_string(WEXITSTATUS(status));
}

} // namespace

std::string inChild(const std::function<std::string()>& body) {
    Report* const outer = report;
    report = newReport();
    const std::string folder = newFolder();
    std::fflush(nullptr);
    const pid_t child = fork();
    if (child == 0) runChild(folder, body);
    int status = 0;
    const bool hasRun = child > 0 && waitpid(child, &status, 0) == child;
    std::error_code error;
    std::filesystem::remove_all(folder, error);
    std::string complaint = !hasRun ? "no child process can be started" : report->complaint;
    if (hasRun && status != 0) {
        complaint = endOf(status);
        if (report->step[0] != '\0') complaint = report->step + (": " + complaint);
    }
    munmap(report, sizeof(Report));
    report = outer;
    return complaint;
}

void step(const std::string& text) {
    if (report) std::snprintf(report->step, sizeof report->step, "%s", text.c_str());
}

} // namespace host::validator
