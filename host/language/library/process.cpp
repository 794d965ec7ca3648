#include "language/library/process.h"

#include "model/exceptions.h"
#include "model/owned.h"

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <string>
#include <utility>

#include <poll.h>
#include <unistd.h>

namespace host::language::process {
namespace {

std::optional<int> wantedEnd;

// Until a terminal has a line. Outside of this a signal that comes a moment before the read does not end it.
void awaitLine() {
    if (!isatty(STDIN_FILENO)) return;
    sigset_t interruption, before;
    sigemptyset(&interruption);
    sigaddset(&interruption, SIGINT);
    pthread_sigmask(SIG_BLOCK, &interruption, &before);
    pollfd terminal = {STDIN_FILENO, POLLIN, 0};
    if (!interruptWanted) ppoll(&terminal, 1, nullptr, &before);
    pthread_sigmask(SIG_SETMASK, &before, nullptr);
}

} // namespace

volatile std::sig_atomic_t interruptWanted = 0;

String* input() {
    std::string line;
    std::cout.flush();
    awaitLine();
    if (interruptWanted || !std::getline(std::cin, line)) {
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
