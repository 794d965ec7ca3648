#include "language/library/process.h"

#include "model/exceptions.h"
#include "model/owned.h"
#include "system/interruption.h"

#include <array>
#include <cerrno>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <iostream>
#include <string>
#include <system_error>
#include <utility>

#include <poll.h>
#include <unistd.h>

namespace host::language::process {
namespace {

std::optional<int> wantedEnd;

// Waits until a terminal has a line or a signal arrives. A read without this wait is not interrupted by a signal that
// arrives just before it.
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

// Returns whether the input is at its end, after a read that failed. Otherwise raises the reason, such as a signal. Clears
// the state of the input, because a terminal can continue after its end.
bool isAtEnd() {
    const int reason = errno;
    const bool atEnd = std::feof(stdin) != 0;
    std::clearerr(stdin);
    std::cin.clear();
    if (!atEnd) raise("IOException", "The input cannot be read: " + std::generic_category().message(reason) + ".", reason);
    return atEnd;
}

// Reads a line as std::getline does. Stops if the user interrupts, also in a line without an end.
bool readLine(std::string& line) {
    for (int c = std::cin.get(); c != '\n'; c = std::cin.get()) {
        if (!std::cin) return std::cin.eof() && !line.empty();
        line += static_cast<char>(c);
        if (line.size() > maxTextBytes) return true; // the line is too long
        checkInterruption();
    }
    return true;
}

} // namespace

String* input() {
    std::string line;
    std::cout.flush();
    awaitLine();
    errno = 0;
    if (interruptWanted || !readLine(line)) {
        if (isAtEnd()) raise("IOException", "There is no more input.");
        return nullptr;
    }
    if (line.size() > maxTextBytes) {
        raise("OutOfMemoryException", "A text cannot have more than 256 MB.");
        return nullptr;
    }
    if (!line.empty() && line.back() == '\r') line.pop_back();
    return ownString(line).release();
}

HostBoolean endOfInput() {
    std::cout.flush();
    awaitLine();
    errno = 0;
    if (!interruptWanted && std::cin.peek() != std::char_traits<char>::eof()) return false;
    return isAtEnd();
}

void printError(String* text) {
    std::cout.flush(); // so that a terminal shows both in order
    std::cerr << utf8Of(text) << std::endl;
}

String* now() {
    const std::time_t time = std::time(nullptr);
    std::tm local = {};
    localtime_r(&time, &local);
    std::array<char, 32> text = {};
    const std::size_t size = std::strftime(text.data(), text.size(), "%Y-%m-%d %H:%M:%S", &local);
    return newString({text.data(), size});
}

double unixTime() { return std::chrono::duration<double>(std::chrono::system_clock::now().time_since_epoch()).count(); }

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
