#pragma once

#include <string>
#include <string_view>

namespace kivo::kernel {

/// Writes a whole text to a descriptor, in one write as a rule.
/// @return whether all of it was written; otherwise errno says why
bool writeAll(int descriptor, std::string_view text);

/// Appends one record to a log file, which is made when it is missing. Either all of the record is written or nothing,
/// and records of several threads and processes do not mix. Waits at most a second for other writers.
/// @return why the record was not written; empty when it was
std::string appendToLogFile(char const* path, std::string_view record);

} // namespace kivo::kernel
