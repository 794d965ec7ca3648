// The two body shapes of bound functions. Each runs its body under a native-exception guard; no native exception out of
// it leaves a bound function, except an object that is not an NSException, which is thrown on to the next enclosing guard.
//
// The body must keep to the rule of guard.h: nothing with a destructor lives in it across a native message. Results are kept
// outside the body, set to the null value first and assigned last.
//
// Both are written into their callers, so that a platform whose guard is C++ adds no call to a message, and what an
// exception needs stays out of the way.
#pragma once

#include "bridge/errors.h"
#include "chromabridge/host_abi.h"
#include "platform/guard.h"
#include "runtime/native_object.h"

namespace chroma {

// The guarded frame: an NSException becomes a host exception. Answers whether the body ran to its end.
template <class Body>
[[gnu::always_inline]] inline bool guarded(Body&& body) {
    if (const id thrown = catchNative(body); __builtin_expect(thrown != nullptr, 0)) {
        raisePlatformException(thrown);
        return false;
    }
    return true;
}

// The same for a function that has made a result already: `giveUp` releases it when an exception passes outward.
template <class Body, class GiveUp>
void guarded(Body body, GiveUp giveUp) {
    onThrow([&] { guarded(body); }, giveUp);
}

// The quiet frame: an NSException is dropped. Answers whether the body ran to its end.
template <class Body>
[[gnu::always_inline]] inline bool quiet(Body&& body) {
    if (const id thrown = catchNative(body); __builtin_expect(thrown != nullptr, 0)) {
        if (!isNSException(thrown)) throwNative(thrown);
        return false;
    }
    return true;
}

// The guarded frame of a function with one result: what `make` answers, and 0 or null when an exception ended it.
template <class Make>
auto answered(Make make) {
    decltype(make()) answer{};
    guarded([&] { answer = make(); });
    return answer;
}

// The body that asks for one answer and converts nothing, and the answer: 0 unless the body ran to its end. In one object,
// since such getters are called for every colour of a picture.
template <class Answer>
struct Getter {
    id receiver;
    Message<Answer()>& message;
    Answer answer = 0;

    void operator()() { answer = message(receiver); }
};

// The body of class constructors, which run for every new object: only the first has something to do that may throw.
inline void constructed() {
    if (!CocoaInited) guarded([] { initCocoa(); });
}

// Whether an initialiser may fill the object: not a null one, and not one that holds a native object already, which raises
// an "UnsupportedOperationException".
bool mayInitialise(const REALobjectStruct* object);

} // namespace chroma
