// Faults that strike while one call of a bound function runs: at the n-th message it sends, the n-th allocation, the n-th value
// that the host makes for it. What runs inside the host is not counted.
#pragma once

#include "chromabridge/host_abi.h"
#include "platform/objc.h"

#include <cstddef>
#include <set>
#include <string>

namespace matrix {

enum class Fault {
    None,
    Raise,           // the message raises an NSException
    Throw,           // the message throws an object that is none
    AnswerNil,       // the message answers nil or zero and does nothing
    FailAllocation,  // one allocation fails
    ExhaustMemory,   // that allocation and all later ones fail
    HostAnswersNull, // an entry of the host answers null
    HostThrows,      // an entry of the host that makes a string or a block throws a C++ exception
    AfterTheLast
};

struct Plan {
    Fault fault = Fault::None;
    int at = 0; // from 1
};

// What the last armed call met.
struct Traces {
    bool struck = false;         // the fault has struck
    bool struckBridging = false; // at a message that turns an NSException into a host exception
    int raised = 0;              // host exceptions, the dropped ones included
};

// What the messages throw; both live as long as the process.
extern chroma::id testException, testObject;

void prepareThrownObjects();

// Counting starts, with messages of the function answering a component or a word, and ends.
void arm(Plan plan, bool answersNumber);
Traces disarm();

// Nothing is counted while one lives.
class Suspension {
public:
    Suspension();
    ~Suspension();
    Suspension(const Suspension&) = delete;
    Suspension& operator=(const Suspension&) = delete;
};

// Whether the next event of these faults is the one that was planned.
bool strikes(Fault first, Fault last);

// Heap blocks that are alive.
std::size_t liveBlocks();

// The reference host's resolver, counting; the host's exceptions are counted too. `missing` entries are withheld.
void* resolveEntry(const char* name);
extern std::set<std::string> missingEntries;

} // namespace matrix
