#include "validator/child.h"

#include <array>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <exception>
#include <filesystem>
#include <stdexcept>

#include <fcntl.h>
#include <poll.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace host::validator {

namespace {

// Lives in memory that parent and child share, so that it outlives the child.
struct Shared {
    std::atomic<std::uint32_t> steps;
    std::atomic<std::size_t> place;
    char step[4000];
    char note[200];
};
Shared* shared = nullptr;
int outlet = -1; // the child's end of the pipe for texts
// The receiver of runHere(). Null outside of runHere().
const std::function<void(const std::string&)>* receiverHere = nullptr;
constexpr std::uint32_t endMark = UINT32_MAX;

[[noreturn]] void failFor(const char* what) { throw std::runtime_error(what + (": " + std::string(std::strerror(errno)))); }

// ---- The child

void writeAll(const void* bytes, std::size_t size) {
    for (const char* at = static_cast<const char*>(bytes); size > 0;) {
        const ssize_t written = write(outlet, at, size);
        if (written < 0 && errno == EINTR) continue;
        if (written <= 0) _exit(1); // the parent notices the missing end mark
        at += written;
        size -= static_cast<std::size_t>(written);
    }
}

constexpr std::array stopping = {SIGINT, SIGTERM, SIGHUP};

[[noreturn]] void live(const std::string& folder, const std::function<void()>& body, int output) {
    setpgid(0, 0);
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    for (const int number : stopping)
        std::signal(number, SIG_DFL);
    setenv("HOME", folder.c_str(), 1);
    unsetenv("XDG_DATA_HOME");
    if (chdir(folder.c_str()) != 0) _exit(1);
    dup2(open("/dev/null", O_RDONLY | O_CLOEXEC), STDIN_FILENO);
    if (output >= 0) dup2(output, STDERR_FILENO);
    dup2(STDERR_FILENO, STDOUT_FILENO); // stdout of the parent belongs to the report
    try {
        body();
    } catch (const std::exception& error) {
        send(error.what());
    }
    std::fflush(nullptr);
    writeAll(&endMark, sizeof endMark);
    _exit(0); // unloading the plugin is not tested
}

// ---- The parent

volatile std::sig_atomic_t caught = 0;
void noteSignal(int number) { caught = number; }

class Signals {
public:
    Signals() {
        caught = 0;
        struct sigaction action = {};
        action.sa_handler = noteSignal;
        for (std::size_t i = 0; i < stopping.size(); ++i)
            sigaction(stopping[i], &action, &before_[i]);
        for (std::size_t i = 0; i < stopping.size(); ++i)
            if (before_[i].sa_handler == SIG_IGN) std::signal(stopping[i], SIG_IGN);
    }
    Signals(const Signals&) = delete;
    Signals& operator=(const Signals&) = delete;
    ~Signals() {
        for (std::size_t i = 0; i < stopping.size(); ++i)
            sigaction(stopping[i], &before_[i], nullptr);
        if (caught != 0) std::raise(caught);
    }

private:
    std::array<struct sigaction, stopping.size()> before_ = {};
};

class Folder {
public:
    Folder() {
        path_ = (std::filesystem::temp_directory_path() / "chromahost.XXXXXX").string();
        if (!mkdtemp(path_.data())) throw std::runtime_error("cannot create a folder in " + path_);
    }
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;
    ~Folder() {
        std::error_code error;
        std::filesystem::remove_all(path_, error);
    }
    const std::string& path() const { return path_; }

private:
    std::string path_;
};

class SharedMemory {
public:
    SharedMemory() : outer_(shared) {
        void* const memory = mmap(nullptr, sizeof(Shared), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
        if (memory == MAP_FAILED) failFor("no memory to share with a child process");
        shared = new (memory) Shared{};
    }
    SharedMemory(const SharedMemory&) = delete;
    SharedMemory& operator=(const SharedMemory&) = delete;
    ~SharedMemory() {
        munmap(shared, sizeof(Shared));
        shared = outer_;
    }

private:
    Shared* outer_;
};

class Pipe {
public:
    Pipe() {
        if (pipe2(ends_, O_CLOEXEC) != 0) failFor("no pipe from a child process");
        fcntl(ends_[0], F_SETFL, O_NONBLOCK);
    }
    Pipe(const Pipe&) = delete;
    Pipe& operator=(const Pipe&) = delete;
    ~Pipe() {
        close(ends_[0]);
        closeInlet();
    }
    void closeInlet() {
        if (ends_[1] >= 0) close(ends_[1]);
        ends_[1] = -1;
    }
    int outlet() const { return ends_[0]; }
    int inlet() const { return ends_[1]; }

