// A reference to a host object or string that is given up at the end of its scope, whatever ends it.
#pragma once

#include "model/objects.h"
#include "model/strings.h"

#include <new>
#include <string_view>
#include <utility>

namespace host {

template <class T>
class Owned {
public:
    Owned() = default;
    explicit Owned(T* owned) : held_(owned) {} // takes the caller's reference over; null is allowed
    static Owned shared(T* borrowed) {         // takes one of its own
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

    // The reference is the caller's from here on.
    T* release() { return std::exchange(held_, nullptr); }

private:
    T* held_ = nullptr;
};

// A new string of UTF-8; null for no bytes. Throws std::bad_alloc where newString answers null for want of memory.
inline Owned<String> ownString(std::string_view bytes) {
    Owned<String> string(newString(bytes));
    if (!string && !bytes.empty()) throw std::bad_alloc();
    return string;
}

} // namespace host
