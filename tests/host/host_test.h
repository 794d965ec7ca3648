// Shared by these tests: a started host, calls through its resolver as a plugin performs them, and references that a scope
// releases.
#pragma once

#include "entries/entries.h"
#include "model/classes.h"
#include "model/exceptions.h"
#include "values/strings.h"

#include <gtest/gtest.h>

// Starts a host of the given version. After the test no object and no string may be left.
template <int version>
struct HostOf : testing::Test {
    HostOf() { host::startHost({version, {}}); }
    void TearDown() override {
        EXPECT_EQ(host::liveObjectCount(), 0u);
        EXPECT_EQ(host::liveStringCount(), 0u);
    }
};
using StartedHost = HostOf<2021>;

// Owns one reference and releases it at the end of the scope. Null is allowed.
template <class T>
struct Held {
    T* const value;
    explicit Held(T* reference) : value(reference) {}
    Held(const Held&) = delete;
    ~Held() { host::unlock(value); }
    operator T*() const { return value; }
};

// Returns the named entry under its contract type. The test fails if the host does not provide it.
template <class Proc>
Proc entry(const char* name) {
    void* const address = host::resolveEntry(name);
    EXPECT_NE(address, nullptr) << name;
    return reinterpret_cast<Proc>(address);
}

// Calls the first method of that name, or its setter.
inline host::Slot call(host::Object* object, const char* name, std::vector<host::Slot> arguments = {}, bool set = false) {
    const host::Method& method = *object->info->findMethods(name).front();
    arguments.insert(arguments.begin(), host::Slot::ofObject(object));
    host::Slot result;
    (set ? method.invokeSetter : method.invoke)(set ? method.setter : method.function, arguments.data(), &result);
    return result;
}

// Returns the message of the exception that the action throws, or the empty string.
template <class Action>
std::string errorOf(Action action) {
    try {
        action();
    } catch (const std::exception& error) {
        return error.what();
    }
    return "";
}

// Takes the pending exception, which must be of the class, and returns its message.
inline std::string pendingMessage(const char* className) {
    const Held exception(host::takePendingException());
    EXPECT_EQ(exception ? exception.value->info->name() : "no exception", className);
    return exception ? host::exceptionMessage(exception) : "";
}
