#pragma once

#include <configuration/Parameter.h>
#include <configuration/ParameterVisitor.h>

#include "text/RepresentationPrinter.h"

#include <string>

namespace kivo::configuration {

/// Writes the properties of a schema item and of all below it, for diagnosis. Reads only.
class ParameterItemRepresentationVisitor final : public ParameterVisitor {
public:
    /// The whole text of an item.
    static std::string getRepresentation(ParameterItem const& item);
    /// The word for a type; "unknown" for a number that is none.
    static std::string getValueTypeString(Parameter::ValueType type);

    bool visitGroupStart(ParameterGroup const& group) override;
    void visitGroupEnd(ParameterGroup const& group) override;
    bool visitParameter(Parameter const& parameter) override;

    /// The text written so far.
    std::string getRepresentation() const;

private:
    RepresentationPrinter mPrinter;
};

} // namespace kivo::configuration
