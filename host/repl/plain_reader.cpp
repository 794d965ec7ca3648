#include "repl/line_reader.h"

#include "repl/signals.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <optional>

#include <unistd.h>

namespace host::repl {
namespace {

class PlainReader final : public LineReader {
public:
    PlainReader() {
        if (isatty(STDIN_FILENO)) signals_.emplace(); // Ctrl-C drops the line and ends the read that waits for it
    }
    ~PlainReader() override { std::free(buffer_); }
    PlainReader(const PlainReader&) = delete;
    PlainReader& operator=(const PlainReader&) = delete;

    Line read(const char* prompt) override {
        if (signals_) signals_->forget();
        for (;;) {
            if (signals_) {
                std::fputs(prompt, stdout);
                std::fflush(stdout);
            }
            errno = 0;
            const ssize_t length = getline(&buffer_, &size_, stdin);
            if (length >= 0) {
                std::string text(buffer_, static_cast<std::size_t>(length));
                if (!text.empty() && text.back() == '\n') text.pop_back();
                return {Line::End::entered, std::move(text)};
            }
            const bool isInterrupted = errno == EINTR;
            if (!signals_ && !isInterrupted) return {Line::End::input, {}};
            std::clearerr(stdin); // reading from a terminal can continue after Ctrl-D
            std::fputs("\n", stdout);
            if (!isInterrupted) return {Line::End::input, {}};
            if (interrupted()) return {Line::End::interrupted, {}};
        }
    }

    void remember(const std::string&) override {} // there is no history

private:
    std::optional<SignalScope> signals_; // none without a terminal
    char* buffer_ = nullptr;
    std::size_t size_ = 0;
};

} // namespace

std::unique_ptr<LineReader> plainReader() { return std::make_unique<PlainReader>(); }

} // namespace host::repl
