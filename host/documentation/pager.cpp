#include "documentation/pager.h"

#include "documentation/browser.h"
#include "text/terminal.h"

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <cstdlib>

#include <sys/wait.h>

namespace host::documentation {
namespace {

// Ignores a signal in this process while it lives.
class Ignored {
public:
    explicit Ignored(int signal) : signal_(signal) {
        struct sigaction action = {};
        action.sa_handler = SIG_IGN;
        sigaction(signal, &action, &before_);
    }
    ~Ignored() { sigaction(signal_, &before_, nullptr); }
    Ignored(const Ignored&) = delete;
    Ignored& operator=(const Ignored&) = delete;

private:
    const int signal_;
    struct sigaction before_ = {};
};

void write(const std::string& text, FILE* file) { std::fwrite(text.data(), 1, text.size(), file); }

} // namespace

std::size_t outputWidth() {
    constexpr std::size_t narrowest = 40;
    const std::size_t columns = terminalSize().columns;
    return columns == 0 ? usualWidth : std::max(columns, narrowest);
}

void showPaged(const std::string& text) {
    constexpr const char* usualPager = "if command -v less >/dev/null; then less -R; else more; fi";
    std::fflush(stdout);
    const std::size_t rows = terminalSize().rows;
    const auto lines = static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n'));
    const char* const pager = std::getenv("PAGER");
    const auto print = [&] {
        write(text, stdout);
        std::fflush(stdout);
    };
    FILE* const pipe = rows != 0 && lines >= rows ? popen(pager && *pager ? pager : usualPager, "w") : nullptr;
    if (!pipe) return print();
    int result = 0;
    {
        const Ignored quit(SIGPIPE), interrupt(SIGINT); // the pager handles both
        write(text, pipe);
        result = pclose(pipe);
    }
    constexpr int notExecutable = 126, notFound = 127; // the exit codes of a shell
    if (WIFEXITED(result) && (WEXITSTATUS(result) == notExecutable || WEXITSTATUS(result) == notFound)) print();
}

} // namespace host::documentation
