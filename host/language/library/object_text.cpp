#include "language/presentation.h"

#include "model/classes.h"
#include "model/exceptions.h"
#include "model/owned.h"
#include "values/platform.h"

#include <array>
#include <optional>

namespace host::language {
namespace {

// Returns the value of a property, or of a method without arguments. Returns nullopt if there is no such member, or if it
// raises.
std::optional<std::string> textMember(Object* object, std::string_view name) {
    const platform::AutoreleasePool pool;
    const Type type = Type::plain(Kind::string);
    Slot value;
    if (const Property* const property = object->info->findProperty(name);
        property && property->getter && property->type == type) {
        value = readProperty(*property, object);
    } else {
        const OverloadSet methods = object->info->findMethods(name);
        const auto suits = [&](const Method* method) {
            return method->signature.parameters.empty() && method->signature.result == type;
        };
        if (methods.size() != 1 || !suits(methods.front())) return std::nullopt;
        const std::array<Slot, 1> receiver = {Slot::ofObject(object)};
        methods.front()->invoke(methods.front()->function, receiver.data(), &value);
    }
    const Owned<String> text(value.string);
    const Owned<Object> exception(takePendingException());
    return exception ? std::nullopt : std::optional(utf8Of(text.get()));
}

std::string textOfException(Object* exception) {
    const HostInteger number = exceptionErrorNumber(exception);
    const std::string message = exceptionMessage(exception);
    return exception->info->name() + (number == 0 ? "" : " " + std::to_string(number)) +
           (message.empty() ? "" : ": " + message);
}

} // namespace

std::string textOf(Object* object) {
    const std::string& className = object->info->name();
    if (isException(object)) return textOfException(object);
    const std::string description = textMember(object, "description").value_or("");
    if (!description.empty()) return description; // an empty object has no description
    const std::optional<std::string> path = textMember(object, "NativePath");
    const std::string name = path ? *path : textMember(object, "name").value_or("");
    return name.empty() ? className : className + " " + name;
}

} // namespace host::language
