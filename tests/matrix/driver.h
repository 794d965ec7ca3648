// The driver of the fault matrix and the soak: all bound functions, all arguments for them, and all faults during a call.
#pragma once

#include "platform/objc.h"
#include "validator/faults.h"
#include "validator/functions.h"

#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace matrix {

using host::validator::Choice;
using host::validator::Fault;
using host::validator::Form;
using host::validator::Plan;
using host::validator::Suspension;

// Sets whether a message that fails in the next call returns a number or a word.
void expectNumber(bool returnsNumber);
// Returns whether the fault was injected while an NSException was converted to a host exception. expectNumber resets this.
bool wasBridging();

std::size_t liveBlocks(); // heap blocks; 0 if the platform's own allocations are unknown

// Creates the native objects, and files in the working folder.
void prepareNatives();
// The receivers are null, an empty object, and one around each native object. The arguments are such objects, meaningful
// names, and files.
extern const host::validator::Forms nativeForms;
extern chroma::id testException, testObject; // the objects that messages throw
std::size_t retainsOfNatives();
// Runs the work that the platform has deferred to its run loop, if it has one.
void settle();

struct Function : host::validator::Function {
    bool isQuiet;  // drops NSExceptions
    bool converts; // drops the first message's NSException and continues with another colour
};

// Starts a host of the version, loads the plugin, and returns the functions that its records bind, including those of the
// lifecycle.
std::vector<Function> start(double version, const std::vector<std::string>& missing, bool withSibling);
extern std::set<std::string> missingEntries;
extern bool hasSibling;

// Returns whether the host both retains and releases. Otherwise its values get surplus references, and no balance is
// checked.
bool hostCounts();

struct Verdict {
    bool injected = false;
    bool raised = false;   // whether a host exception was raised
    std::string complaint; // empty if all expectations hold
    // The outcome as words, each followed by a newline: the elements of an array, or the result and the outputs. An empty
    // word represents null.
    std::string outcome;
};

// Calls the function. With a fault, the outcome must equal that of the plain call, or be null in places.
Verdict call(const Function& function, const Choice& choice, Plan plan = {}, const Verdict* plain = nullptr);

} // namespace matrix
