#pragma once

namespace kivo::configuration {

/// Stands for a secret text in reports.
inline constexpr char const* SECRET_MASK = "****";

} // namespace kivo::configuration
