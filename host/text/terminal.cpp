#include "text/terminal.h"

#include <cstdlib>
#include <string_view>

#include <unistd.h>

namespace host {

bool showsColors(int descriptor) {
    const char* const terminal = std::getenv("TERM");
    const char* const forbidden = std::getenv("NO_COLOR");
    return isatty(descriptor) != 0 && terminal && *terminal && std::string_view(terminal) != "dumb" &&
           !(forbidden && *forbidden);
}

} // namespace host
