#include "text/terminal.h"

#include <cstdlib>
#include <string_view>

#include <sys/ioctl.h>
#include <unistd.h>

namespace host {

bool showsColors(int descriptor) {
    const char* const terminal = std::getenv("TERM");
    const char* const forbidden = std::getenv("NO_COLOR");
    return isatty(descriptor) != 0 && terminal && *terminal && std::string_view(terminal) != "dumb" &&
           !(forbidden && *forbidden);
}

TerminalSize terminalSize() {
    winsize size = {};
    if (isatty(STDOUT_FILENO) == 0 || ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) != 0) return {};
    return {size.ws_col, size.ws_row};
}

} // namespace host
