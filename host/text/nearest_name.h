// Suggestions for misspelt names.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace host {

// Collects candidates and returns the nearest one within one or two typing errors, of the complete name or of its
// beginning. Case is ignored.
class NearestName {
public:
    explicit NearestName(std::string_view wanted) : wanted_(wanted) {}
    void offer(std::string_view name);

    const std::string& name() const { return nearest_; } // empty if none is near

    // Returns ", did you mean 'name'?" or "".
    std::string suggestion() const;

private:
    std::string_view wanted_;
    std::string nearest_;
    std::size_t distance_ = 0;
};

} // namespace host
