// Messages sent by the platform itself. They use the dispatch tables like any other message, so a method that a test or a
// sibling plugin replaced takes effect.
#pragma once

#include "runtime/classes.h"
#include "runtime/selectors.h"

namespace chroma::builtin {

// A selector, registered when it is first sent.
class Message {
public:
    constexpr explicit Message(const char* name) : name_(name) {}

    SEL get() const {
        SEL selector = selector_.load(std::memory_order_acquire);
        if (!selector) {
            selector = internSelector(name_);
            selector_.store(selector, std::memory_order_release);
        }
        return selector;
    }

private:
    const char* name_;
    mutable std::atomic<SEL> selector_{nullptr};
};

// Returns R{} for nil. May throw a native exception: in 32 bits a jump past all destructors.
template <class R, class... Arguments>
R send(Object* receiver, const Message& message, Arguments... arguments) {
    if (!receiver) return R();
    const SEL selector = message.get();
    const auto function = reinterpret_cast<R (*)(Object*, SEL, Arguments...)>(lookUp(*receiver->isa, selector));
    return function(receiver, selector, arguments...);
}

namespace msg {

inline const Message dealloc{"dealloc"};
inline const Message description{"description"};
inline const Message doesNotRecognizeSelector{"doesNotRecognizeSelector:"};
inline const Message hash{"hash"};
inline const Message init{"init"};
inline const Message isEqual{"isEqual:"};
inline const Message release{"release"};

} // namespace msg

} // namespace chroma::builtin
