// The server behind the platform's pasteboards, where there is one: started for a test and ended after it.
#pragma once

#include <string>
#include <sys/types.h>

class PasteboardServer {
public:
    PasteboardServer();
    ~PasteboardServer();
    PasteboardServer(const PasteboardServer&) = delete;
    PasteboardServer& operator=(const PasteboardServer&) = delete;

    bool isReachable() const { return reason_.empty(); }
    // Why it is not reachable.
    const std::string& reason() const { return reason_; }

    // Lets the general pasteboard take colours, as a program does before it writes.
    void declareColorType() const;

private:
    std::string folder_, reason_;
    pid_t process_ = -1;
};
