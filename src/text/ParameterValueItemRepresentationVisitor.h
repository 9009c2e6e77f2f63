#pragma once

#include <configuration/ParameterValueVisitor.h>

#include "text/RepresentationPrinter.h"

#include <string>

namespace kivo::configuration {

class ParameterValueItem;

/// Writes a value item and all below it, each with the address of the schema item that it is bound to, for diagnosis.
/// Reads only.
class ParameterValueItemRepresentationVisitor final : public ParameterValueVisitor {
public:
    ParameterValueItemRepresentationVisitor();

    /// The whole text of an item.
    static std::string getRepresentation(ParameterValueItem const& item);

    bool visitGroupStart(ParameterValueGroup& group) override;
    void visitGroupEnd(ParameterValueGroup& group) override;
    bool visitParameterValue(ParameterValue& value) override;

    /// The text written so far.
    std::string getRepresentation() const;
    /// Writes one entry of a value, read as the type of its parameter, and ends the line.
    void printValue(ParameterValue const& value, unsigned long index);

private:
    void printSchemaItem(ParameterValueItem const& item);

    RepresentationPrinter mPrinter;
};

} // namespace kivo::configuration
