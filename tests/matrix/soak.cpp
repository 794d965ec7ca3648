// soak CALLS performs mixed calls in one process, one in four with a fault. No call may leak, and memory may not grow after
// the first tenth.
#include "driver.h"

#include "validator/child.h"

#include <cstdio>
#include <cstdlib>
#include <random>

#include <malloc.h>

namespace {

// Returns the memory that the heap has taken from the system, holes included. The process's size would include an
// emulator's translations.
long heapKiB() {
    const struct mallinfo2 info = mallinfo2();
    return static_cast<long>((info.arena + info.hblkhd) / 1024);
}

// Returns the complaint, or the empty string.
std::string soak(long calls) {
    using namespace matrix;
    constexpr long mostGrowth = 512; // in KiB: the bins of the C library, and lists that a platform keeps
    const std::vector<Function> functions = start(2021.0, {}, true);
    std::mt19937 random(2021);
    const auto below = [&random](std::size_t limit) { return random() % limit; };

    // Calls everything once without a fault, so that objects which are created once exist.
    for (const Function& function : functions)
        for (const Choice& choice : choicesFor(function))
            call(function, choice);
    long before = 0, raising = 0;
    for (long i = 0; i < calls; ++i) {
        if (i == calls / 10) before = heapKiB();
        const Function& function = functions[below(functions.size())];
        const std::vector<Choice> choices = choicesFor(function);
        const Choice& choice = choices[below(choices.size())];
        Verdict verdict = call(function, choice);
        const auto fault = static_cast<Fault>(1 + below(static_cast<std::size_t>(Fault::hostAlwaysThrows)));
        if (const Verdict plain = verdict; plain.complaint.empty() && below(4) == 0)
            verdict = call(function, choice, {fault, 1 + static_cast<int>(below(8))}, &plain);
        raising += verdict.raised;
        if (!verdict.complaint.empty()) return "call " + std::to_string(i) + ", " + function.name + ": " + verdict.complaint;
    }
    const long growth = heapKiB() - before;
    std::fprintf(stderr,
                 "soak: %ld calls, %ld with host exceptions, %ld KiB of heap, %ld KiB of them since the first tenth\n",
                 calls, raising, before + growth, growth);
    return raising == 0 || growth > mostGrowth ? "too few host exceptions, or the heap grew too much" : "";
}

} // namespace

int main(int count, char** arguments) {
    const long calls = count > 1 ? std::atol(arguments[1]) : 0;
    const std::string complaint = host::validator::inChild([&] { return soak(calls); });
    if (complaint.empty()) return 0;
    std::printf("soak: %s\n", complaint.c_str());
    return 1;
}
