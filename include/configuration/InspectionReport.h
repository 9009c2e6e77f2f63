#pragma once

#include <configuration/Export.h>
#include <configuration/Finding.h>
#include <configuration/Inspection.h>

#include <string>
#include <vector>

/// @file
/// The texts by which a tool answers "explain" and "check".
///
/// In all of them, user text is shown with backslashes, line ends, tabs and other control characters escaped as in C.
/// Each line, the last one included, ends with a line feed. Columns are counted as terminals show UTF-8. Secret texts
/// are shown as "****". The functions may be called by any number of threads.

namespace kivo::configuration {

/// The setting with its value: a line "name = value" (several texts joined by ", "; the name only where there is no
/// value). Below it, indented by four, every text that was given for it, best first: where it comes from, the text,
/// what became of it, in aligned columns.
KIVO_CONFIGURATION_API std::string composeExplanation(InspectedSetting const& setting);

/// The texts that the tool reads for a setting, one a line; an entry without a text is an empty line.
KIVO_CONFIGURATION_API std::string composeValues(InspectedSetting const& setting);

/// All settings of an inspection, explained, and its findings.
/// @param onlyChanged leaves out the settings for which nothing was given
KIVO_CONFIGURATION_API std::string composeExplanation(Inspection const& inspection, bool onlyChanged);

/// The findings, one a line: "etc/backup.xml:7:14: warning: <message> [<rule>]; did you mean \"<suggestion>\"?". Those
/// of files come first, by file, line and column, then those of the command line by argument, then all others; those of
/// one place in the order given, each once. When there is any, a line "2 errors, 1 warning" follows; otherwise the text
/// is empty.
KIVO_CONFIGURATION_API std::string composeFindings(std::vector<Finding> const& findings);

/// The findings in the order in which composeFindings() shows them.
KIVO_CONFIGURATION_API std::vector<Finding> sortFindings(std::vector<Finding> const& findings);

/// A user's text on one line: backslashes, line ends, tabs and other control characters escaped as in C ("\x1b").
/// @throws kivo::ContractViolationException "text != 0"
KIVO_CONFIGURATION_API std::string escapeText(char const* text);

/// The exit status of a check: 1 when there is an error, or a warning and warnings are fatal; else 0.
KIVO_CONFIGURATION_API int getExitStatus(std::vector<Finding> const& findings, bool warningsAreFatal);

} // namespace kivo::configuration
