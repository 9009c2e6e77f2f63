#pragma once

#include <configuration/ParameterVisitor.h>

#include <sstream>
#include <string>
#include <vector>

namespace kivo::configuration {

/// Writes the usage text of a specification, whose root group accepts it: a line for each top-level item, with brackets
/// around what is optional, braces around what may repeat, and bars between the alternatives of an exclusive choice.
/// Hidden parameters are left out. Serves one text. Reads only.
class UsageVisitor : public ParameterVisitor {
public:
    bool visitGroupStart(ParameterGroup const& group) override;
    void visitGroupMiddle(ParameterGroup const& group) override;
    void visitGroupEnd(ParameterGroup const& group) override;
    bool visitParameter(Parameter const& parameter) override;

    /// How a user gives the parameter: a dash and its name.
    virtual std::string getParameterName(Parameter const& parameter);
    /// How a user gives the group: its name. The text shows no groups.
    virtual std::string getParameterGroupName(ParameterGroup const& group);

    /// The text written so far.
    std::string getUsage() const;

private:
    struct GroupStackItem {
        ParameterGroup const* mGroup;
    };

    std::ostringstream mText;
    /// The groups that have begun and not ended, the root first.
    std::vector<GroupStackItem> mOpenGroups;
    bool mLastParameterHidden = false;
};

} // namespace kivo::configuration