    // Appends the bytes that are available. Returns false at the end of the pipe.
    bool drain(std::string& bytes) const {
        std::array<char, 1 << 14> chunk;
        for (;;) {
            const ssize_t count = read(ends_[0], chunk.data(), chunk.size());
            if (count > 0) {
                bytes.append(chunk.data(), static_cast<std::size_t>(count));
            } else if (count == 0 || errno != EINTR) {
                return count != 0;
            }
        }
    }

private:
    int ends_[2] = {-1, -1};
};

// Passes the complete texts at the start of the bytes to `receive`. Returns whether the end mark was among them.
bool takeTexts(std::string& bytes, const std::function<void(const std::string&)>& receive) {
    std::size_t at = 0;
    bool ended = false;
    for (std::uint32_t size = 0; bytes.size() - at >= sizeof size;) {
        std::memcpy(&size, bytes.data() + at, sizeof size);
        ended = size == endMark;
        if (ended || bytes.size() - at - sizeof size < size) break;
        receive(bytes.substr(at + sizeof size, size));
        at += sizeof size + size;
    }
    bytes.erase(0, at);
    return ended;
}

// Keeps the beginning of a long output and notes how much more there was.
class Captured {
public:
    void add(std::string& bytes) {
        const std::size_t room = limit - std::min(limit, text_.size());
        text_.append(bytes, 0, room);
        dropped_ += bytes.size() - std::min(room, bytes.size());
        bytes.clear();
    }
    std::string text() const { return dropped_ == 0 ? text_ : text_ + "\n[" + std::to_string(dropped_) + " further bytes]"; }

private:
    static constexpr std::size_t limit = 1 << 16;
    std::string text_;
    std::size_t dropped_ = 0;
};

std::string seconds(std::chrono::milliseconds time) {
    const auto count = time.count();
    if (count % 1000 == 0) return std::to_string(count / 1000) + (count == 1000 ? " second" : " seconds");
    return std::to_string(count) + " milliseconds";
}

std::string wordsFor(int status) {
    if (WIFSIGNALED(status)) {
        const int number = WTERMSIG(status);
        const char* const name = sigabbrev_np(number);
        return "crashed with " + (name ? "SIG" + std::string(name) : "signal " + std::to_string(number)) + shared->note;
    }
    return "exited with code " + std::to_string(WEXITSTATUS(status)) + " before it returned";
}

// Watches the child until it has ended.
class Watch {
public:
    Watch(pid_t child, Pipe& texts, Pipe& output, const std::function<void(const std::string&)>& receive,
          const Limits& limits)
        : child_(child), texts_(texts), output_(output), receive_(receive), limits_(limits) {}

