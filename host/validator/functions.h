// The functions that a plugin's records bind, and all that they may be called with.
#pragma once

#include "model/classes.h"

#include <functional>
#include <string>
#include <vector>

namespace host::validator {

// A way to make a receiver or an argument; what is made belongs to the caller.
struct Form {
    std::function<Slot()> make;
    const char* refusal = nullptr; // the host exception that answers this value; null: none is certain
    std::string text = {};         // what it makes, for messages: "an empty object"
};

// Where forms come from.
struct Forms {
    std::function<std::vector<Form>(const std::string& className)> ofReceiver; // null, an empty object, and others
    std::function<std::vector<Form>(const Parameter& parameter)> ofArgument;   // by value; the ordinary one first
};

struct Function {
    std::string name; // "NSColorZRX.getRGB/3"
    REALfunction address;
    Invoker invoke;
    Signature signature;
    HostInteger parameter;                    // what a getter is called with behind the receiver
    std::vector<Form> receivers;              // empty: a shared method
    std::vector<std::vector<Form>> arguments; // of one by reference: an address, which is the caller's affair, and none

    bool isAccessor = false; // gets `parameter` after the receiver
    // A setter; what reads the property back, null if nothing does.
    bool isSetter = false;
    const Property* property = nullptr;

    bool hasReceiver() const { return !receivers.empty(); }
};

// Those of the class's record: getters, setters, methods and shared methods. What the host itself reads is not among them.
std::vector<Function> functionsOf(const ClassInfo& info, const Forms& forms);

// Returns whether the name says that the integer is an address, which nobody can make up.
bool isAddress(const Property& property);

// As functionsOf makes them, for a function of the class that no row binds. Without a result or parameters, but a receiver.
Function lifecycleFunction(const ClassInfo& info, const char* name, REALfunction address, const Forms& forms);

// Places of Function::receivers.
constexpr std::size_t nullReceiver = 0, emptyReceiver = 1, ordinaryReceiver = 2;

// Which receiver; which argument is not the ordinary one (-1: none), and its form.
struct Choice {
    std::size_t receiver = 0;
    int argument = -1;
    std::size_t form = 0;
};

// The ordinary arguments on each receiver alone, and all that the declaration admits, one argument at a time.
std::vector<Choice> ordinaryChoicesFor(const Function& function);
std::vector<Choice> choicesFor(const Function& function);

// "Faulty.length/1 of an empty object with words = null".
std::string describe(const Function& function, const Choice& choice);

// What a call is made with.
class Arguments {
public:
    // Makes the receiver and the arguments, with so many references more than the caller's.
    Arguments(const Function& function, const Choice& choice, int extraReferences = 0);
    // Gives them up; what is counted more often belongs to whom the references were made for.
    ~Arguments();
    Arguments(const Arguments&) = delete;
    Arguments& operator=(const Arguments&) = delete;

    // Calls the function. The counted result belongs to the caller.
    void invoke(Slot& result) const { function_.invoke(function_.address, slots_, &result); }

    Object* receiver() const { return function_.hasReceiver() ? slots_[0].object : nullptr; }
    Slot argument(std::size_t place) const { return slots_[first_ + place]; }
    const Form& form(std::size_t argument) const;
    // What stands at the address of an argument by reference; null when that is not one, or none was given.
    const Slot* output(std::size_t argument) const;

    // How many of the receiver and the arguments are this object or string, which holds one reference for each.
    int referencesTo(const void* value) const;

private:
    void release(const Type& type, Slot slot) const;
    bool isCounted(std::size_t argument) const;
    bool isReference(std::size_t argument) const { return function_.signature.parameters[argument].byRef; }

    const Function& function_;
    const Choice choice_;
    const std::size_t first_; // argument
    Slot slots_[maximumArguments + 1] = {}, outputs_[maximumArguments] = {};
};

} // namespace host::validator
