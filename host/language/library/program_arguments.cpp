#include "language/library/program_arguments.h"

#include "language/library/values.h"

#include "model/owned.h"

namespace host::language {

namespace {

std::vector<std::string>& given() {
    static std::vector<std::string> arguments;
    return arguments;
}

} // namespace

void setProgramArguments(std::vector<std::string> arguments) { given() = std::move(arguments); }

Array* programArguments() {
    Owned<Array> array(newArray(Type::plain(Kind::string)));
    for (const std::string& argument : given())
        appendElement(array.get(), Slot::ofString(ownString(argument).get()));
    return array.release();
}

} // namespace host::language
