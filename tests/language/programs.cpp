#include "programs.h"

#include "probe.h"

#include "entries/entries.h"
#include "entries/plugin.h"
#include "language/language.h"
#include "model/objects.h"
#include "values/strings.h"

#include <sstream>

void startHostWithProbe() {
    static const bool started = (host::startHost(), registerProbe(), true);
    static_cast<void>(started);
}

void startHostWithPlugins() {
    startHostWithProbe();
    static const bool loaded = (host::loadPlugin(CHROMASIBLING), host::loadPlugin(CHROMABRIDGE), true);
    static_cast<void>(loaded);
}

Outcome runProgram(const std::string& text) {
    startHostWithProbe();
    takeProbeEvents();
    const std::size_t objects = host::liveObjectCount(), strings = host::liveStringCount();
    std::ostringstream output, errors;
    const int exitCode = host::language::runText("test.bas", text, output, errors);
    EXPECT_EQ(host::liveObjectCount(), objects) << "objects leaked or were released twice";
    EXPECT_EQ(host::liveStringCount(), strings) << "strings leaked or were released twice";
    return {exitCode, output.str(), errors.str()};
}

std::string repeated(const std::string& text, std::size_t times) {
    std::string all;
    for (std::size_t i = 0; i < times; ++i)
        all += text;
    return all;
}
