// Classes, selectors and dispatch.
#include "support/native.h"

#include <gtest/gtest.h>

#include <thread>

using namespace chroma;
using namespace chroma::test;

namespace {

int answerOne(id, SEL) { return 1; }
int answerTwo(id, SEL) { return 2; }
int answerThree(id, SEL) { return 3; }

Class subclass(const char* parent, const char* name) {
    const Class cls = objc_allocateClassPair(objc_getClass(parent), name, 0);
    objc_registerClassPair(cls);
    return cls;
}

} // namespace

TEST(Runtime, SelectorsAreInternedByName) {
    const SEL first = sel_registerName("some:message:");
    EXPECT_EQ(first, sel_registerName(std::string("some:message:").c_str()));
    EXPECT_NE(first, sel_registerName("some:message"));
    EXPECT_STREQ(sel_getName(first), "some:message:");
}

TEST(Runtime, ClassesAreFoundByNameAndKnowTheirKin) {
    const Class exception = objc_getClass("NSException");
    EXPECT_STREQ(class_getName(exception), "NSException");
    EXPECT_EQ(class_getSuperclass(exception), objc_getClass("NSObject"));
    EXPECT_EQ(class_getSuperclass(objc_getClass("NSObject")), nullptr);
    EXPECT_EQ(objc_lookUpClass("NSNoSuchClass"), nullptr);

    // A metaclass is what class methods live in; the root's metaclass descends from the root itself.
    EXPECT_EQ(class_getSuperclass(object_getClass(exception)), object_getClass(objc_getClass("NSObject")));
    EXPECT_EQ(class_getSuperclass(object_getClass(objc_getClass("NSObject"))), objc_getClass("NSObject"));
    EXPECT_TRUE(send<BOOL>(exception, "respondsToSelector:", sel_registerName("alloc")));
    EXPECT_FALSE(send<BOOL>(exception, "respondsToSelector:", sel_registerName("reason")));
    EXPECT_TRUE(send<BOOL>(exception, "instancesRespondToSelector:", sel_registerName("reason")));
}

TEST(Runtime, MessagesToNilAnswerZero) {
    const SEL selector = sel_registerName("anything");
    const auto function = reinterpret_cast<id (*)(id, SEL)>(objc_msg_lookup(nullptr, selector));
    EXPECT_EQ(function(nullptr, selector), nullptr);
}

TEST(Runtime, UnknownSelectorsRaiseInTheUsualWords) {
    const Pool pool;
    const id color = calibratedRGB(1, 0, 0);
    char place[32];
    std::snprintf(place, sizeof place, "%p", static_cast<void*>(color));
    EXPECT_EQ(raised([&] { send(color, "foo:", color); }),
              std::string("NSInvalidArgumentException: -[NSColor foo:]: unrecognized selector sent to instance ") + place);
    std::snprintf(place, sizeof place, "%p", static_cast<void*>(objc_getClass("NSColor")));
    EXPECT_EQ(raised([] { sendClass("NSColor", "foo"); }),
              std::string("NSInvalidArgumentException: +[NSColor foo]: unrecognized selector sent to class ") + place);
}

TEST(Runtime, AddedAndReplacedMethodsAreInForceAtOnce) {
    const Class parent = subclass("NSObject", "Parent");
    const Class child = subclass("Parent", "Child");
    const SEL number = sel_registerName("number");
    const id object = send(child, "new");

    EXPECT_FALSE(class_respondsToSelector(child, number));
    EXPECT_TRUE(class_addMethod(parent, number, implementation(answerOne), "i@:"));
    EXPECT_FALSE(class_addMethod(parent, number, implementation(answerTwo), "i@:"));
    EXPECT_EQ(send<int>(object, "number"), 1);

    // A replacement in the parent reaches the child, whose dispatch table already knows the old function.
    EXPECT_EQ(class_replaceMethod(parent, number, implementation(answerTwo), "i@:"), implementation(answerOne));
    EXPECT_EQ(send<int>(object, "number"), 2);

    // In the child it overrides, and the parent keeps its own.
    EXPECT_EQ(class_replaceMethod(child, number, implementation(answerThree), "i@:"), nullptr);
    EXPECT_EQ(send<int>(object, "number"), 3);
    EXPECT_EQ(class_getMethodImplementation(parent, number), implementation(answerTwo));

    const Method method = class_getInstanceMethod(child, number);
    EXPECT_EQ(method_setImplementation(method, implementation(answerOne)), implementation(answerThree));
    EXPECT_EQ(method_getImplementation(method), implementation(answerOne));
    EXPECT_EQ(send<int>(object, "number"), 1);
    send<void>(object, "release");
}

TEST(Runtime, ClassMethodsAreAddedToTheMetaclass) {
    const Class exception = objc_getClass("NSException");
    const SEL number = sel_registerName("sharedNumber");
    EXPECT_TRUE(class_addMethod(object_getClass(exception), number, implementation(answerTwo), nullptr));
    EXPECT_EQ(send<int>(exception, "sharedNumber"), 2);
    EXPECT_EQ(class_getClassMethod(exception, number), class_getInstanceMethod(object_getClass(exception), number));
    EXPECT_FALSE(send<BOOL>(objc_getClass("NSString"), "respondsToSelector:", number));
}

TEST(Runtime, NewClassesInheritAndHaveRoomOfTheirOwn) {
    const Pool pool;
    const Class cls = objc_allocateClassPair(objc_getClass("NSColor"), "WideColor", 64);
    EXPECT_EQ(objc_getClass("WideColor"), nullptr) << "found before it was registered";
    objc_registerClassPair(cls);
    EXPECT_EQ(objc_getClass("WideColor"), cls);
    EXPECT_EQ(objc_allocateClassPair(objc_getClass("NSColor"), "WideColor", 0), nullptr);

    const id object = send(send(cls, "new"), "autorelease");
    EXPECT_STREQ(object_getClassName(object), "WideColor");
    EXPECT_TRUE(send<BOOL>(object, "isKindOfClass:", objc_getClass("NSColor")));
    EXPECT_FALSE(send<BOOL>(object, "isMemberOfClass:", objc_getClass("NSColor")));
    EXPECT_EQ(textOf(send(object, "colorSpaceName")), "NSPatternColorSpace");
}

TEST(Runtime, ThreadsMayMeetAtTheFirstCallAndWhileMethodsChange) {
    const auto work = [] {
        for (int round = 0; round < 2000; ++round) {
            const Pool pool;
            class_replaceMethod(objc_getClass("NSData"), sel_registerName("round"), implementation(answerOne), nullptr);
            EXPECT_EQ(send<int>(sendClass("NSData", "data"), "round"), 1);
            EXPECT_EQ(textOf(send(calibratedRGB(1, 0, 0), "colorSpaceName")), "NSCalibratedRGBColorSpace");
        }
    };
    std::vector<std::thread> threads;
    for (int index = 0; index < 4; ++index) {
        threads.emplace_back(work);
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_EQ(builtin_liveInstances("NSData"), 0u);
    EXPECT_EQ(builtin_liveInstances("NSColor"), 0u);
}
