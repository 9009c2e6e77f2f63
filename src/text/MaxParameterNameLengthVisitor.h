#pragma once

#include <configuration/ParameterVisitor.h>

namespace kivo::configuration {

/// Finds how many characters the longest parameter name of a group takes, its value name and the space between
/// included. Hidden parameters and flags count as well. Reads only.
class MaxParameterNameLengthVisitor final : public ParameterVisitor {
public:
    bool visitParameter(Parameter const& parameter) override;

    /// The length found; 0 when there is no parameter.
    unsigned long getMaximum() const;

private:
    unsigned long mMaximum = 0;
};

} // namespace kivo::configuration
