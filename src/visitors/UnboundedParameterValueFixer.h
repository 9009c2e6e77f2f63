#pragma once

#include <configuration/ParameterValueVisitor.h>

#include "schema/FormerNames.h"
#include "schema/SpecificationParameterGroup.h"

#include <memory>
#include <vector>

namespace kivo::configuration {

class ParameterErrors;

/// Copies the tree of a values file and turns every element that names a parameter into one text of that parameter's
/// value in the enclosing group: the text of its attribute "value". Does not change the tree that it visits.
class UnboundedParameterValueFixer final : public ParameterValueVisitor {
public:
    /// Most files have no such element, and need no copy to find that out.
    enum Purpose { COPY, COUNT_CHANGES };

    /// @throws kivo::ContractViolationException "spec != 0"
    /// @param collected for a copy: takes what an element without its text throws, and the element becomes a text that
    ///                  is missing; null: it throws
    explicit UnboundedParameterValueFixer(Specification const* spec, Purpose purpose = COPY,
                                          ParameterErrors* collected = nullptr);

    /// @throws ConfigurationException "\"%s\" is not a valid parameter": the element has no attribute "value"
    bool visitGroupStart(ParameterValueGroup& group) override;
    void visitGroupEnd(ParameterValueGroup& group) override;
    bool visitParameterValue(ParameterValue& value) override;

    /// The copy; null before the first group was visited, and when changes are only counted.
    ParameterValueGroup const* getResult() const;
    /// The number of elements that became texts.
    unsigned long getChangeCount() const;

private:
    ParameterItem const* findItem(ParameterGroup const& schemaGroup, char const* id);
    void addText(ParameterValueGroup const& element);
    void addMissingText(ParameterValueGroup const& element, char const* fault);
    void openCopy(ParameterValueGroup const& group);

    SpecificationParameterGroup mSpecificationGroup;
    FormerNames mFormerNames;
    Purpose mPurpose;
    ParameterErrors* mCollected;
    std::unique_ptr<ParameterValueGroup> mResult;
    unsigned long mChangeCount = 0;
    /// The schema group of each open value group; at the bottom the one above the specification's root.
    std::vector<ParameterGroup const*> mSchemaStack;
    /// The copy of each open value group; none when changes are only counted.
    std::vector<ParameterValueGroup*> mTargetStack;
};

} // namespace kivo::configuration
