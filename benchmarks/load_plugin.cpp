// Measures how long the plugin takes to start: REALPluginMain from call to return, in microseconds, as one JSON object. The
// host only stores the class records. Each measurement runs in a separate process, and the result is their median.
#include "chromabridge/host_abi.h"

#include <nlohmann/json.hpp>

#include <dlfcn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace {

constexpr std::size_t measurements = 101;

std::array<REALclassDefinition*, 8> records;
std::size_t recordCount = 0;

double version() { return 2021.0; }
void announce(std::int32_t) {}
void keep(REALclassDefinition* record) { records.at(recordCount++) = record; }

void* resolve(const char* entryName) {
    if (std::strcmp(entryName, "REALGetRBVersion") == 0) return reinterpret_cast<void*>(version);
    if (std::strcmp(entryName, "RegisterPluginVersion") == 0) return reinterpret_cast<void*>(announce);
    if (std::strcmp(entryName, "PluginRegisterClass") == 0) return reinterpret_cast<void*>(keep);
    return nullptr;
}

// Returns the time in microseconds. It is negative if the library cannot be loaded or does not register its three classes.
double measure(const char* library) {
    void* const handle = dlopen(library, RTLD_NOW | RTLD_LOCAL);
    void* const symbol = handle ? dlsym(handle, "REALPluginMain") : nullptr;
    if (!symbol) return -1;
    const auto start = reinterpret_cast<REALPluginMainProc>(symbol);
    const auto before = std::chrono::steady_clock::now();
    start(resolve);
    const std::chrono::duration<double, std::micro> taken = std::chrono::steady_clock::now() - before;
    return recordCount == 3 ? taken.count() : -1;
}

double measureInChild(const char* library) {
    int ends[2];
    double result = -1;
    if (pipe(ends) != 0) return result;
    const pid_t child = fork();
    if (child == 0) {
        result = measure(library);
        _exit(write(ends[1], &result, sizeof result) == sizeof result ? 0 : 1);
    }
    close(ends[1]);
    if (read(ends[0], &result, sizeof result) != sizeof result) result = -1;
    close(ends[0]);
    if (child > 0) waitpid(child, nullptr, 0);
    return result;
}

} // namespace

// load_plugin LIBRARY
int main(int count, char** arguments) {
    if (count != 2) {
        std::fputs("usage: load_plugin LIBRARY\n", stderr);
        return 2;
    }
    std::array<double, measurements> results;
    for (double& result : results) {
        result = measureInChild(arguments[1]);
        if (result < 0) {
            std::fprintf(stderr, "load_plugin: %s does not start\n", arguments[1]);
            return 1;
        }
    }
    std::nth_element(results.begin(), results.begin() + measurements / 2, results.end());
    std::puts(nlohmann::ordered_json{{"load_us", results[measurements / 2]}}.dump().c_str());
}
