// The state of a running program: variables, the temporaries of the current step, and the exceptions it raises.
//
// A step is a statement without blocks, or the condition or bound of a block. At its end, temporaries and autoreleased
// native objects are released.
#pragma once

#include "language/presentation.h"
#include "language/reading/source.h"

#include "model/classes.h"
#include "model/exceptions.h"
#include "model/owned.h"

#include <cstdint>
#include <iosfwd>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

namespace host::language {

// How a value of some type carries references.
enum class Counting : unsigned char { none, string, object };
Counting countingOf(const Type& type);

using host::lock;
using host::unlock;

inline void lock(Counting counting, Slot value) {
    if (counting == Counting::object) lock(value.object);
    if (counting == Counting::string) lock(value.string);
}
inline void unlock(Counting counting, Slot value) {
    if (counting == Counting::object) unlock(value.object);
    if (counting == Counting::string) unlock(value.string);
}

// A call of a procedure that has not returned yet.
struct ActiveCall {
    Offset offset; // of the call
    const Method* procedure;
    const ActiveCall* caller; // null for a call by the program
};

// A host exception that propagates to its Catch. It is thrown only within the language, never across a bound function.
class Raised {
public:
    Raised(Owned<Object> exception, Offset offset) : exception_(std::move(exception)), offset_(offset) {}

    Object* exception() const { return exception_.get(); }
    Offset offset() const { return offset_; } // where it was raised

    // Returns the calls that it has ended, the innermost first.
    const std::vector<ActiveCall>& ended() const { return ended_; }
    void end(const ActiveCall& call) { ended_.push_back(call); }

private:
    Owned<Object> exception_;
    Offset offset_;
    std::vector<ActiveCall> ended_; // their `caller` pointers are no longer valid
};

// Raises the pending exception.
[[noreturn]] void throwPending(Offset offset);

// Raises a new exception of the class.
[[noreturn]] void throwNew(Offset offset, std::string_view className, std::string_view message);

[[noreturn]] void failMemory(Offset offset);            // raises OutOfMemoryException
void requireTextSize(std::size_t bytes, Offset offset); // the same for more than maxTextBytes

inline void checkPending(Offset offset) {
    if (hasPendingException()) throwPending(offset);
}

// The place of a variable: in the program, in the procedure that runs, or, for a parameter by reference, where the
// procedure's slot points.
struct VariablePlace {
    enum class Storage : std::uint8_t { program, procedure, byReference };
    Storage storage = Storage::program;
    std::uint32_t index = 0;
};

// The state that all calls of a running program share.
struct Execution {
    std::ostream& output;
    Presenter* presenter = nullptr; // null if the program presents nothing
    std::vector<Slot> variables = {};
    std::vector<Object*> objects = {}; // temporaries
    std::vector<String*> strings = {};
    unsigned depth = 0;                    // of calls
    const ActiveCall* innermost = nullptr; // null outside of procedures
    const Source* source = nullptr;        // of the code that runs
    std::optional<int> exitCode = {};      // once the program has quit
};

// One call of a procedure, or the program itself.
class Frame {
public:
    explicit Frame(Execution& execution) : execution_(execution) {}
    Frame(Frame& caller, std::size_t variableCount, Counting result)
        : execution_(caller.execution_), variables_(variableCount), resultCounting_(result) {}
    Frame(const Frame&) = delete;
    Frame& operator=(const Frame&) = delete;
    ~Frame() { unlock(resultCounting_, result_); }

    Slot& variable(VariablePlace place) {
        if (place.storage == VariablePlace::Storage::program) return execution_.variables[place.index];
        Slot& slot = variables_[place.index];
        return place.storage == VariablePlace::Storage::byReference ? *static_cast<Slot*>(slot.address) : slot;
    }
    Slot* procedureVariables() { return variables_.data(); }
    Execution& execution() { return execution_; }

    // Takes a reference to the value, which takeResult transfers to the caller.
    void setResult(Slot value) {
        lock(resultCounting_, value);
        unlock(resultCounting_, std::exchange(result_, value));
    }
    Slot takeResult() { return std::exchange(result_, Slot()); }

    // Takes ownership of a reference, which is released at the end of the step.
    void keep(Object* object) { execution_.objects.push_back(object); }
    void keep(String* string) { execution_.strings.push_back(string); }
    Slot keep(Counting counting, Slot value) {
        if (counting == Counting::object) keep(value.object);
        if (counting == Counting::string) keep(value.string);
        return value;
    }

    struct Mark {
        std::size_t objects;
        std::size_t strings;
    };
    Mark mark() const { return {execution_.objects.size(), execution_.strings.size()}; }
    void release(Mark mark); // releases everything kept since the mark

private:
    Execution& execution_;
    std::vector<Slot> variables_; // of the procedure
    Counting resultCounting_ = Counting::none;
    Slot result_;
};

} // namespace host::language
