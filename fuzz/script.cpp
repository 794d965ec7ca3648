// Feeds untrusted programs. Each is refused or run, as a file and as input of a prompt, and must not leak. Programs that
// name a class of files are only checked.
#include "require.h"

#include "entries/entries.h"
#include "language/language.h"
#include "language/session.h"
#include "model/objects.h"
#include "text/characters.h"
#include "values/strings.h"

#include <sys/time.h>

#include <algorithm>
#include <csignal>
#include <cstdint>
#include <new>
#include <sstream>

extern "C" void REALPluginMain(REALresolver resolver);

using namespace host;
using fuzz::require;

namespace {

constexpr std::size_t maxMemory = 64 << 20;

volatile std::sig_atomic_t run = 0; // the number of the running program

// Interrupts a program that has been running since the previous tick or longer.
void tick(int) {
    static std::sig_atomic_t before = 0;
    if (run == before) language::interrupt();
    before = run;
}

class Silence final : public language::Presenter {
    void present(const Type&, Slot) override {}
};

bool names(std::string text, std::initializer_list<const char*> words) {
    std::transform(text.begin(), text.end(), text.begin(), lower);
    return std::any_of(words.begin(), words.end(), [&](const char* word) { return text.find(word) != text.npos; });
}

void runAsFile(const std::string& text) {
    std::ostringstream output, errors;
    const int exitCode = language::runText("fuzz", text, output, errors);
    require(exitCode == 0 || !errors.str().empty() || names(text, {"quit"}), "a failure is reported");
}

// Runs the first line and then the rest, which may use the line's declarations.
void runAtPrompt(const std::string& text) {
    std::ostringstream output, warnings;
    Silence presenter;
    language::Session session("prompt", output, presenter);
    const std::size_t lineEnd = std::min(text.find('\n'), text.size());
    for (const std::string& piece : {text.substr(0, lineEnd), text.substr(lineEnd)})
        if (!session.needsMore(piece)) session.run(piece, warnings);
}

} // namespace

// Refuse a program's memory requests before the machine runs out of memory. These functions are visible so that the C++
// library uses them too.
#pragma GCC visibility push(default)
void* operator new(std::size_t size) {
    void* const memory = size <= maxMemory ? std::malloc(size) : nullptr;
    if (!memory) throw std::bad_alloc();
    return memory;
}
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }
#pragma GCC visibility pop

extern "C" const char* __asan_default_options() {
    return "malloc_context_size=5:alloc_dealloc_mismatch=0:allocator_may_return_null=1:max_allocation_size_mb=64";
}

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    startHost();
    REALPluginMain(resolveEntry);
    struct sigaction action = {};
    action.sa_handler = tick;
    action.sa_flags = SA_RESTART;
    sigaction(SIGVTALRM, &action, nullptr);
    const itimerval period = {{0, 20000}, {0, 20000}};
    setitimer(ITIMER_VIRTUAL, &period, nullptr);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    const std::size_t objects = liveObjectCount(), strings = liveStringCount();
    std::ostringstream errors;
    const bool isValid = language::checkText("fuzz", text, errors) == 0;
    require(isValid || !errors.str().empty(), "an error is reported");
    ++run;
    if (!names(text, {"folderitem", "nscolorlist"})) {
        if (isValid) runAsFile(text);
        ++run;
        runAtPrompt(text);
    }
    require(liveObjectCount() == objects && liveStringCount() == strings, "nothing is leaked");
    return 0;
}
