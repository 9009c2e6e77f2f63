#pragma once

namespace kivo::configuration {

class FindingList;

/// Looks in the directories of the installation for what seems to be a registry file, and is not read as one.
void remarkOnUnreadFiles(FindingList& findings);

/// Looks at the name of a file that is to be installed.
void remarkOnFileName(FindingList& findings, char const* path);

} // namespace kivo::configuration
