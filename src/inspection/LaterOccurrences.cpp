#include "kernel/kvProcessInit.h"

#include "inspection/LaterOccurrences.h"

#include <configuration/ParameterGroup.h>
#include <configuration/ParameterValueGroup.h>
#include <configuration/ParameterValueVisitor.h>

#include "values/ChildSearch.h"
#include "values/GroupEditing.h"
#include "visitors/SecondPhaseValidationVisitor.h"

#include <vector>

namespace kivo::configuration {

namespace {

class OccurrenceValidator final : public ParameterValueVisitor {
public:
    OccurrenceValidator(ParameterGroup const& root, ParameterErrors& faults)
        : ParameterValueVisitor(false), mRoot(root), mFaults(faults) {}

    bool visitGroupStart(ParameterValueGroup& group) override {
        auto const* const schemaGroup = group.getParameterGroup();
        auto const* const holder = holderOf(group);
        bool const isLater = schemaGroup && schemaGroup != &mRoot && holder && schemaGroup->isUnbounded() &&
                             findChildGroup(*holder, schemaGroup->getId()) != &group;
        bool const isInRequired = !mIsRequired.empty() && mIsRequired.back();
        if (isLater) {
            SecondPhaseValidationVisitor validation(group, mFaults, isInRequired);
            schemaGroup->accept(validation);
        }
        mIsRequired.push_back(isInRequired || (schemaGroup && !schemaGroup->isOptional()));
        return true;
    }
    void visitGroupEnd(ParameterValueGroup&) override { mIsRequired.pop_back(); }

private:
    ParameterGroup const& mRoot;
    ParameterErrors& mFaults;
    std::vector<bool> mIsRequired; // whether an open group, or one around it, is not optional
};

} // namespace

void checkLaterOccurrences(ParameterValueGroup& values, ParameterGroup const& root, ParameterErrors& faults) {
    OccurrenceValidator validator(root, faults);
    values.accept(validator);
}

} // namespace kivo::configuration
