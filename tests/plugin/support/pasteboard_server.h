// The server behind the platform's pasteboards, where there is one: started for a test and ended after it.
#pragma once

#include "support/plugin_test.h"

#include <cstdlib>
#include <dlfcn.h>
#include <filesystem>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

class PasteboardServer {
public:
    // The server and this process meet in a folder of their own, so that a user's server is left alone.
    PasteboardServer() {
        if (!platform::isGNUstep) return;
        folder_ = ::testing::TempDir() + "pasteboard " + std::to_string(getpid());
        std::filesystem::create_directory(folder_);
        setenv("TMPDIR", folder_.c_str(), 1);
        char program[] = "gpbs", option[] = "--no-fork";
        char* const arguments[] = {program, option, nullptr};
        reason_ = "gpbs is not installed";
        if (posix_spawnp(&process_, program, nullptr, nullptr, arguments, environ) != 0) return;
        reason_ = "gpbs does not answer";
        for (int attempt = 0; attempt < 100 && !reason_.empty(); ++attempt) {
            usleep(50000);
            if (answers()) reason_.clear();
        }
    }
    ~PasteboardServer() {
        if (process_ > 0) {
            kill(process_, SIGTERM);
            waitpid(process_, nullptr, 0);
        }
        if (!folder_.empty()) std::filesystem::remove_all(folder_);
    }
    PasteboardServer(const PasteboardServer&) = delete;
    PasteboardServer& operator=(const PasteboardServer&) = delete;

    bool isReachable() const { return reason_.empty(); }
    // Why it is not reachable.
    const std::string& reason() const { return reason_; }

    // Lets the general pasteboard take colours, as a program does before it writes.
    void declareColorType() const {
        const auto* const type = static_cast<const chroma::id*>(dlsym(RTLD_DEFAULT, "NSColorPboardType"));
        ASSERT_NE(type, nullptr);
        const chroma::id types = native::tell("NSArray", "arrayWithObjects:count:", type, chroma::NSUInteger{1});
        native::tell<chroma::NSInteger>(native::tell("NSPasteboard", "generalPasteboard"), "declareTypes:owner:", types,
                                        chroma::id{});
    }

private:
    static bool answers() {
        const chroma::id name = native::tell(native::string("GNUstepGSPasteboardServer"), "autorelease");
        const chroma::id host = native::tell(native::string(""), "autorelease");
        return native::tell("NSConnection", "rootProxyForConnectionWithRegisteredName:host:", name, host) != nullptr;
    }

    std::string folder_, reason_;
    pid_t process_ = -1;
};
