#include "validator/watch.h"

#include "validator/child.h"
#include "validator/entry_points.h"
#include "validator/faults.h"
#include "values/checked_memory.h"
#include "values/storage.h"

#include <algorithm>
#include <csignal>
#include <map>
#include <mutex>
#include <string_view>
#include <thread>
#include <type_traits>
#include <utility>

#include <sys/mman.h>

namespace host::validator {

namespace {

// ---- Notes

std::mutex notesLock;
std::vector<MisuseNote> notes;
Announcement announced;
std::thread::id hostThread;

// ---- Text that a plugin sees only while it has locked the string

struct HiddenText {
    const unsigned char* buffer; // the string's original buffer
    int locks = 0;               // the number of the plugin's locks
};
std::map<String*, HiddenText> hidden;
unsigned char* decoy = nullptr; // memory that nobody can read; null: nothing is hidden
constexpr std::size_t decoySize = std::size_t{1} << 20;

void noteUnlockedText(int, siginfo_t* info, void*) {
    const auto* const address = static_cast<unsigned char*>(info->si_addr);
    if (address >= decoy && address < decoy + decoySize) noteCrash("; it read the text of a string that it had not locked");
}

void setBuffer(String* string, const unsigned char* buffer) { writeAt(string, REALstringBufferOffset, buffer); }

// Shows all texts while it lives, because the host reads texts while it runs an entry point.
class ShownText {
public:
    ShownText() {
        ++depth;
        for (const auto& [string, text] : hidden)
            if (memory::isAlive(string)) setBuffer(string, text.buffer);
    }
    ShownText(const ShownText&) = delete;
    ShownText& operator=(const ShownText&) = delete;
    ~ShownText() {
        if (--depth > 0) return;
        for (auto at = hidden.begin(); at != hidden.end();) {
            const bool isAlive = memory::isAlive(at->first);
            if (isAlive && at->second.locks == 0) setBuffer(at->first, decoy);
            at = isAlive ? std::next(at) : hidden.erase(at);
        }
    }

private:
    static inline int depth = 0;
};

void countLocks(String* string, int change) {
    const auto found = hidden.find(string);
    if (found != hidden.end()) found->second.locks = std::max(0, found->second.locks + change);
}

// ---- The watched entries

template <class Argument>
constexpr bool isHostValue = std::is_convertible_v<Argument, Object*> || std::is_same_v<Argument, String*> ||
                             std::is_same_v<Argument, void*>; // an array

struct Watcher {
    template <class Result, class... Arguments>
    static Result onCall(std::string_view entry, Result (*target)(Arguments...), Arguments... arguments) {
        if (std::this_thread::get_id() != hostThread) {
            note(Misuse::otherThread, std::string(entry) + " was called on another thread");
            return Result();
        }
        if (!(isUsable(entry, arguments) && ...)) return Result();
        const ShownText shown;
        observe(entry, arguments...);
        if constexpr (std::is_void_v<Result>) {
            target(arguments...);
        } else {
            const Result result = target(arguments...);
            if constexpr (std::is_same_v<Result, String*>) hideText(result);
            (hideOutput(arguments), ...);
            return result;
        }
    }

private:
    template <class Argument>
    static bool isUsable(std::string_view entry, Argument argument) {
        if constexpr (isHostValue<Argument>) {
            if (!argument || memory::isAlive(argument)) return true;
            note(Misuse::destroyedValue, std::string(entry) + " was called with a value that is already destroyed");
            return false;
        } else {
            return true;
        }
    }

    template <class Argument>
    static void hideOutput(Argument) {}
    static void hideOutput(String** output) {
        if (output) hideText(*output);
    }

    template <class... Arguments>
    static void observe(std::string_view, Arguments...) {}
    static void observe(std::string_view entry, std::int32_t version) {
        if (entry != "RegisterPluginVersion") return;
        announced.versions.push_back(version);
        announced.afterClass = announced.afterClass || announced.classes > 0;
    }
    static void observe(std::string_view, REALclassDefinition*) { ++announced.classes; }
    static void observe(std::string_view entry, String* string) {
        if (entry == "REALLockString") countLocks(string, 1);
        if (entry == "REALUnlockString") countLocks(string, -1);
    }
};

} // namespace

void note(Misuse kind, const std::string& text) {
    const std::lock_guard<std::mutex> guard(notesLock);
    notes.push_back({kind, text});
}

std::vector<MisuseNote> takeMisuses() {
    const std::lock_guard<std::mutex> guard(notesLock);
    return std::exchange(notes, {});
}

void checkMemory(const std::string& writer) {
    if (!memory::isChecking()) return;
    const memory::Damage damage = memory::takeDamage();
    if (damage.beyond) note(Misuse::instanceData, writer + " wrote beyond the end of an object or string");
    if (damage.released) note(Misuse::destroyedValue, writer + " wrote to an object or string that is already destroyed");
}

const Announcement& announcement() { return announced; }

void* watchedEntry(const char* name) {
    if (hostThread == std::thread::id()) hostThread = std::this_thread::get_id();
    return entries::observed<Watcher>(name, observedEntry(name));
}

void hideUnlockedText() {
    void* const memory = mmap(nullptr, decoySize, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (memory == MAP_FAILED) return;
    decoy = static_cast<unsigned char*>(memory);
    struct sigaction action = {};
    action.sa_sigaction = noteUnlockedText;
    action.sa_flags = SA_SIGINFO | static_cast<int>(SA_RESETHAND); // the same read then crashes
    for (const int number : {SIGSEGV, SIGBUS})
        sigaction(number, &action, nullptr);
}

void hideText(String* string) {
    if (!decoy || !string) return;
    const auto* const buffer = readAt<const unsigned char*>(string, REALstringBufferOffset);
    if (hidden.try_emplace(string, HiddenText{buffer}).second) setBuffer(string, decoy);
}

void showAllText() {
    for (const auto& [string, text] : hidden)
        if (memory::isAlive(string)) setBuffer(string, text.buffer);
    hidden.clear();
}

} // namespace host::validator
