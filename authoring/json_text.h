// How answers for programs are written.
#pragma once

#include <nlohmann/json.hpp>

#include <ostream>

namespace authoring {

// Never fails: what is no UTF-8 in the name of a file becomes U+FFFD.
inline void WriteJson(const nlohmann::ordered_json& json, std::ostream& out) {
  out << json.dump(2, ' ', false, nlohmann::ordered_json::error_handler_t::replace) << '\n';
}

}  // namespace authoring
