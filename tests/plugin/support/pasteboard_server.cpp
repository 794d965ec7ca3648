#include "support/pasteboard_server.h"

#include "support/native.h"
#include "support/platform_differences.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <dlfcn.h>
#include <filesystem>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace native;

namespace {

bool answers() {
    const id name = tell(string("GNUstepGSPasteboardServer"), "autorelease");
    const id host = tell(string(""), "autorelease");
    return tell(classNamed("NSConnection"), "rootProxyForConnectionWithRegisteredName:host:", name, host) != nullptr;
}

} // namespace

// The server and this process meet in a folder of their own, so that a user's server is left alone.
PasteboardServer::PasteboardServer() {
    if (!platform::isGNUstep) return;
    folder_ = ::testing::TempDir() + "pasteboard " + std::to_string(getpid());
    std::filesystem::create_directory(folder_);
    setenv("TMPDIR", folder_.c_str(), 1);
    char program[] = "gpbs", option[] = "--no-fork";
    char* const arguments[] = {program, option, nullptr};
    if (posix_spawnp(&process_, program, nullptr, nullptr, arguments, environ) != 0) {
        process_ = -1;
        reason_ = "gpbs is not installed";
        return;
    }
    for (int attempt = 0; attempt < 100; ++attempt) {
        if (answers()) return;
        usleep(50000);
    }
    reason_ = "gpbs does not answer";
}

PasteboardServer::~PasteboardServer() {
    if (process_ > 0) {
        kill(process_, SIGTERM);
        waitpid(process_, nullptr, 0);
    }
    if (!folder_.empty()) std::filesystem::remove_all(folder_);
}

void PasteboardServer::declareColorType() const {
    const auto* const type = static_cast<const id*>(dlsym(RTLD_DEFAULT, "NSColorPboardType"));
    ASSERT_NE(type, nullptr);
    const id types = tell(classNamed("NSArray"), "arrayWithObjects:count:", type, NSUInteger{1});
    tell<NSInteger>(tell(classNamed("NSPasteboard"), "generalPasteboard"), "declareTypes:owner:", types, id{});
}
