#include "language/limits.h"

#include <pthread.h>

#include <algorithm>
#include <cstddef>

namespace host::language {

namespace detail {
volatile std::sig_atomic_t interruptWanted = 0;
}

namespace {

void want(int) { detail::interruptWanted = 1; }

// The lowest address that procedures may reach. Without knowledge of the stack, 4 MB below the first question.
std::uintptr_t lowestAddress() {
    constexpr std::size_t mostUsed = std::size_t{8} << 20;
    constexpr std::size_t assumed = std::size_t{4} << 20;
    const auto here = reinterpret_cast<std::uintptr_t>(__builtin_frame_address(0));
    pthread_attr_t attributes;
    if (pthread_getattr_np(pthread_self(), &attributes) != 0) return here - assumed;
    void* bottom = nullptr;
    std::size_t size = 0;
    const bool known = pthread_attr_getstack(&attributes, &bottom, &size) == 0;
    pthread_attr_destroy(&attributes);
    if (!known || size == 0) return here - assumed;
    const std::size_t used = std::min(size, mostUsed);
    return reinterpret_cast<std::uintptr_t>(bottom) + size - used + used / 4;
}

} // namespace

InterruptScope::InterruptScope() {
    detail::interruptWanted = 0;
    struct sigaction action = {};
    action.sa_handler = want;
    sigaction(SIGINT, &action, &before_);
}

InterruptScope::~InterruptScope() { sigaction(SIGINT, &before_, nullptr); }

bool isStackLow() {
    static const thread_local std::uintptr_t lowest = lowestAddress();
    return reinterpret_cast<std::uintptr_t>(__builtin_frame_address(0)) < lowest;
}

} // namespace host::language
