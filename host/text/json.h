#pragma once

#include <iosfwd>

#include <nlohmann/json_fwd.hpp>

namespace host {

// Writes valid JSON whatever the input is: invalid UTF-8, from a plugin or a path, becomes replacement characters.
void writeJson(const nlohmann::ordered_json& value, std::ostream& out);

} // namespace host
