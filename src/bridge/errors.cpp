#include "bridge/errors.h"

#include "bridge/frame.h"
#include "bridge/scratch.h"
#include "bridge/strings.h"
#include "platform/corefoundation.h"
#include "platform/selectors.h"
#include "runtime/host_entries.h"

#include <cstdio>
#include <cstring>
#include <new>
#include <stdexcept>
#include <typeinfo>

namespace chroma {
namespace {

// Raises the class with a formatted message; with `fallback` when there is no memory for it. `size` bounds the formatted
// text.
template <class... Arguments>
void raiseFormatted(const char* className, const char* fallback, std::size_t size, const char* format,
                    Arguments... arguments) {
    withScratch<char, 400>(size, [&](char* message) {
        if (message) std::snprintf(message, size, format, arguments...);
        RaiseException(className, message ? message : fallback);
    });
}

void raiseWithoutSibling(id exception) {
    const id name = sel::name(exception);
    const id reason = sel::reason(exception);
    withUTF8(name, [&](const char* nameText) {
        withUTF8(reason, [&](const char* reasonText) {
            const char* const first = nameText ? nameText : "NSException";
            const char* const second = reasonText ? reasonText : "";
            raiseFormatted("RuntimeException", first, std::strlen(first) + std::strlen(second) + sizeof ": ", "%s: %s",
                           first, second);
        });
    });
}

} // namespace

void RaiseException(const char* className, const char* message) {
    REALstringStruct* const text =
        message ? REALBuildUnicodeString(message, static_cast<std::int64_t>(std::strlen(message)), kCFStringEncodingUTF8)
                : nullptr;
    REALobjectStruct* exception = REALnewInstance(className);
    if (!exception) exception = REALnewInstance("RuntimeException");
    if (exception) {
        REALSetPropValueString(exception, "Message", text);
        REALSetPropValueInteger(exception, "ErrorNumber", 0);
        REALRaiseException(exception);
        REALUnlockObject(exception);
    }
    if (text) REALUnlockString(text);
}

void RaiseOutOfBoundsException(std::int64_t value, std::int64_t minimum, std::int64_t limit, const char* parameterName,
                               const char* methodName) {
    const char* const name = parameterName ? parameterName : "?";
    const char* const method = methodName ? methodName : "";
    raiseFormatted("OutOfBoundsException", "Out of Bounds", std::strlen(name) + std::strlen(method) + 200,
                   "Parameter %s %s%s is too %s. Range is %lld to %lld, but value is %lld.", name,
                   *method ? "to method " : "", method, value < minimum ? "small" : "big", static_cast<long long>(minimum),
                   static_cast<long long>(limit - 1), static_cast<long long>(value));
}

void raiseCaughtException() {
    try {
        throw;
    } catch (const std::bad_alloc&) {
        RaiseException("OutOfMemoryException", "Failed to allocate memory.");
    } catch (const std::range_error& error) {
        RaiseException("OutOfBoundsException", error.what());
    } catch (const std::out_of_range& error) {
        RaiseException("OutOfBoundsException", error.what());
    } catch (const std::overflow_error& error) {
        RaiseException("OutOfBoundsException", error.what());
    } catch (const std::underflow_error& error) {
        RaiseException("OutOfBoundsException", error.what());
    } catch (const std::bad_cast& error) {
        RaiseException("IllegalCastException", error.what());
    } catch (const std::exception& error) {
        RaiseException("RuntimeException", error.what());
    } catch (...) {
        RaiseException("RuntimeException", "Sorry, but there was an unnamed C++ Exception.");
    }
}

void raisePlatformException(id thrown) {
    if (!isNSException(thrown)) throwNative(thrown);
    // Making the host exception sends messages too; a further NSException out of them is dropped.
    REALobjectStruct* exception = nullptr;
    quiet([&] {
        if (sel::respondsToSelector_(cls::NSException, sel::NewNSExceptionZRX_.get())) {
            exception = sel::NewNSExceptionZRX_(cls::NSException, thrown);
        } else {
            raiseWithoutSibling(thrown);
        }
    });
    if (!exception) return;
    REALRaiseException(exception);
    REALUnlockObject(exception);
}

} // namespace chroma
