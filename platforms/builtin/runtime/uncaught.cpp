#include "runtime/exceptions.h"

#include <atomic>
#include <cstdlib>

namespace chroma::builtin {
namespace {

std::atomic<void (*)(id)> uncaughtHandler{nullptr};

} // namespace

void setUncaughtHandler(void (*handler)(id thrown)) { uncaughtHandler.store(handler, std::memory_order_release); }

void endUncaught(id thrown) {
    if (const auto handler = uncaughtHandler.load(std::memory_order_acquire)) handler(thrown);
    std::abort();
}

} // namespace chroma::builtin
