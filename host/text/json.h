#pragma once

#include <iosfwd>

#include <nlohmann/json_fwd.hpp>

namespace host {

// Valid whatever a plugin or a path is made of: a replacement character stands for what is no UTF-8.
void writeJson(const nlohmann::ordered_json& value, std::ostream& out);

} // namespace host
