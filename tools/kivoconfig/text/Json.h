#pragma once

#include <nlohmann/json.hpp>

#include <ostream>

namespace kivoconfig {

/// What is written as JSON: members stay in their order. Texts are UTF-8.
using Json = nlohmann::ordered_json;

/// Of all documents. It grows when a reader has to change; members may be added at any time.
inline constexpr int JSON_VERSION = 1;

/// Writes a document and a line end. Controls are escapes, so that it can be shown in a terminal.
void writeJson(std::ostream& out, Json const& document);

} // namespace kivoconfig
