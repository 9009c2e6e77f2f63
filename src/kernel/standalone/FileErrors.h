#pragma once

#include <string>

namespace kivo::kernel {

/// Records in the main log what could not be done with a file or directory, as `<kind> "<path>" <fault>: <reason>`.
/// @param error the system's number of the reason
void logFileError(char const* kind, std::string const& path, char const* fault, int error);

} // namespace kivo::kernel
