// What a plugin does to its process stays in a child process.
#pragma once

#include <functional>
#include <string>

namespace host::validator {

// Runs the body in a child process, in an empty folder that is also its home, and answers what the body answers. When it
// does not come back that is told, by the signal, with the latest step.
std::string inChild(const std::function<std::string()>& body);

// What the child does next.
void step(const std::string& text);

} // namespace host::validator
