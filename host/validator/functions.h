// The functions that a plugin's records bind, and the receivers and arguments to call them with.
#pragma once

#include "model/classes.h"

#include <functional>
#include <string>
#include <vector>

namespace host::validator {

// Creates a receiver or an argument, which the caller owns.
struct Form {
    std::function<Slot()> make;
    const char* refusal = nullptr; // the host exception that this value raises; null: none is certain
    std::string text = {};         // describes the value in messages: "an empty object"
};

// The sources of forms.
struct Forms {
    std::function<std::vector<Form>(const std::string& className)> ofReceiver; // null, an empty object, and others
    std::function<std::vector<Form>(const Parameter& parameter)> ofArgument;   // by value; the ordinary one first
};

struct Function {
    std::string name; // "NSColorZRX.getRGB/3"
    REALfunction address;
    Invoker invoke;
    Signature signature;
    HostInteger parameter;       // the argument of a getter after the receiver
    std::vector<Form> receivers; // empty: a shared method
    // The forms of each argument. An argument by reference has two: an address, whose memory the caller provides, and null.
    std::vector<std::vector<Form>> arguments;

    bool isAccessor = false; // gets `parameter` after the receiver
    // Whether it is a setter, and the property that reads the value back; null if none does.
    bool isSetter = false;
    const Property* property = nullptr;

    bool hasReceiver() const { return !receivers.empty(); }
};

// Returns the functions of the class's record: getters, setters, methods and shared methods. Skips what the host reads
// itself.
std::vector<Function> functionsOf(const ClassInfo& info, const Forms& forms);

// Returns whether the name says that the integer is an address, which cannot be invented.
bool isAddress(const Property& property);

// Returns a Function for a function of the class that no row of the record binds. It has a receiver, but no result and no
// parameters.
Function lifecycleFunction(const ClassInfo& info, const char* name, REALfunction address, const Forms& forms);

// Indices into Function::receivers.
constexpr std::size_t nullReceiver = 0, emptyReceiver = 1, ordinaryReceiver = 2;

// The index of the receiver, the index of the argument that is not the ordinary one (-1: none), and the index of its form.
struct Choice {
    std::size_t receiver = 0;
    int argument = -1;
    std::size_t form = 0;
};

// ordinaryChoicesFor() returns each receiver with only the ordinary arguments. choicesFor() returns everything that the
// declaration admits, and varies one argument at a time.
std::vector<Choice> ordinaryChoicesFor(const Function& function);
std::vector<Choice> choicesFor(const Function& function);

// Returns a description such as "Faulty.length/1 of an empty object with words = null".
std::string describe(const Function& function, const Choice& choice);

// The receiver and the arguments of a call.
class Arguments {
public:
    // Creates the receiver and the arguments, each with `extraReferences` references besides the caller's.
    Arguments(const Function& function, const Choice& choice, int extraReferences = 0);
    // Releases the caller's references. The extra references belong to whoever they were created for.
    ~Arguments();
    Arguments(const Arguments&) = delete;
    Arguments& operator=(const Arguments&) = delete;

    // Calls the function. The counted result belongs to the caller.
    void invoke(Slot& result) const { function_.invoke(function_.address, slots_, &result); }

    Object* receiver() const { return function_.hasReceiver() ? slots_[0].object : nullptr; }
    Slot argument(std::size_t place) const { return slots_[first_ + place]; }
    const Form& form(std::size_t argument) const;
    // Returns the value at the address of a by-reference argument, or null if the argument is not by reference or the
    // address is null.
    const Slot* output(std::size_t argument) const;

    // Returns how many of the receiver and the arguments are this object or string. It holds one reference for each.
    int referencesTo(const void* value) const;

private:
    void release(const Type& type, Slot slot) const;
    bool isCounted(std::size_t argument) const;
    bool isReference(std::size_t argument) const { return function_.signature.parameters[argument].byRef; }

    const Function& function_;
    const Choice choice_;
    const std::size_t first_; // the index of the first argument
    Slot slots_[maximumArguments + 1] = {}, outputs_[maximumArguments] = {};
};

} // namespace host::validator
