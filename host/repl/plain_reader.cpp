#include "repl/line_reader.h"

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <unistd.h>

namespace host::repl {
namespace {

class PlainReader final : public LineReader {
public:
    // Ctrl-C gives up the line: the terminal drops it, and the read that waits for it ends.
    PlainReader() {
        if (!prompts_) return;
        struct sigaction action = {};
        action.sa_handler = [](int) {};
        sigaction(SIGINT, &action, nullptr);
    }
    ~PlainReader() override { std::free(buffer_); }
    PlainReader(const PlainReader&) = delete;
    PlainReader& operator=(const PlainReader&) = delete;

    Line read(const char* prompt) override {
        if (prompts_) {
            std::fputs(prompt, stdout);
            std::fflush(stdout);
        }
        errno = 0;
        const ssize_t length = getline(&buffer_, &size_, stdin);
        if (length < 0) {
            if (errno != EINTR) return {Line::End::input, {}};
            std::clearerr(stdin);
            std::fputs("\n", stdout);
            return {Line::End::interrupted, {}};
        }
        std::string text(buffer_, static_cast<std::size_t>(length));
        if (!text.empty() && text.back() == '\n') text.pop_back();
        return {Line::End::entered, std::move(text)};
    }

private:
    const bool prompts_ = isatty(STDIN_FILENO) != 0;
    char* buffer_ = nullptr;
    std::size_t size_ = 0;
};

} // namespace

std::unique_ptr<LineReader> plainReader() { return std::make_unique<PlainReader>(); }

} // namespace host::repl
