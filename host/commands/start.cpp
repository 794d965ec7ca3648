#include "commands/start.h"

#include "entries/plugin.h"

namespace host::commands {

void startHost(const Start& start, bool sibling) {
    host::startHost(start.host);
    if (sibling) loadPlugin(bundledPlugin("libchromasibling.so"));
    if (start.plugins.empty()) loadPlugin(bundledPlugin("libchromabridge.so"));
    for (const std::string& path : start.plugins)
        loadPlugin(path);
}

} // namespace host::commands
