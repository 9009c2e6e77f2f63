#pragma once

#include "settings/SettingsWalk.h"

#include <string>
#include <vector>

namespace kivoconfig {

// What people read about a setting, alike in all formats. Everything is printable UTF-8.

/// Its description, in one line.
std::string descriptionOf(kivo::configuration::ParameterItem const& item);
/// Sentences about its type, labels, bounds, default, marks, and how often it may be given. What is secret is not
/// shown.
std::string factsOf(Setting const& setting);
std::string factsOfSection(kivo::configuration::ParameterGroup const& section);
/// The placeholder of its value; empty when there is none.
std::string valueNameOf(kivo::configuration::Parameter const& parameter);

/// The labels of an enumeration, as they are; empty for all other types.
std::vector<std::string> labelsOf(kivo::configuration::Parameter const& parameter);

/// Whether a setting of the specification itself only says how a tool shows its help: help, quiet and notitle.
bool isAboutHelp(kivo::configuration::Parameter const& parameter);

} // namespace kivoconfig
