#include "text/json.h"

#include <nlohmann/json.hpp>

#include <ostream>

namespace host {

void writeJson(const nlohmann::ordered_json& value, std::ostream& out) {
    out << value.dump(2, ' ', false, nlohmann::ordered_json::error_handler_t::replace) << '\n';
}

} // namespace host
