// The driver of the fault matrix and the soak: all bound functions, all that they may be called with, all that may fail
// meanwhile.
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

// A message that fails in the next call answers a number or a word.
void expectNumber(bool answersNumber);
// Whether an NSException was being turned into a host exception when the fault struck; expectNumber forgets it.
bool wasBridging();

std::size_t liveBlocks(); // of the heap; 0 where the platform's own comings and goings are unknown

// Makes the native objects, and files in the working folder.
void prepareNatives();
// Null, an empty object, and one around each native object; arguments with such objects, names that mean something, files.
extern const host::validator::Forms nativeForms;
extern chroma::id testException, testObject; // what messages throw
std::size_t retainsOfNatives();
// Runs what the platform has put off to its run loop, if it has one.
void settle();

struct Function : host::validator::Function {
    bool isQuiet;  // drops NSExceptions
    bool converts; // drops the first message's, and asks another colour
};

// Starts a host of that version, loads the plugin and lists the functions that its records bind, and the lifecycle's.
std::vector<Function> start(double version, const std::vector<std::string>& missing, bool withSibling);
extern std::set<std::string> missingEntries;
extern bool hasSibling;

// A host that only counts up, or only down, loses what it counts: its values get references to lose, and nothing balances.
bool hostCounts();

struct Verdict {
    bool struck = false;
    bool raised = false;   // a host exception
    std::string complaint; // empty: all promises were kept
    // What came of it, in words, each before a line's end: the elements of an array, or the result and the outputs. No word:
    // the null one.
    std::string outcome;
};

// With a fault the outcome must be that of the plain call, without one, or null in places.
Verdict call(const Function& function, const Choice& choice, Plan plan = {}, const Verdict* plain = nullptr);

} // namespace matrix
