#include "language/library/process.h"

#include "model/exceptions.h"
#include "model/owned.h"

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <string>
#include <utility>

namespace host::language::process {
namespace {

std::optional<int> wantedEnd;

} // namespace

String* input() {
    std::string line;
    std::cout.flush();
    if (!std::getline(std::cin, line)) {
        const bool atEnd = std::feof(stdin) != 0;
        std::clearerr(stdin); // a signal may have ended it, and a terminal goes on
        std::cin.clear();
        raise("IOException", atEnd ? "There is no more input." : "The input cannot be read.");
        return nullptr;
    }
    if (!line.empty() && line.back() == '\r') line.pop_back();
    return ownString(line).release();
}

String* environment(String* name, String* otherwise) {
    const char* const value = std::getenv(utf8Of(name).c_str());
    return value ? ownString(value).release() : Owned<String>::shared(otherwise).release();
}

double microseconds() {
    using Clock = std::chrono::steady_clock;
    static const Clock::time_point start = Clock::now();
    return std::chrono::duration<double, std::micro>(Clock::now() - start).count();
}

void quit(HostInteger code) {
    constexpr HostInteger most = 255;
    if (code < 0 || code > most) {
        raise("OutOfBoundsException", "An exit code is from 0 to 255, not " + std::to_string(code) + ".");
        return;
    }
    wantedEnd = static_cast<int>(code);
    raise("RuntimeException", "The program quits.");
}

std::optional<int> takeWantedEnd() { return std::exchange(wantedEnd, std::nullopt); }

} // namespace host::language::process
