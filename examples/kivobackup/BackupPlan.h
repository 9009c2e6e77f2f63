#pragma once

#include <string>
#include <vector>

namespace kivo::configuration {
class ValueGroup;
}

/// What a backup is to do: the settings as the rest of the tool uses them.
class BackupPlan {
public:
    /// Reads the settings of the specification "kivobackup".
    explicit BackupPlan(kivo::configuration::ValueGroup const& settings);

    /// The plan in a few words, for the log.
    std::string describe() const;

private:
    enum class Scope { FULL, INCREMENTAL, OBJECTS };

    std::string mDatabase;
    std::vector<std::string> mTargets; // the first one, then the further copies
    Scope mScope = Scope::FULL;
    unsigned int mStreams = 1;
    double mRateLimit = 0; // megabytes a second; 0 is no limit
};
