#pragma once

#include <string>

namespace kivo::configuration {
class Manager;
class Specification;
class ValueGroup;
} // namespace kivo::configuration

namespace toolkit {

/// Whether a flag of a tool was given, or is on by default. Given several times, the first one counts: a request for
/// help is not checked.
bool isSet(kivo::configuration::ValueGroup const& settings, char const* flag);

/// What a tool prints when `settings` hold "help": a title, usage, help and notes of its own. Without the title when
/// they hold "notitle"; only the usage when they hold "quiet". The text is as wide as the terminal on standard output,
/// and 80 columns wide when that is no terminal.
std::string composeHelp(kivo::configuration::Manager const& manager,
                        kivo::configuration::Specification const& specification,
                        kivo::configuration::ValueGroup const& settings, std::string const& notes);

} // namespace toolkit
