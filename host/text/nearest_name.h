// Guessing which name was meant.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace host {

// Collects the names that could have been meant and answers the nearest one within a typing error or two, in whole or in its
// beginning. The case of letters does not count.
class NearestName {
public:
    explicit NearestName(std::string_view wanted) : wanted_(wanted) {}
    void offer(std::string_view name);

    const std::string& name() const { return nearest_; } // empty when none is near

    // ", did you mean 'name'?" or nothing.
    std::string suggestion() const;

private:
    std::string_view wanted_;
    std::string nearest_;
    std::size_t distance_ = 0;
};

} // namespace host
