#include "kernel/kvProcessInit.h"

#include "text/ParameterItemRepresentationVisitor.h"

#include <configuration/ParameterEnumDefinition.h>
#include <configuration/ParameterGroup.h>
#include <configuration/ParameterValidator.h>

#include "schema/ValueTypes.h"
#include "values/DefaultText.h"

namespace kivo::configuration {

namespace {

/// Writes what parameters and groups begin with, and enters the scope of the item.
template <class Item>
void enterItem(RepresentationPrinter& printer, Item const& item) {
    auto const title =
        std::string(item.getItemTypeName()) + " " + item.getId() + (item.isSpecialized() ? "(Specialized)" : "");
    printer.printKey(title.c_str());
    printer.printNewLine();
    printer.enterScope("{");
    printer.printKeyStringValue("description", item.getDescription());
    printer.printKeyBoolValue("isOptional", item.isOptional());
}

} // namespace

std::string ParameterItemRepresentationVisitor::getRepresentation(ParameterItem const& item) {
    ParameterItemRepresentationVisitor visitor;
    item.accept(visitor);
    return visitor.getRepresentation();
}

std::string ParameterItemRepresentationVisitor::getValueTypeString(Parameter::ValueType type) {
    return traitsOf(type).title;
}

bool ParameterItemRepresentationVisitor::visitGroupStart(ParameterGroup const& group) {
    enterItem(mPrinter, group);
    if (group.getGroupType() == ParameterGroup::CONTAINER) {
        mPrinter.printKeyBoolValue("isUnbounded", group.isUnbounded());
    } else {
        mPrinter.printKeyBoolValue("itemsAreExclusive", group.itemsAreExclusive());
    }
    mPrinter.printKey("items");
    mPrinter.printNewLine();
    mPrinter.enterScope("{");
    return true;
}

void ParameterItemRepresentationVisitor::visitGroupEnd(ParameterGroup const&) {
    mPrinter.leaveScope("}");
    mPrinter.leaveScope("}");
}

bool ParameterItemRepresentationVisitor::visitParameter(Parameter const& parameter) {
    auto const* validator = parameter.getValidator();
    auto const* enumDefinition = parameter.getEnumDefinition();

    enterItem(mPrinter, parameter);
    mPrinter.printKeyBoolValue("isUnbounded", parameter.isUnbounded());
    mPrinter.printKeyLiteralValue("valueType", getValueTypeString(parameter.getValueType()).c_str());
    mPrinter.printKeyStringValue("default", defaultTextOf(parameter));
    mPrinter.printKeyStringValue("valueName", parameter.getValueName());
    mPrinter.printKeyStringValue("validator", validator ? validator->getName() : nullptr);
    if (enumDefinition) {
        mPrinter.printKeyStringValue("enumType", enumDefinition->getName());
    }
    mPrinter.leaveScope("}");
    return true;
}

std::string ParameterItemRepresentationVisitor::getRepresentation() const { return mPrinter.getRepresentation(); }

} // namespace kivo::configuration
