#include "values/types.h"

#include <array>
#include <utility>

namespace host {

namespace {

constexpr std::array<std::pair<Kind, const char*>, 6> kindNames = {{
    {Kind::boolean, "Boolean"},
    {Kind::integer, "Integer"},
    {Kind::real, "Double"},
    {Kind::color, "Color"},
    {Kind::string, "String"},
    {Kind::variant, "Variant"},
}};

} // namespace

bool operator==(const Type& a, const Type& b) {
    return a.kind == b.kind && a.isArray == b.isArray && equalIgnoringCase(a.className, b.className);
}

bool operator!=(const Type& a, const Type& b) { return !(a == b); }

Type typeNamed(std::string_view name) {
    for (const auto& [kind, kindName] : kindNames)
        if (equalIgnoringCase(name, kindName)) return {kind, false, {}};
    return Type::object(std::string(name));
}

std::vector<std::string_view> typeNames() {
    std::vector<std::string_view> names;
    for (const auto& [kind, kindName] : kindNames)
        names.emplace_back(kindName);
    names.emplace_back("Object");
    return names;
}

std::string nameOf(const Type& type) {
    if (type.isNil()) return "Nil";
    std::string name = type.className;
    for (const auto& [kind, kindName] : kindNames)
        if (kind == type.kind) name = kindName;
    if (type.isArray) name += "()";
    return name;
}

} // namespace host
