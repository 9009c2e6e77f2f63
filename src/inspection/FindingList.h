#pragma once

#include <configuration/Finding.h>

#include "schema/Rule.h"
#include "schema/StoredOrigin.h"

#include <string>
#include <unordered_map>
#include <vector>

namespace kivo::configuration {

/// The findings of an inspection, each message once for an origin: as an error, where it is one.
class FindingList {
public:
    /// @param suggestion what was probably meant; empty: nothing
    /// @param masked     how reports show the message; empty: as it is
    void add(Finding::Severity severity, Rule rule, std::string const& message, StoredOrigin const& origin,
             std::string const& suggestion = {}, std::string const& masked = {});

    /// Whether it is worth the time to look for what was meant by the next finding.
    bool wantsSuggestion() const;

    std::vector<Finding> take() { return std::move(mFindings); }

private:
    std::vector<Finding> mFindings;
    std::unordered_map<std::string, std::size_t> mKnown; // positions by origins with messages
};

} // namespace kivo::configuration
