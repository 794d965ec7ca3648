// Calling the host the way a plugin does: through its resolver.
#pragma once

#include "model/classes.h"
#include "model/entries.h"
#include "model/exceptions.h"

#include <gtest/gtest.h>

// The named entry under its contract type; the test fails when the host does not offer it.
template <class Proc>
Proc entry(const char* name) {
    void* const address = host::resolveEntry(name);
    EXPECT_NE(address, nullptr) << name;
    return reinterpret_cast<Proc>(address);
}

// The message of the pending exception, which must be of the class and is pending no longer.
inline std::string pendingMessage(const char* className) {
    host::Object* const exception = host::takePendingException();
    EXPECT_NE(exception, nullptr) << "nothing was raised";
    if (!exception) return {};
    EXPECT_EQ(exception->info->name(), className);
    std::string message = host::exceptionMessage(exception);
    host::unlock(exception);
    return message;
}
