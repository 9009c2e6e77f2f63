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

/// What a tool prints when `settings` hold "help": a title, usage, help and notes of its own; without the title when
/// they hold "notitle", the usage alone when they hold "quiet". As wide as the terminal on standard output, 80 columns
/// when it is none.
std::string composeHelp(kivo::configuration::Manager const& manager,
                        kivo::configuration::Specification const& specification,
                        kivo::configuration::ValueGroup const& settings, std::string const& notes);

} // namespace toolkit
