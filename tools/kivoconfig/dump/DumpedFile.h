#pragma once

#include "dump/DumpedSection.h"

#include <ostream>

namespace kivoconfig {

/// Writes what was selected as a values file.
void writeFile(std::ostream& out, DumpedSection const& specification);

} // namespace kivoconfig
