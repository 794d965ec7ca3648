#include "language/library/program_arguments.h"

#include "language/presentation.h"

#include "model/owned.h"

namespace host::language {

std::vector<std::string>& storedArguments() {
    static std::vector<std::string> arguments;
    return arguments;
}

Array* programArguments() {
    Owned<Array> array(newArray(Type::plain(Kind::string)));
    for (const std::string& argument : storedArguments())
        appendElement(array.get(), Slot::ofString(ownString(argument).get()));
    return array.release();
}

} // namespace host::language
