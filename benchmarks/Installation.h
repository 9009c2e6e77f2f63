#pragma once

namespace kivo::benchmarks {

/// Makes a temporary installation with a main registry that declares nothing, for the whole process. The manager loads
/// it whenever it is made.
void useEmptyInstallation();

} // namespace kivo::benchmarks
