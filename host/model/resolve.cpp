#include "model/resolve.h"

#include <algorithm>

namespace host {

namespace {

// The cost of passing an argument in a certain way; lower is better, compared argument by argument. The nearer of two
// superclasses is better, and "Object" is the farthest.
enum Cost { exact = 0, upcast = 1, toAnyObject = 100, nilLiteral, widened, toVariant, fromVariant };

int upcastCost(const std::string& from, const std::string& to) {
    int cost = upcast;
    for (const ClassInfo* info = registry().find(from); info; info = info->super(), ++cost)
        if (equalIgnoringCase(info->name(), to)) return cost;
    return toAnyObject;
}

int costOf(const Type& from, const Type& to, Conversion conversion) {
    switch (conversion) {
    case Conversion::integerToReal:
    case Conversion::integerToColor:
    case Conversion::colorToInteger: return widened;
    case Conversion::toVariant: return toVariant;
    case Conversion::fromVariant: return fromVariant;
    case Conversion::none:
    case Conversion::realToInteger: // never for an argument
    case Conversion::fromText: break;
    }
    if (from == to) return exact;
    return from.isNil() ? nilLiteral : upcastCost(from.className, to.className);
}

// The cost of a parameter without an argument, if the arguments do not decide: a default is better than a paramarray.
constexpr int defaultExtra = 1;
constexpr int paramArrayExtra = maximumArguments + 1;

// A method with arguments bound to it.
struct Candidate {
    const Method* method;
    std::vector<Binding> bindings;
    std::vector<int> costs; // per argument
    int extras = 0;
};

// Binds argument `index` by a conversion, if there is one.
bool bindConverted(Candidate& candidate, Binding& binding, const Type& to, const Type& from) {
    const std::optional<Conversion> conversion = conversionTo(to, from, Purpose::argument);
    if (!conversion) return false;
    binding.conversions.push_back(*conversion);
    candidate.costs.push_back(costOf(from, to, *conversion));
    return true;
}

bool bindParameter(Candidate& candidate, const Parameter& parameter, const std::vector<Argument>& arguments,
                   std::size_t& next) {
    Binding binding = {Binding::Source::argument, &parameter, next, {}};
    if (parameter.paramArray) {
        binding.source = Binding::Source::paramArray;
        candidate.extras += paramArrayExtra;
        for (; next < arguments.size(); ++next)
            if (!bindConverted(candidate, binding, parameter.type.element(), arguments[next].type)) return false;
    } else if (next == arguments.size()) {
        if (!parameter.defaultValue) return false;
        binding.source = Binding::Source::defaultValue;
        candidate.extras += defaultExtra;
    } else if (parameter.byRef) {
        if (!arguments[next].assignable || arguments[next].type != parameter.type) return false;
        binding.source = Binding::Source::byReference;
        candidate.costs.push_back(exact);
        ++next;
    } else {
        if (!bindConverted(candidate, binding, parameter.type, arguments[next].type)) return false;
        ++next;
    }
    candidate.bindings.push_back(std::move(binding));
    return true;
}

std::optional<Candidate> candidateFor(const Method& method, const std::vector<Argument>& arguments) {
    Candidate candidate = {&method, {}, {}, 0};
    std::size_t next = 0;
    for (const Parameter& parameter : method.signature.parameters)
        if (!bindParameter(candidate, parameter, arguments, next)) return std::nullopt;
    if (next != arguments.size()) return std::nullopt;
    return candidate;
}

bool isBetter(const Candidate& a, const Candidate& b) {
    bool better = false;
    for (std::size_t i = 0; i < a.costs.size(); ++i) {
        if (a.costs[i] > b.costs[i]) return false;
        better = better || a.costs[i] < b.costs[i];
    }
    return better || a.extras < b.extras;
}

std::string describe(const std::vector<Argument>& arguments) {
    if (arguments.empty()) return "without arguments";
    std::string text = "with (";
    for (const Argument& argument : arguments) {
        if (text.back() != '(') text += ", ";
        text += argument.type.kind == Kind::nothing ? "no value" : nameOf(argument.type);
    }
    return text + ")";
}

std::string listed(const std::vector<const Method*>& methods) {
    std::string text;
    for (const Method* const method : methods)
        text += std::string("\n    ") + method->declaration;
    return text;
}

// Returns which parameter has no argument, or has an argument that cannot be passed by reference. The types in the message
// do not show these reasons.
std::string reasonAgainst(const Method& method, const std::vector<Argument>& arguments) {
    Candidate candidate = {&method, {}, {}, 0};
    std::size_t next = 0;
    for (const Parameter& parameter : method.signature.parameters) {
        if (bindParameter(candidate, parameter, arguments, next)) continue;
        if (next == arguments.size()) return ": " + parameter.name + " is missing";
        if (!parameter.byRef) return "";
        return ": argument " + std::to_string(next + 1) + " must be a variable of type " + nameOf(parameter.type);
    }
    return "";
}

} // namespace

Resolution resolveCall(const std::string& what, const OverloadSet& overloads, const std::vector<Argument>& arguments) {
    std::vector<Candidate> candidates;
    for (const Method* const method : overloads) {
        std::optional<Candidate> candidate = candidateFor(*method, arguments);
        if (candidate) candidates.push_back(std::move(*candidate));
    }

    Resolution resolution;
    for (Candidate& candidate : candidates) {
        const bool best = std::all_of(candidates.begin(), candidates.end(), [&](const Candidate& other) {
            return &other == &candidate || isBetter(candidate, other);
        });
        if (!best) continue;
        resolution.method = candidate.method;
        resolution.bindings = std::move(candidate.bindings);
        return resolution;
    }

    if (!candidates.empty()) {
        OverloadSet equals;
        for (const Candidate& candidate : candidates)
            equals.push_back(candidate.method);
        resolution.error = what + " called " + describe(arguments) + " could mean any of:" + listed(equals);
    } else if (overloads.empty()) {
        resolution.error = what + " does not exist.";
    } else {
        resolution.error = what + " cannot be called " + describe(arguments);
        std::string reason;
        for (const Method* const method : overloads)
            if (reason.empty()) reason = reasonAgainst(*method, arguments);
        resolution.error += reason + ". Declared:" + listed(overloads);
    }
    return resolution;
}

Resolution resolveConstruction(const ClassInfo& info, const std::vector<Argument>& arguments) {
    Resolution resolution = resolveCall("New " + info.name(), info.constructors(), arguments);
    if (arguments.empty() && !resolution.method) return {};
    if (info.constructors().empty()) resolution.error = info.name() + " has no Constructor that takes arguments.";
    return resolution;
}

} // namespace host
