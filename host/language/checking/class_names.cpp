#include "language/checking/class_names.h"

#include "language/reading/diagnostics.h"
#include "language/reading/foreign_spellings.h"

#include "text/nearest_name.h"

namespace host::language {
namespace {

constexpr std::string_view objectName = "Object";

[[noreturn]] void failUnknown(const syntax::Name& name, bool plainTypesToo) {
    const std::string what =
        std::string("there is no ") + (plainTypesToo ? "type" : "class") + " '" + std::string(name.text) + "'";
    const std::string_view hint = hintFor(Foreign::name, name.text);
    if (!hint.empty()) failCheck(name.offset, what + "; " + std::string(hint));
    NearestName nearest(name.text);
    for (const auto& info : registry().classes())
        nearest.offer(info->name());
    if (plainTypesToo) {
        for (const std::string_view plain : typeNames())
            nearest.offer(plain);
    }
    failCheck(name.offset, what + nearest.suggestion());
}

} // namespace

Type typeOf(const syntax::Name& name) {
    const Type type = typeNamed(name.text);
    if (type.kind != Kind::object || equalIgnoringCase(name.text, objectName)) return type;
    const ClassInfo* const info = registry().find(name.text);
    if (!info) failUnknown(name, true);
    return Type::object(info->name());
}

ClassInfo* classOf(const syntax::Name& name) {
    if (equalIgnoringCase(name.text, objectName)) return nullptr;
    ClassInfo* const info = registry().find(name.text);
    if (!info) failUnknown(name, false);
    return info;
}

ClassInfo* exceptionClassOf(const syntax::Name& name) {
    ClassInfo* const info = classOf(name);
    const ClassInfo* const root = registry().find("RuntimeException");
    if (!info || !root || !info->isOrDescendsFrom(*root))
        failCheck(name.offset, "'" + std::string(name.text) + "' is not a class of exceptions");
    return info;
}

} // namespace host::language
