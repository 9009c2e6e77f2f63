#pragma once

#include <configuration/ParameterVisitor.h>

#include <string_view>
#include <vector>

namespace kivo::configuration {

/// Collects the parameters that a typed flag can mean: those that are not hidden and whose name begins with it, letter
/// case ignored. A full name does not win over longer ones. Reads only.
class ParameterSearchVisitor final : public ParameterVisitor {
public:
    /// @param name the flag as typed; must outlive the visitor
    explicit ParameterSearchVisitor(char const* name);

    bool visitParameter(Parameter const& parameter) override;

    unsigned long getNumberOfFoundItems() const;
    /// A parameter found, in the order of the walk.
    /// @throws kivo::ContractViolationException "index < mFoundItems.size()"
    Parameter const* getFoundItem(unsigned long index) const;

private:
    std::string_view mName;
    std::vector<Parameter const*> mFoundItems;
};

} // namespace kivo::configuration
