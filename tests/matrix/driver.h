// The driver of the fault matrix and the soak: all bound functions, all that they may be called with, all that may fail
// meanwhile.
#pragma once

#include "model/classes.h"
#include "platform/objc.h"

#include <functional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace matrix {

enum class Fault {
    None,
    Raise,           // a message raises an NSException
    Throw,           // a message throws an object that is none
    AnswerNil,       // a message answers nil or zero and does nothing
    FailAllocation,  // one allocation fails
    ExhaustMemory,   // that allocation and all later ones fail
    HostAnswersNull, // an entry of the host answers null
    HostThrows,      // an entry of the host throws a C++ exception
    HostAlwaysThrows // so do all later ones
};

// The fault strikes at the n-th message, allocation or call of the host, from 1.
struct Plan {
    Fault fault = Fault::None;
    int at = 0;
    bool raisesAnyway = false; // whether the call raises a host exception without the fault
};

// What a call met.
struct Traces {
    bool struck = false;
    bool bridging = false; // before it struck: an NSException was being turned into a host exception
    int raised = 0;        // host exceptions, those included that the host dropped
};

// Between the two a call is counted. A message that fails answers a number or a word.
void arm(Plan plan, bool answersNumber);
Traces disarm();

// Nothing is counted while this is not 0: before, after, and inside the host.
extern int suspensions;
struct Suspension {
    Suspension() { ++suspensions; }
    Suspension(const Suspension&) = delete;
    ~Suspension() { --suspensions; }
};

// Whether the present event is the one that one of these faults waits for.
bool strikes(Fault first, Fault last);
void countRaised();
std::size_t liveBlocks(); // of the heap; 0 where the platform's own comings and goings are unknown

// A way to make an argument or a receiver; the value belongs to the caller.
struct Form {
    std::function<host::Slot()> make;
    const char* refusal = nullptr; // the host exception that answers this value; null: none is certain
};

// The ordinary form first. The forms of a by-reference argument are an address, which is the caller's affair, and none.
std::vector<Form> formsOf(const host::Parameter& parameter);
// Null, an empty object, and one around each native object.
std::vector<Form> receiversOf(const std::string& className);

// Makes the native objects, and files in the working folder.
void prepareNatives();
extern chroma::id testException, testObject; // what messages throw
std::size_t retainsOfNatives();
// Runs what the platform has put off to its run loop, if it has one.
void settle();

struct Function {
    std::string name;
    REALfunction address;
    host::Invoker invoke;
    host::Signature signature;
    std::vector<Form> receivers; // empty: a shared method
    std::vector<std::vector<Form>> arguments;
    bool isQuiet;  // drops NSExceptions
    bool converts; // drops the first message's, and asks another colour
};

// Starts a host of that version, loads the plugin and lists the functions that its records bind.
std::vector<Function> start(double version, const std::vector<std::string>& missing, bool withSibling);
extern std::set<std::string> missingEntries;

// A host that only counts up, or only down, loses what it counts: its values get references to lose, and nothing balances.
bool hostCounts();

// Which receiver; which argument is not the ordinary one (-1: none), and its form.
struct Choice {
    std::size_t receiver = 0;
    int argument = -1;
    std::size_t form = 0;
};
std::vector<Choice> choicesFor(const Function& function);

// What came of a call, in words, each behind a line's end: the elements of an array, or the result and the outputs. No word:
// the null one. Not on the heap, whose blocks are counted.
struct Outcome {
    char words[6000] = "";
    std::size_t length = 0;

    void add(const std::string& word);
    bool isNull() const { return std::string_view(words, length).find_first_not_of('\n') == std::string_view::npos; }
};

struct Verdict {
    bool struck = false;
    bool raised = false;   // a host exception
    std::string complaint; // empty: all promises were kept
    Outcome outcome;
};

// With a fault the outcome must be the one without it, or null in places; null: without a fault.
Verdict call(const Function& function, const Choice& choice, Plan plan, const Outcome* expected);

} // namespace matrix
