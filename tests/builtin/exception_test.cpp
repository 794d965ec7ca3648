// Throwing and catching.
#include "support/native.h"

#include <gtest/gtest.h>

#include <future>
#include <thread>

using namespace chroma;
using namespace chroma::test;

namespace {

id exceptionNamed(const char* name, const char* reason) {
    return sendClass("NSException", "exceptionWithName:reason:userInfo:", string(name), string(reason), string("info"));
}

} // namespace

TEST(Exceptions, CarryNameReasonAndInformation) {
    const Pool pool;
    const id exception = exceptionNamed("Name", "Reason");
    EXPECT_EQ(caught([&] { send<void>(exception, "raise"); }), exception);
    EXPECT_EQ(textOf(send(exception, "name")), "Name");
    EXPECT_EQ(textOf(send(exception, "reason")), "Reason");
    EXPECT_EQ(textOf(send(exception, "userInfo")), "info");
    EXPECT_EQ(textOf(send(exception, "description")), "Reason");
}

TEST(Exceptions, TheInnermostGuardCatchesAndMayThrowOn) {
    const Pool pool;
    const id exception = exceptionNamed("A", "a");
    bool wentOnInside = false, wentOnOutside = false;
    const id outer = caught([&] {
        const id inner = caught([&] { objc_exception_throw(exception); });
        wentOnInside = inner == exception;
        objc_exception_throw(inner);
        wentOnOutside = true;
    });
    EXPECT_TRUE(wentOnInside);
    EXPECT_FALSE(wentOnOutside);
    EXPECT_EQ(outer, exception);
}

TEST(Exceptions, LeavingAGuardLeavesThoseInsideIt) {
    const Pool pool;
    const id exception = exceptionNamed("A", "a");
    const id thrown = caught([&] {
        Guard left, open;
        objc_exception_try_enter(&left);
        objc_exception_try_enter(&open);
        objc_exception_try_exit(&left);
        objc_exception_throw(exception); // to the guard around, not into one of the two
    });
    EXPECT_EQ(thrown, exception);
}

TEST(Exceptions, AnyObjectCanBeThrownAndMatchedByClass) {
    const Pool pool;
    const Class NSException = objc_getClass("NSException");
    const Class special = objc_allocateClassPair(NSException, "SpecialException", 0);
    objc_registerClassPair(special);
    const id specialException = send(send(special, "new"), "autorelease");
    const id text = string("thrown");

    EXPECT_EQ(caught([&] { objc_exception_throw(text); }), text);
    EXPECT_TRUE(objc_exception_match(NSException, specialException));
    EXPECT_FALSE(objc_exception_match(special, exceptionNamed("A", "a")));
    EXPECT_FALSE(objc_exception_match(NSException, text));
    EXPECT_FALSE(objc_exception_match(NSException, nullptr));
}

TEST(Exceptions, EachThreadHasItsOwnGuards) {
    const Pool pool;
    const id here = exceptionNamed("A", "a"), there = exceptionNamed("B", "b");
    std::promise<void> isGuarded, isCaught;
    id caughtThere = nullptr;
    std::thread other([&] {
        caughtThere = caught([&] {
            isGuarded.set_value();
            isCaught.get_future().wait();
            objc_exception_throw(there);
        });
    });
    // The other thread's guard is the latest that was opened while this thread throws.
    const id caughtHere = caught([&] {
        isGuarded.get_future().wait();
        objc_exception_throw(here);
    });
    isCaught.set_value();
    other.join();
    EXPECT_EQ(caughtHere, here);
    EXPECT_EQ(caughtThere, there);
}

TEST(ExceptionsDeathTest, UncaughtOnesEndTheProcessWithALine) {
    const Pool pool;
    EXPECT_DEATH(send<void>(exceptionNamed("A", "because"), "raise"),
                 "\\*\\*\\* Terminating app due to uncaught exception 'A', reason: 'because'");
    EXPECT_DEATH(objc_exception_throw(string("text")), "uncaught exception of class 'NSString'");
}
