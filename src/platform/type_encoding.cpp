#include "platform/type_encoding.h"

#ifndef NDEBUG

#include <cstdio>
#include <cstring>

namespace chroma {

struct MethodRecord;

extern "C" {
id object_getClass(id object);
const char* sel_getName(SEL selector);
MethodRecord* class_getInstanceMethod(id cls, SEL selector);
const char* method_getTypeEncoding(MethodRecord* method);
}

namespace {

// Returns the type after qualifiers, such as the 'r' of const.
const char* skipQualifiers(const char* type) { return type + std::strspn(type, "rnNoORVA"); }

// Returns the text after the type and its offset in the frame, which some runtimes add.
const char* skipType(const char* type) {
    type = skipQualifiers(type);
    if (*type == '^') return skipType(type + 1);
    int depth = 0;
    do {
        if (*type == '\0') return type;
        if (std::strchr("{[(", *type)) ++depth;
        if (std::strchr("}])", *type)) --depth;
        ++type;
    } while (depth > 0);
    return type + std::strspn(type, "+-0123456789");
}

// Returns one character for all characters that runtimes use for the same type.
char canonical(char code) {
    switch (code) {
    case 'l': return 'i'; // a long of 32 bits: a wider one is written 'q'
    case 'L': return 'I';
    case '#': return '@';
    case '*': return '^';
    default: return code;
    }
}

bool isSameType(const char* expected, const char* actual) {
    actual = skipQualifiers(actual);
    const char wanted = canonical(*expected), found = canonical(*actual);
    // Objects of CoreFoundation, which the plugin declares as pointers.
    if ((wanted == '@' && found == '^') || (wanted == '^' && expected[1] == 'v' && found == '@')) return true;
    if (wanted != found) return false;
    if (wanted != '^' || *actual == '*' || expected[1] == 'v') return true;
    actual = skipQualifiers(actual + 1);
    return *actual == 'v' || isSameType(expected + 1, actual);
}

bool areSameTypes(const char* expected, const char* actual) {
    while (*expected && *actual) {
        if (!isSameType(expected, actual)) return false;
        expected = skipType(expected);
        actual = skipType(actual);
    }
    return *expected == *actual;
}

} // namespace

bool methodHasTypes(id receiver, SEL selector, const char* types) {
    MethodRecord* const method = class_getInstanceMethod(object_getClass(receiver), selector);
    const char* const encoding = method ? method_getTypeEncoding(method) : nullptr;
    if (!encoding || areSameTypes(types, encoding)) return true;
    std::fprintf(stderr, "%s has the types %s, and is sent with %s\n", sel_getName(selector), encoding, types);
    return false;
}

} // namespace chroma

#endif
