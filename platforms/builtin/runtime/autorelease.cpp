#include "runtime/autorelease.h"

#include "runtime/lifetime.h"

#include <new>
#include <vector>

namespace chroma::builtin {
namespace {

struct AutoreleaseStack {
    std::vector<Object*> entries;

    ~AutoreleaseStack() { drainAutoreleased(0); }
};

thread_local AutoreleaseStack stack;

} // namespace

void pushAutoreleased(Object* object) {
    try {
        stack.entries.push_back(object);
        return;
    } catch (const std::bad_alloc&) {
    }
    release(object); // may throw a native exception: not in the handler
    throw std::bad_alloc();
}

std::size_t autoreleaseHeight() { return stack.entries.size(); }

bool takeAutoreleased(std::size_t height, const Object* object) {
    auto& entries = stack.entries;
    if (height >= entries.size() || entries[height] != object) return false;
    entries[height] = nullptr;
    return true;
}

void drainAutoreleased(std::size_t height) {
    auto& entries = stack.entries;
    while (entries.size() > height) {
        Object* const object = entries.back();
        entries.pop_back(); // first: a release may throw, and may push
        send<void>(object, msg::release);
    }
}

} // namespace chroma::builtin
