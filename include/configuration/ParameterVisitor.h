#pragma once

#include <configuration/Export.h>

namespace kivo::configuration {

class Parameter;
class ParameterGroup;
class ParameterItem;
class ParameterValueItem;

/// Base of everything that walks a schema, given to ParameterItem::accept().
///
/// The walk is depth-first and in item order. For a group: visitGroupStart(); if that returned true, each item, with
/// visitGroupMiddle() between two consecutive ones, and visitGroupEnd(). If it returned false, neither the items nor
/// the end of that group are visited. What visitParameter() and the start of a nested group return does not stop their
/// siblings. The number of items is taken after visitGroupStart(): items added during the walk are not visited; items
/// removed during it end it with a contract violation, after the middle call.
class KIVO_CONFIGURATION_API ParameterVisitor {
public:
    /// For derived visitors, which start without a walk.
    ParameterVisitor();
    virtual ~ParameterVisitor();

    /// A group begins. @return whether its items are to be visited; true here
    virtual bool visitGroupStart(ParameterGroup const& group);
    /// Between two consecutive items of a group; nothing here.
    virtual void visitGroupMiddle(ParameterGroup const& group);
    /// A group that was entered ends; nothing here.
    virtual void visitGroupEnd(ParameterGroup const& group);
    /// A parameter. @return what Parameter::accept() returns; true here
    virtual bool visitParameter(Parameter const& parameter);

protected:
    /// There is nothing to copy: visitors that are copied keep their state in the derived class.
    ParameterVisitor(ParameterVisitor const&) = default;
    /// There is nothing to copy.
    ParameterVisitor& operator=(ParameterVisitor const&) = default;

    /// Binds a value item to a schema item, for walkers that build a value tree beside the schema.
    /// @throws kivo::ContractViolationException "parameterItem != 0"
    /// @throws ConfigurationException "\"<name>\" must be a parameter", "\"<name>\" must be a parameter group"
    void assignParameterItem(ParameterValueItem& item, ParameterItem const* parameterItem);
};

} // namespace kivo::configuration