    Ending run() {
        Ending ending;
        int status = 0;
        auto latest = Limits::Clock::now();
        for (std::uint32_t steps = 0; !hasEnded(status);) {
            wait();
            const auto now = Limits::Clock::now();
            const std::uint32_t counted = shared->steps;
            if (counted != steps) latest = now;
            steps = counted;
            if (caught != 0 || ending.kind != Ending::Kind::finished) {
                kill(-child_, SIGKILL);
            } else if (now >= limits_.end) {
                ending.kind = Ending::Kind::overdue;
                ending.words = "was stopped because the time for one plugin was over";
            } else if (now - latest >= limits_.forStep) {
                ending.kind = Ending::Kind::hung;
                ending.words = "did not return within " + seconds(limits_.forStep);
            }
        }
        kill(-child_, SIGKILL); // also the processes that the plugin has started
        take();
        if (ending.finished() && !reachedEnd_) {
            ending.kind = Ending::Kind::died;
            ending.words = wordsFor(status);
        }
        ending.step = shared->step;
        ending.place = shared->place;
        ending.output = captured_.text();
        return ending;
    }

private:
    bool hasEnded(int& status) {
        const pid_t ended = waitpid(child_, &status, WNOHANG);
        return ended == child_ || (ended < 0 && errno != EINTR);
    }

    void take() {
        hasTexts_ = texts_.drain(bytes_);
        reachedEnd_ = takeTexts(bytes_, receive_) || reachedEnd_;
        std::string written;
        hasOutput_ = output_.drain(written);
        captured_.add(written);
    }

    // Waits for the next bytes, but only for a moment, since a process that the plugin has started may keep the pipes open.
    void wait() {
        std::array<pollfd, 2> sources = {
            {{hasTexts_ ? texts_.outlet() : -1, POLLIN, 0}, {hasOutput_ ? output_.outlet() : -1, POLLIN, 0}}};
        poll(sources.data(), sources.size(), hasTexts_ ? 20 : 1);
        take();
    }

    const pid_t child_;
    Pipe &texts_, &output_;
    const std::function<void(const std::string&)>& receive_;
    const Limits& limits_;
    Captured captured_;
    std::string bytes_;
    bool hasTexts_ = true, hasOutput_ = true, reachedEnd_ = false;
};

} // namespace

Ending runChild(const std::function<void()>& body, const std::function<void(const std::string&)>& receive,
                const Limits& limits, Output output) {
    const Signals signals; // destroyed last, since its destructor may end this process
    const SharedMemory memory;
    const Folder folder;
    Pipe texts, written;
    std::fflush(nullptr);
    const pid_t child = fork();
    if (child < 0) failFor("no child process can be started");
    if (child == 0) {
        outlet = texts.inlet();
        live(folder.path(), body, output == Output::captured ? written.inlet() : -1);
    }
    setpgid(child, child); // both processes do this, since either may run first
    texts.closeInlet();
    written.closeInlet();
    return Watch(child, texts, written, receive, limits).run();
}

void runHere(const std::function<void()>& body, const std::function<void(const std::string&)>& receive) {
    receiverHere = &receive;
    body();
    receiverHere = nullptr;
}

void send(const std::string& text) {
    if (receiverHere) return (*receiverHere)(text);
    if (outlet < 0) return;
    const auto size = static_cast<std::uint32_t>(text.size());
    writeAll(&size, sizeof size);
    writeAll(text.data(), text.size());
}

void step(const std::string& text) {
    if (!shared) return;
    constexpr std::size_t room = sizeof shared->step - sizeof "...";
    std::snprintf(shared->step, sizeof shared->step, "%s%s", text.substr(0, room).c_str(), text.size() > room ? "..." : "");
    shared->note[0] = '\0';
    ++shared->steps;
}

std::string currentStep() { return shared ? shared->step : ""; }

void setPlace(std::size_t place) {
    if (shared) shared->place = place;
}

void noteCrash(const char* words) {
    if (shared) std::strncpy(shared->note, words, sizeof shared->note - 1);
}

std::string inChild(const std::function<std::string()>& body) {
    std::string result;
    const Ending ending =
        runChild([&] { send(body()); }, [&](const std::string& text) { result = text; }, {}, Output::inherited);
    if (ending.finished()) return result;
    return ending.step.empty() ? ending.words : ending.step + ": " + ending.words;
}

} // namespace host::validator
