// The frame of bound functions, which runs its body under a native-exception guard. No native exception leaves a bound
// function, except a thrown object that is not an NSException: that one is thrown again to the next enclosing guard.
//
// The body must obey the rule of guard.h: nothing with a destructor lives in it across a native message. The result is
// stored outside the body; it is set to the null value first and assigned last.
//
// The frame is inlined, so that it adds no call to a message on platforms whose guard is C++. The code that handles an
// exception is kept out of line.
#pragma once

#include "bridge/errors.h"
#include "chromabridge/host_abi.h"
#include "platform/guard.h"
#include "runtime/native_object.h"

namespace chroma {

// The guarded frame: an NSException becomes a host exception. Returns whether the body completed.
template <class Body>
[[gnu::always_inline]] inline bool guarded(Body&& body) {
    if (const id thrown = catchNative(body); __builtin_expect(thrown != nullptr, 0)) {
        raisePlatformException(thrown);
        return false;
    }
    return true;
}

// The same for a function that has already created a result: `release` releases it if an exception propagates.
template <class Body, class Release>
void guarded(Body body, Release release) {
    onThrow([&] { guarded(body); }, release);
}

// The guarded frame of a function with one result. Returns the result of `make`, or 0 or null if an exception ended it.
template <class Make>
auto guardedResult(Make make) {
    decltype(make()) result{};
    guarded([&] { result = make(); });
    return result;
}

// The body that sends one message without arguments, and the result, which is 0 unless the body completed. Both are in one
// object, because such getters run for every colour of a picture.
template <class Result>
struct Getter {
    id receiver;
    Message<Result()>& message;
    Result result = 0;

    void operator()() { result = message(receiver); }
};

// The body of class constructors, which run for every new object. Only the first call does work that may throw.
inline void constructed() {
    if (!CocoaInited) guarded([] { initCocoa(); });
}

// Returns whether an initialiser may fill the object. Returns false for null, and raises an "UnsupportedOperationException"
// if the object already holds a native object.
bool mayInitialise(const REALobjectStruct* object);

} // namespace chroma
