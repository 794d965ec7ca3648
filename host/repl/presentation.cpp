#include "repl/presentation.h"

#include "language/library/values.h"

#include "model/classes.h"
#include "model/exceptions.h"
#include "model/strings.h"

#include <array>
#include <cstdlib>
#include <optional>
#include <ostream>
#include <string>
#include <string_view>
#include <unistd.h>

namespace host::repl {
namespace {

// A property, or a method without arguments, of the given kind. With a counted value the caller owns it. None when there is
// no such member, or when it raises.
std::optional<Slot> read(Object* object, std::string_view name, Kind kind) {
    const Type type = {kind, false, {}};
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
    Object* const exception = takePendingException();
    if (!exception) return value;
    unlock(exception);
    unlock(type, value);
    return std::nullopt;
}

std::optional<std::string> description(Object* object) {
    const std::optional<Slot> text = read(object, "description", Kind::String);
    if (!text) return std::nullopt;
    std::string result = utf8Of(text->string);
    unlock(text->string);
    return result;
}

std::string swatch(HostColor color) {
    const auto channel = [color](unsigned shift) { return std::to_string(color >> shift & 0xFF); };
    return "\x1B[48;2;" + channel(16) + ";" + channel(8) + ";" + channel(0) + "m    \x1B[0m ";
}

} // namespace

void ValuePresenter::present(const Type& type, Slot value) {
    Object* const object = type.isObjectReference() ? value.object : nullptr;
    std::optional<Slot> color;
    if (object) color = read(object, "colorValue", Kind::Color);
    if (type == Type::plain(Kind::Color)) color = value;
    const std::optional<std::string> text = object ? description(object) : std::nullopt;
    if (color && swatches_) output_ << swatch(color->color);
    output_ << (text ? *text : language::textOf(type, value)) << '\n';
}

bool outputHasColors() {
    const char* const forbidden = std::getenv("NO_COLOR");
    const char* const terminal = std::getenv("TERM");
    const bool capable = terminal && *terminal && std::string_view(terminal) != "dumb";
    return isatty(STDOUT_FILENO) != 0 && capable && !(forbidden && *forbidden);
}

} // namespace host::repl
