#include "commands/start.h"

#include "entries/plugin.h"
#include "model/classes.h"
#include "values/platform.h"

#include <iostream>

namespace host::commands {

int version(const Start& start) {
    std::cout << "chromahost " CHROMA_VERSION << (sizeof(void*) == 8 ? ", 64 bits\n" : ", 32 bits\n");
    startHost(start, false);
    std::cout << "platform   " CHROMA_PLATFORM_NAME " " CHROMA_VERSION ", " << platform::library() << "\n";
    const std::vector<std::string> bundled = {bundledPlugin("libchromabridge.so")};
    for (const std::string& plugin : start.plugins.empty() ? bundled : start.plugins)
        std::cout << "plugin     " << (start.plugins.empty() ? "chromabridge " CHROMA_VERSION ", " : "") << plugin << "\n";
    std::cout << "           control version " << announcedControlVersion() << ", classes";
    for (const auto& info : registry().classes())
        if (!info->isBuiltIn()) std::cout << " " << info->name();
    std::cout << "\n";
    return success;
}

} // namespace host::commands
