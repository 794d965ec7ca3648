#include "validator/functions.h"

#include "model/objects.h"
#include "validator/watch.h"
#include "values/checked_memory.h"

#include <algorithm>

namespace host::validator {

namespace {

// The value of a by-reference double before the call.
constexpr double unwritten = 0.75;
const std::vector<Form> byReference = {{nullptr, nullptr, "an address"}, {nullptr, nullptr, "null"}};

Function functionOf(const ClassInfo& info, REALfunction address, const Invoker& invoke, const Signature& signature,
                    bool isShared, const Forms& forms) {
    Function function = {info.name() + "." + signature.name + "/" + std::to_string(signature.parameters.size()),
                         address,
                         invoke,
                         signature,
                         0,
                         {},
                         {}};
    if (!isShared) function.receivers = forms.ofReceiver(info.name());
    for (const Parameter& parameter : signature.parameters)
        function.arguments.push_back(parameter.byRef ? byReference : forms.ofArgument(parameter));
    return function;
}

// Returns the signature of the assignment to a property or method of the given signature.
Signature assignmentTo(Signature signature, const char* parameter) {
    signature.name += "=";
    signature.parameters.push_back({parameter, signature.result, false, false, {}});
    signature.result = Type();
    return signature;
}

} // namespace

bool isAddress(const Property& property) {
    std::string name = property.name;
    std::transform(name.begin(), name.end(), name.begin(), lower);
    return property.type.is(Kind::integer) &&
           (name.find("handle") != std::string::npos || name.find("pointer") != std::string::npos);
}

namespace {

bool isBound(REALfunction function) { return function && function != REALstandardAccessor; }

void addAccessors(std::vector<Function>& functions, const ClassInfo& info, const Property& property, const Forms& forms) {
    const auto add = [&](REALfunction address, const Invoker& invoke, const Signature& signature) {
        functions.push_back(functionOf(info, address, invoke, signature, false, forms));
        functions.back().parameter = property.parameter;
        functions.back().isAccessor = true;
    };
    if (isBound(property.getter)) add(property.getter, property.invokeGetter, {property.name, {}, property.type});
    if (!isBound(property.setter)) return;
    add(property.setter, property.invokeSetter,
        assignmentTo({property.name, {}, property.type}, isAddress(property) ? "address" : "value"));
    functions.back().isSetter = true;
    functions.back().property = property.getter ? &property : nullptr;
}

} // namespace

std::vector<Function> functionsOf(const ClassInfo& info, const Forms& forms) {
    std::vector<Function> functions;
    for (const Property& property : info.properties())
        addAccessors(functions, info, property, forms);
    for (const std::vector<Method>* methods : {&info.methods(), &info.sharedMethods()}) {
        for (const Method& method : *methods) {
            functions.push_back(functionOf(info, method.function, method.invoke, method.signature, method.shared, forms));
            if (!method.setter) continue;
            functions.push_back(functionOf(info, method.setter, method.invokeSetter, assignmentTo(method.signature, "value"),
                                           method.shared, forms));
            functions.back().isSetter = true;
        }
    }
    return functions;
}

Function lifecycleFunction(const ClassInfo& info, const char* name, REALfunction address, const Forms& forms) {
    return functionOf(info, address, Invoker(Signature(), true), {name, {}, {}}, false, forms);
}

std::vector<Choice> ordinaryChoicesFor(const Function& function) {
    std::vector<Choice> choices;
    for (std::size_t receiver = 0; receiver < std::max<std::size_t>(function.receivers.size(), 1); ++receiver)
        choices.push_back({receiver, -1, 0});
    return choices;
}

std::vector<Choice> choicesFor(const Function& function) {
    std::vector<Choice> choices;
    for (const Choice& ordinary : ordinaryChoicesFor(function)) {
        choices.push_back(ordinary);
        const std::size_t receiver = ordinary.receiver;
        if (function.hasReceiver() && receiver != emptyReceiver && receiver != ordinaryReceiver) continue;
        for (std::size_t argument = 0; argument < function.arguments.size(); ++argument) {
            for (std::size_t form = 1; form < function.arguments[argument].size(); ++form)
                choices.push_back({receiver, static_cast<int>(argument), form});
        }
    }
    return choices;
}

std::string describe(const Function& function, const Choice& choice) {
    std::string text = function.name;
    const auto wordsFor = [](const Form& form) { return form.text.empty() ? "another value" : form.text; };
    if (function.hasReceiver()) text += " of " + wordsFor(function.receivers[choice.receiver]);
    if (choice.argument < 0) return text;
    const auto place = static_cast<std::size_t>(choice.argument);
    return text + " with " + function.signature.parameters[place].name + " = " +
           wordsFor(function.arguments[place][choice.form]);
}

Arguments::Arguments(const Function& function, const Choice& choice, int extraReferences)
    : function_(function), choice_(choice), first_((function.hasReceiver() ? 1 : 0) + (function.isAccessor ? 1 : 0)) {
    const auto make = [&](const Type& type, const Form& form) {
        const Slot slot = form.make();
        for (int i = 0; i < extraReferences; ++i)
            lock(type, slot);
        return slot;
    };
    if (function.hasReceiver()) {
        slots_[0] = make(Type::object("Object"), function.receivers[choice.receiver]);
        slots_[1] = Slot::ofInteger(function.parameter);
    }
    for (std::size_t i = 0; i < function.arguments.size(); ++i) {
        outputs_[i] = Slot::ofReal(unwritten);
        Slot& slot = slots_[first_ + i];
        if (!isReference(i)) {
            slot = make(function.signature.parameters[i].type, form(i));
        } else {
            slot = &form(i) == &function.arguments[i][0] ? Slot::ofAddress(&outputs_[i]) : Slot();
        }
    }
}

Arguments::~Arguments() {
    for (std::size_t i = 0; i < function_.arguments.size(); ++i)
        if (isCounted(i)) release(function_.signature.parameters[i].type, slots_[first_ + i]);
    release(Type::object("Object"), Slot::ofObject(receiver()));
}

void Arguments::release(const Type& type, Slot slot) const {
    if (memory::isChecking() && slot.address && !memory::isAlive(slot.address)) {
        note(Misuse::destroyedValue, function_.name + " released a value that it had only borrowed");
    } else {
        unlock(type, slot);
    }
}

bool Arguments::isCounted(std::size_t argument) const {
    const Type& type = function_.signature.parameters[argument].type;
    return !isReference(argument) && (type.isObjectReference() || type.is(Kind::string));
}

int Arguments::referencesTo(const void* value) const {
    int count = receiver() == value ? 1 : 0;
    for (std::size_t i = 0; i < function_.arguments.size(); ++i)
        if (isCounted(i) && argument(i).address == value) ++count;
    return count;
}

const Form& Arguments::form(std::size_t argument) const {
    return function_.arguments[argument][static_cast<int>(argument) == choice_.argument ? choice_.form : 0];
}

const Slot* Arguments::output(std::size_t argument) const {
    return isReference(argument) && slots_[first_ + argument].address ? &outputs_[argument] : nullptr;
}

} // namespace host::validator
