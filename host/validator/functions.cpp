#include "validator/functions.h"

#include "model/objects.h"

#include <algorithm>

namespace host::validator {

namespace {

// What a by-reference double holds before the call.
constexpr double unwritten = 0.75;

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
        function.arguments.push_back(parameter.byRef ? std::vector<Form>(2) : forms.ofArgument(parameter));
    return function;
}

} // namespace

std::vector<Function> functionsOf(const ClassInfo& info, const Forms& forms) {
    std::vector<Function> functions;
    for (const Property& property : info.properties()) {
        if (!property.getter || property.getter == REALstandardAccessor) continue;
        functions.push_back(
            functionOf(info, property.getter, property.invokeGetter, {property.name, {}, property.type}, false, forms));
        functions.back().parameter = property.parameter;
    }
    for (const std::vector<Method>* methods : {&info.methods(), &info.sharedMethods()}) {
        for (const Method& method : *methods)
            functions.push_back(functionOf(info, method.function, method.invoke, method.signature, method.shared, forms));
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

Arguments::Arguments(const Function& function, const Choice& choice, int extraReferences)
    : function_(function), choice_(choice), first_(function.hasReceiver() ? 1 : 0) {
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
        if (!isReference(i)) unlock(function_.signature.parameters[i].type, slots_[first_ + i]);
    unlock(receiver());
}

const Form& Arguments::form(std::size_t argument) const {
    return function_.arguments[argument][static_cast<int>(argument) == choice_.argument ? choice_.form : 0];
}

const Slot* Arguments::output(std::size_t argument) const {
    return isReference(argument) && slots_[first_ + argument].address ? &outputs_[argument] : nullptr;
}

} // namespace host::validator
