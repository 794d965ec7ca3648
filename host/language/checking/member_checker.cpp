// Checks members of classes and objects.
#include "language/checking/expression_checker.h"
#include "language/reading/foreign_spellings.h"

#include "text/nearest_name.h"

namespace host::language {
namespace {

using syntax::Name;

[[noreturn]] void failUnknownMember(const ClassInfo& info, const Name& name) {
    NearestName nearest(name.text);
    for (const ClassInfo* from = &info; from; from = from->super()) {
        for (const Method& method : from->methods())
            nearest.offer(method.signature.name);
        for (const Method& method : from->sharedMethods())
            nearest.offer(method.signature.name);
        for (const Property& property : from->properties())
            nearest.offer(property.name);
        for (const Constant& constant : from->constants())
            nearest.offer(constant.name);
    }
    failCheck(name.offset, info.name() + " has no member " + quoted(name.text) + nearest.suggestion());
}

} // namespace

Operand ExpressionChecker::form(const syntax::Member& member, Offset) { return this->member(member, nullptr); }

Operand ExpressionChecker::member(const syntax::Member& member, const Arguments* arguments) {
    if (ClassInfo* const info = classNamedBy(*member.object)) return sharedMember(*info, member.name, arguments);
    Value object = value(*member.object);
    if (object.type.isArray) return arrayMember(std::move(object), member.name, arguments);
    if (object.type.kind == Kind::variant)
        failCheck(member.name.offset, "a Variant has no members; convert it to its class first, as in NSColorZRX(value)");
    if (object.type.kind != Kind::object || object.type.isNil()) {
        failCheck(member.name.offset, nameOf(object.type) + " has no members" +
                                          remedyFor(Foreign::plainMember, member.name.text, NearestName({})));
    }
    ClassInfo* const info = registry().find(object.type.className);
    if (!info) {
        failCheck(member.name.offset, equalIgnoringCase(object.type.className, "Object")
                                          ? "Object has no members; convert it to its class first"
                                          : "the class " + object.type.className + " is not loaded");
    }
    return objectMember(*info, std::move(object.code), member.name, arguments);
}

Operand ExpressionChecker::sharedMember(ClassInfo& info, const Name& name, const Arguments* arguments) {
    if (const Constant* const constant = info.findConstant(name.text); constant && !arguments)
        return literalOperand(constant->value);
    const OverloadSet overloads = info.findSharedMethods(name.text);
    if (overloads.empty()) {
        if (info.findConstant(name.text))
            failCheck(name.offset, quoted(name.text) + " is a constant and takes no arguments");
        if (info.findProperty(name.text) || !info.findMethods(name.text).empty())
            failCheck(name.offset, quoted(name.text) + " belongs to the objects of " + info.name() + ", not to the class");
        failUnknownMember(info, name);
    }
    return callOne(info.name() + "." + overloads.front()->signature.name, overloads, nullptr, arguments, name.offset);
}

Operand ExpressionChecker::objectMember(ClassInfo& info, CodePtr object, const Name& name, const Arguments* arguments) {
    if (const Property* const property = info.findProperty(name.text)) {
        if (property->invokeGetter || property->invokeSetter) requirePoolFor(property->owner);
        Operand place = Operand::property(*property, std::move(object), name.offset);
        if (!arguments) return place;
        if (!property->type.isArray)
            failCheck(name.offset, quoted(property->name) + " is a property and takes no arguments");
        return element({property->type, read(std::move(place), name.offset)}, *arguments, name.offset);
    }
    const OverloadSet overloads = info.findMethods(name.text);
    if (overloads.empty()) {
        if (info.findConstant(name.text) || !info.findSharedMethods(name.text).empty()) {
            failCheck(name.offset,
                      quoted(name.text) + " belongs to the class: write " + info.name() + "." + std::string(name.text));
        }
        failUnknownMember(info, name);
    }
    const std::string what = info.name() + "." + overloads.front()->signature.name;
    return callOne(what, overloads, std::move(object), arguments, name.offset);
}

} // namespace host::language
