#include "kernel/kvProcessInit.h"

#include "text/ParameterValueItemRepresentationVisitor.h"

#include <configuration/Parameter.h>
#include <configuration/ParameterValue.h>
#include <configuration/ParameterValueGroup.h>

namespace kivo::configuration {

ParameterValueItemRepresentationVisitor::ParameterValueItemRepresentationVisitor() : ParameterValueVisitor(false) {}

std::string ParameterValueItemRepresentationVisitor::getRepresentation(ParameterValueItem const& item) {
    ParameterValueItemRepresentationVisitor visitor;
    // Values are walked as mutable items, because some visitors change them; this one does not.
    const_cast<ParameterValueItem&>(item).accept(visitor);
    return visitor.getRepresentation();
}

bool ParameterValueItemRepresentationVisitor::visitGroupStart(ParameterValueGroup& group) {
    mPrinter.printKey(group.getParameterItemId());
    printSchemaItem(group);
    mPrinter.printNewLine();
    mPrinter.enterScope("{");
    return true;
}

void ParameterValueItemRepresentationVisitor::visitGroupEnd(ParameterValueGroup&) { mPrinter.leaveScope("}"); }

bool ParameterValueItemRepresentationVisitor::visitParameterValue(ParameterValue& value) {
    mPrinter.printKey(value.getParameterItemId());
    auto const count = value.getNumberOfValues();
    if (count == 1) {
        printValue(value, 0);
    } else if (count > 1) {
        mPrinter.printNewLine();
        mPrinter.enterScope("[");
        for (unsigned long i = 0; i < count; ++i) {
            mPrinter.printKey("value");
            printValue(value, i);
        }
        mPrinter.leaveScope("]");
    }
    return true;
}

std::string ParameterValueItemRepresentationVisitor::getRepresentation() const { return mPrinter.getRepresentation(); }

void ParameterValueItemRepresentationVisitor::printValue(ParameterValue const& value, unsigned long index) {
    auto const* parameter = value.getParameter();
    switch (parameter ? parameter->getValueType() : Parameter::STRING_PARAMETER) { // no default: see ValueTypes.cpp
    case Parameter::BOOLEAN_PARAMETER: mPrinter.printBoolValue(value.getBooleanValue(index)); break;
    case Parameter::INT_PARAMETER: mPrinter.printIntValue(value.getIntValue(index)); break;
    case Parameter::UINT_PARAMETER: mPrinter.printUIntValue(value.getUIntValue(index)); break;
    case Parameter::DOUBLE_PARAMETER: mPrinter.printDoubleValue(value.getDoubleValue(index)); break;
    case Parameter::LONG_PARAMETER:
        mPrinter.printLiteralValue(std::to_string(value.getLongValue(index)).c_str());
        break;
    case Parameter::ULONG_PARAMETER:
        mPrinter.printLiteralValue(std::to_string(value.getULongValue(index)).c_str());
        break;
    case Parameter::STRING_PARAMETER:
    case Parameter::SIZE_PARAMETER:
    case Parameter::DURATION_PARAMETER:
    case Parameter::OID_PARAMETER:
    case Parameter::ENUM_PARAMETER: mPrinter.printStringValue(value.getValue(index, false)); break;
    }
    printSchemaItem(value);
    mPrinter.printNewLine();
}

/// Where there is an item, its address is printed with a "0x" too.
void ParameterValueItemRepresentationVisitor::printSchemaItem(ParameterValueItem const& item) {
    mPrinter.printLiteralValue(" (0x");
    mPrinter.printPointerValue(item.getParameterItem());
    mPrinter.printLiteralValue(")");
}

} // namespace kivo::configuration
