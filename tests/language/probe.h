// The class Probe: what a plugin would register, made to show how the language calls it and when it lets go of its objects.
#pragma once

#include <string>

// Registers the class through the host's entry points. Once in a process.
void registerProbe();

// The objects that went since the last time: for each "-" and its number.
std::string takeProbeEvents();
