#pragma once

namespace kivo::configuration {

/// How many columns a text on standard output may have: those of the terminal; where it is none, what the environment
/// variable COLUMNS says, or 80.
unsigned long terminalWidth();

} // namespace kivo::configuration
