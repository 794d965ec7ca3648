// The class Probe, as a plugin would register it. It shows how the language calls a class and when it releases its objects.
#pragma once

#include <string>

// Registers the class through the host's entry points, once per process.
void registerProbe();

// Returns the objects destroyed since the last call, each as "-" and its number.
std::string takeProbeEvents();
