#pragma once

namespace kivoconfig {

/// What kivoconfig ends with.
enum ExitStatus {
    NO_ERROR_FOUND = 0,
    ERROR_FOUND = 1, ///< in what was looked at
    NO_ANSWER = 2    ///< the call or the installation does not allow one, or it cannot be written
};

} // namespace kivoconfig
