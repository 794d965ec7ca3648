#include "runtime/exceptions.h"

#include "runtime/bootstrap.h"
#include "runtime/export.h"

#include <cstdlib>

namespace chroma::builtin {
namespace {

std::atomic<UncaughtExceptionHandler> uncaughtHandler{nullptr};

} // namespace

UncaughtExceptionHandler exchangeUncaughtHandler(UncaughtExceptionHandler handler) {
    return uncaughtHandler.exchange(handler, std::memory_order_acq_rel);
}

void endUncaught(id thrown) {
    if (const auto handler = uncaughtHandler.load(std::memory_order_acquire)) handler(thrown);
    std::abort();
}

} // namespace chroma::builtin

namespace chroma {

BUILTIN_EXPORT UncaughtExceptionHandler objc_setUncaughtExceptionHandler(UncaughtExceptionHandler handler) {
    builtin::ensurePlatform();
    return builtin::exchangeUncaughtHandler(handler);
}

} // namespace chroma
