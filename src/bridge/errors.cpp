#include "bridge/errors.h"

#include "bridge/scratch.h"
#include "bridge/string_building.h"
#include "platform/corefoundation.h"
#include "platform/selectors.h"
#include "runtime/host_entries.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <new>
#include <stdexcept>
#include <typeinfo>

namespace chroma {
namespace {

// Raises the class with a formatted message, or with `fallback` if memory is exhausted. `size` bounds the formatted text.
template <class... Arguments>
void raiseFormatted(const char* className, const char* fallback, std::size_t size, const char* format,
                    Arguments... arguments) {
    if (size > INT32_MAX) return RaiseException(className, fallback);
    withScratch<char, 400>(size, [&](char* message) {
        if (message) std::snprintf(message, size, format, arguments...);
        RaiseException(className, message ? message : fallback);
    });
}

// Raises a new host exception of the class, or of "RuntimeException" if the host does not have the class, and releases the
// message.
void raiseWith(const char* className, REALstringStruct* message) {
    const auto raiseNew = [&] {
        REALobjectStruct* exception = REALnewInstance(className);
        if (!exception) exception = REALnewInstance("RuntimeException");
        if (!exception) return;
        withCleanup(
            [&] {
                REALSetPropValueString(exception, "Message", message);
                REALSetPropValueInteger(exception, "ErrorNumber", 0);
                REALRaiseException(exception);
            },
            [&] { REALUnlockObject(exception); });
    };
    withCleanup(raiseNew, [&] {
        if (message) REALUnlockString(message);
    });
}

// Returns the failure with a copy of the text. A null text is the empty message.
Failure failure(const char* className, const char* text) {
    const auto isMidCharacter = [](char byte) { return (byte & 0xC0) == 0x80; };
    Failure created;
    created.className = className;
    std::size_t length = text ? std::strlen(text) : 0;
    if (length >= sizeof created.text) {
        created.copy = static_cast<char*>(std::calloc(length + 1, 1));
        if (!created.copy) length = sizeof created.text - 1;
        while (!created.copy && length > 0 && isMidCharacter(text[length]))
            --length;
    }
    char* const target = created.copy ? created.copy : created.text;
    if (length > 0) std::memcpy(target, text, length);
    target[length] = '\0';
    return created;
}

// Raises the failure. If building the message throws, a first failure raises that second failure before itself, with an
// empty message. A third failure is dropped, so the recursion ends.
void raise(const Failure& failure, bool isFirst) {
    const auto raiseIt = [&] {
        REALstringStruct* message = nullptr;
        const Failure another = failureOf([&] { message = buildString(failure.message()); });
        if (another.className && isFirst) {
            raise(another, false);
        } else {
            std::free(another.copy);
        }
        raiseWith(failure.className, message);
    };
    withCleanup(raiseIt, [&] { std::free(failure.copy); });
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
    REALstringStruct* text = nullptr;
    if (message) translated([&] { text = buildString(message); });
    raiseWith(className, text);
}

void RaiseOutOfBoundsException(std::int64_t value, std::int64_t minimum, std::int64_t limit, const char* parameterName,
                               const char* methodName) {
    const char* const name = parameterName ? parameterName : "?";
    const char* const method = methodName ? methodName : "";
    const auto last = static_cast<std::int64_t>(static_cast<std::uint64_t>(limit) - 1); // the minimum limit wraps around
    raiseFormatted("OutOfBoundsException", "Out of Bounds", std::strlen(name) + std::strlen(method) + 200,
                   "Parameter %s %s%s is too %s. Range is %lld to %lld, but value is %lld.", name,
                   *method ? "to method " : "", method, value < minimum ? "small" : "big", static_cast<long long>(minimum),
                   static_cast<long long>(last), static_cast<long long>(value));
}

// Checks derived classes before their bases: of a class that inherits from two of these, the first one counts.
Failure caughtFailure() {
    try {
        throw;
    } catch (const std::bad_alloc&) {
        return failure("OutOfMemoryException", "Failed to allocate memory.");
    } catch (const std::range_error& error) {
        return failure("OutOfBoundsException", error.what());
    } catch (const std::out_of_range& error) {
        return failure("OutOfBoundsException", error.what());
    } catch (const std::overflow_error& error) {
        return failure("OutOfBoundsException", error.what());
    } catch (const std::underflow_error& error) {
        return failure("OutOfBoundsException", error.what());
    } catch (const std::logic_error& error) {
        return failure("RuntimeException", error.what());
    } catch (const std::runtime_error& error) {
        return failure("RuntimeException", error.what());
    } catch (const std::bad_cast& error) {
        return failure("IllegalCastException", error.what());
    } catch (const std::exception& error) {
        return failure("RuntimeException", error.what());
    } catch (...) {
        return failure("RuntimeException", "Sorry, but there was an unnamed C++ Exception.");
    }
}

void raiseFailure(const Failure& failure) { raise(failure, true); }

void raisePlatformException(id thrown) {
    if (!isNSException(thrown)) throwNative(thrown);
    // Creating the host exception also sends messages. Another NSException that they throw is dropped.
    REALobjectStruct* exception = nullptr;
    quiet([&] {
        if (sel::respondsToSelector_(cls::NSException, sel::NewNSExceptionZRX_.get())) {
            exception = sel::NewNSExceptionZRX_(cls::NSException, thrown);
        } else {
            raiseWithoutSibling(thrown);
        }
    });
    if (!exception) return;
    withCleanup([&] { REALRaiseException(exception); }, [&] { REALUnlockObject(exception); });
}

} // namespace chroma
