// The platform under test: its differences from AppKit, and how it throws.
#include "support/plugin_test.h"

#include <regex>

using namespace chroma;

class Platform : public PluginTest {};

// Is true if a message accepts the arguments. It must accept its methods' types, without conversions.
template <class Signature, class... Arguments>
constexpr bool takes = std::is_invocable_v<Message<Signature>&, id, Arguments...>;
using OtherFloat = std::conditional_t<sizeof(CGFloat) == 8, float, double>;
static_assert(takes<id(CGFloat, id), CGFloat, id> && takes<void(const CGFloat*), CGFloat*> &&
              takes<void(id), std::nullptr_t>);
static_assert(!takes<id(CGFloat, id), id, CGFloat> && !takes<id(CGFloat, id), CGFloat> && !takes<id(), id>);
static_assert(!takes<id(CGFloat), OtherFloat> && !takes<id(CGFloat), int> && !takes<id(NSInteger), NSUInteger>);
static_assert(!takes<void(CGFloat*), const CGFloat*> && !takes<void(CGFloat*), OtherFloat*> && !takes<id(const void*), id>);

#ifndef NDEBUG
TEST_F(Platform, RejectsMessagesWithWrongTypes) {
    const id color = native::sendClass("NSColor", "redColor");
    EXPECT_EQ((Message<CGFloat()>{"redComponent"}(color)), 1);
    EXPECT_DEATH(Message<OtherFloat()>{"redComponent"}(color), "redComponent has the types [fd].* and is sent with [df]@:");
    OtherFloat value = 0;
    EXPECT_DEATH(Message<void(OtherFloat*)>{"getComponents:"}(color, &value),
                 "has the types v.*\\^[fd].* sent with v@:\\^[df]");
    EXPECT_DEATH(Message<id(int)>{"highlightWithLevel:"}(color, 1), "has the types [@^].*[fd].* sent with @@:i");
}
#endif

TEST_F(Platform, LacksTheListedMessagesOnlyOnGNUstep) {
    const std::regex row("\n- `([+-])(?:\\[(\\w+) ([\\w:]+)\\])?"); // an incomplete row names no class
    const std::sregex_iterator first(platform::page.begin(), platform::page.end(), row), end;
    EXPECT_NE(first, end);
    const SEL unknown = sel_registerName("aMessageNobodyKnows");
    EXPECT_FALSE(native::send<BOOL>(objc_getClass("NSColor"), "instancesRespondToSelector:", unknown));
    for (auto found = first; found != end; ++found) {
        const id cls = objc_getClass((*found)[2].str().c_str());
        const SEL selector = sel_registerName((*found)[3].str().c_str());
        const char* const question = (*found)[1] == "+" ? "respondsToSelector:" : "instancesRespondToSelector:";
        EXPECT_EQ(native::send<BOOL>(cls, question, selector) == 0, platform::isGNUstep) << found->str();
    }
}

// If exceptions unwind, the destructors of a host's frames between the throw and the guard run.
TEST_F(Platform, ExceptionsRunDestructors) {
    if (sizeof(void*) == 4) GTEST_SKIP() << "native exceptions are jumps here";
    struct Counter {
        int& count;
        ~Counter() { ++count; }
    };
    int destroyed = 0;
    auto body = [&] {
        const Counter counter{destroyed};
        native::sendClass("NSColor", "aMessageNobodyKnows");
    };
    EXPECT_TRUE(isNSException(catchNative(body)));
    EXPECT_EQ(destroyed, 1);
}
