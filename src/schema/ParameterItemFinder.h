#pragma once

#include <configuration/ParameterVisitor.h>

#include <string>

namespace kivo::configuration {

/// Finds the first item of an id, letter case ignored, in a group and all below it: a group before its items. Reads
/// only.
class ParameterItemFinder final : public ParameterVisitor {
public:
    explicit ParameterItemFinder(std::string const& id);

    bool visitGroupStart(ParameterGroup const& group) override;
    bool visitParameter(Parameter const& parameter) override;

    /// The item found, or null.
    ParameterItem const* getFound() const;

private:
    /// Whether the search goes on below an item.
    bool compareItem(ParameterItem const& item);

    std::string mId;
    ParameterItem const* mFound = nullptr;
};

} // namespace kivo::configuration
