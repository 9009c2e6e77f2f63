#pragma once

#include "ExitStatus.h"
#include "text/Json.h"

#include <configuration/Finding.h>

#include <vector>

namespace kivoconfig {

struct Call;

/// A finding, as a member of a JSON document. What does not apply is left out.
Json toJson(kivo::configuration::Finding const& finding);
/// Findings, each once, in the order in which text shows them.
Json toJson(std::vector<kivo::configuration::Finding> const& findings);

/// Writes findings as text: one a line, then their number; nothing if there are none.
void writeFindings(std::ostream& out, std::vector<kivo::configuration::Finding> const& findings);
/// Reports findings, and nothing else, as text or as a JSON document.
void reportFindings(std::vector<kivo::configuration::Finding> const& findings, Call& call);

/// What the command ends with that found this.
ExitStatus statusOf(std::vector<kivo::configuration::Finding> const& findings, Call const& call);

} // namespace kivoconfig
