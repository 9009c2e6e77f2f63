#pragma once

#include "CommandOptions.h"
#include "ExitStatus.h"

#include <ostream>
#include <string>
#include <vector>

namespace kivoconfig {

/// One call of kivoconfig: what its commands share.
struct Call {
    std::ostream& out;                       ///< the report
    std::vector<std::string> arguments = {}; ///< of the tool in question: what stands after "--"
    bool hasArguments = false;               ///< whether there is a "--"
    std::string specification = {};          ///< as it was written
    bool isJson = false;
    bool areWarningsFatal = false;
};

/// Adds the argument SPEC, which is required.
CommandOption addSpecification(CommandOptions& options, Call& call);
/// Adds the option --json.
CommandOption addJson(CommandOptions& options, Call& call);
/// Adds the option --fatal-warnings.
void addFatalWarnings(CommandOptions& options, Call& call);

/// Does what the command line of kivoconfig asks for.
/// @throws CallFault, RegistryFault, std::ios_base::failure; what the library throws
ExitStatus answer(std::vector<std::string> words, Call& call);

/// Whether somebody waits for the answer who has no use for complaints: a shell that completes a word.
bool isSilent(std::vector<std::string> const& words);

} // namespace kivoconfig
