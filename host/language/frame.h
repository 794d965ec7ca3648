// What a running program works on: its variables, the temporaries of the step at hand, and the exceptions it raises.
//
// A step is a statement without blocks, or the condition or bound of a block: the stretch at whose end temporaries are released
// and autoreleased native objects go.
#pragma once

#include "language/source.h"

#include "model/exceptions.h"
#include "model/objects.h"
#include "model/strings.h"

#include <iosfwd>
#include <string_view>
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

// A host exception on its way to the Catch that takes it. Thrown only within the language, never across a bound function.
class Raised {
public:
    // Takes over the caller's reference.
    Raised(Object* exception, Offset offset) : exception_(exception), offset_(offset) {}
    Raised(const Raised& other) : exception_(other.exception_), offset_(other.offset_) { lock(exception_); }
    Raised& operator=(const Raised&) = delete;
    ~Raised() { unlock(exception_); }

    Object* exception() const { return exception_; }
    Offset offset() const { return offset_; } // where it was raised

private:
    Object* exception_;
    Offset offset_;
};

// Raises the pending exception.
[[noreturn]] void throwPending(Offset offset);

// Raises a new exception of the class.
[[noreturn]] void throwNew(Offset offset, std::string_view className, std::string_view message);

inline void checkPending(Offset offset) {
    if (hasPendingException()) throwPending(offset);
}

class Frame {
public:
    Frame(std::size_t variableCount, std::ostream& output) : output_(output), variables_(variableCount) {}
    Frame(const Frame&) = delete;
    Frame& operator=(const Frame&) = delete;

    Slot& variable(std::size_t index) { return variables_[index]; }
    std::ostream& output() { return output_; }

    // Takes over a reference that is given up at the end of the step.
    void keep(Object* object) { objects_.push_back(object); }
    void keep(String* string) { strings_.push_back(string); }
    Slot keep(Counting counting, Slot value) {
        if (counting == Counting::object) keep(value.object);
        if (counting == Counting::string) keep(value.string);
        return value;
    }

    struct Mark {
        std::size_t objects;
        std::size_t strings;
    };
    Mark mark() const { return {objects_.size(), strings_.size()}; }
    void release(Mark mark); // what was kept since

private:
    std::ostream& output_;
    std::vector<Slot> variables_;
    std::vector<Object*> objects_;
    std::vector<String*> strings_;
};

} // namespace host::language
