// A reference to a host object or string that is released at the end of its scope.
#pragma once

#include "model/objects.h"
#include "values/strings.h"

#include <new>
#include <string_view>
#include <utility>

namespace host {

template <class T>
class Owned {
public:
    Owned() = default;
    explicit Owned(T* owned) : held_(owned) {} // takes ownership of the caller's reference; null is allowed
    static Owned shared(T* borrowed) {         // takes its own reference
        lock(borrowed);
        return Owned(borrowed);
    }
    Owned(const Owned& other) : held_(other.held_) { lock(held_); }
    Owned(Owned&& other) noexcept : held_(other.release()) {}
    Owned& operator=(Owned other) noexcept {
        std::swap(held_, other.held_);
        return *this;
    }
    ~Owned() { unlock(held_); }

    T* get() const { return held_; }
    T* operator->() const { return held_; }
    explicit operator bool() const { return held_ != nullptr; }

    // Transfers ownership of the reference to the caller.
    T* release() { return std::exchange(held_, nullptr); }

private:
    T* held_ = nullptr;
};

// Returns a new UTF-8 string; null for no bytes. Throws std::bad_alloc where newString returns null because memory is
// exhausted.
inline Owned<String> ownString(std::string_view bytes) {
    Owned<String> string(newString(bytes));
    if (!string && !bytes.empty()) throw std::bad_alloc();
    return string;
}

} // namespace host
