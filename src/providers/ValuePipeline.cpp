#include "kernel/kvProcessInit.h"

#include "providers/ValuePipeline.h"

#include <configuration/Flags.h>
#include <configuration/ParameterErrors.h>
#include <configuration/ParameterGroup.h>
#include <configuration/ParameterValue.h>
#include <configuration/ParameterValueGroup.h>
#include <configuration/Specification.h>

#include "providers/HelpRequest.h"
#include "providers/ProviderOrigins.h"
#include "visitors/ConstraintSplitterVisitor.h"
#include "visitors/FirstPhaseValidationVisitor.h"
#include "visitors/ParameterMatchingVisitor.h"
#include "visitors/ParameterValueAggregationVisitor.h"
#include "visitors/ParameterValueGroupDefaultProviderVisitor.h"
#include "visitors/ParameterValueGroupValidationVisitor.h"

namespace kivo::configuration {

namespace {

void see(ParameterValueGroup& values, ParameterValueVisitor&& visitor) { values.accept(visitor); }

void addIfSet(ParameterValueGroup& result, ParameterValueGroup const& source, char const* name) {
    if (readsAsTrue(source, name)) {
        result.addItem(source.getValue(name)->clone(ParameterValueItem::DEEP_COPY));
    }
}

/// The group that holds all of a source's values for a specification, or null.
ParameterValueGroup const* findOnlyGroup(ParameterValueGroup const& aggregated, Specification const& specification) {
    if (aggregated.getNumberOfItems() != 1) {
        return nullptr;
    }
    auto const* item = aggregated.getItem(specification.getParameterGroup());
    return item && item->getItemType() == ParameterValueItem::PARAMETER_VALUE_GROUP
               ? static_cast<ParameterValueGroup const*>(item)
               : nullptr;
}

} // namespace

ValuePipeline::ValuePipeline(Specification const& specification, int flags)
    : ValuePipeline(specification, flags, THROW_FAULTS) {}

ValuePipeline::ValuePipeline(Specification const& specification, int flags, FaultTreatment treatment)
    : mSpecification(specification), mFlags(flags), mTreatment(treatment) {}

bool ValuePipeline::addSource(ValueProvider const* source, ParameterValueGroup const& raw,
                              ParameterValueGroup& collected) {
    if (raw.getNumberOfItems() == 0) {
        return true;
    }
    ParameterErrors errors;
    ParameterValueGroup aggregated(nullptr);
    {
        ParameterValueGroup working(raw);
        if (source) {
            fillOrigins(working, *source);
        }
        bool const isStrict = (mFlags & STRICT_RECOGNITION) != 0;
        see(working, ParameterMatchingVisitor(mSpecification, errors, isStrict || mTreatment == COLLECT_FAULTS,
                                              mTreatment == COLLECT_FAULTS ? &errors : nullptr));
        onMatched(working);
        endPhase(errors);
        see(working, ParameterValueAggregationVisitor(&mSpecification, aggregated, errors, false));
        onAggregated(aggregated);
        endPhase(errors);
    }
    if (auto const* group = findOnlyGroup(aggregated, mSpecification)) {
        if (group->getNumberOfItems() == 0) {
            return true;
        }
        if (isHelpRequest(*group)) {
            for (char const* name : {HELP, QUIET, NO_TITLE}) {
                addIfSet(collected, *group, name);
            }
            return false;
        }
    }
    see(aggregated, ConstraintSplitterVisitor(errors));
    endPhase(errors);
    see(aggregated, FirstPhaseValidationVisitor(errors));
    endPhase(errors);
    see(aggregated, ParameterValueAggregationVisitor(&mSpecification, collected, errors, false));
    endPhase(errors);
    return true;
}

void ValuePipeline::complete(ParameterValueGroup& collected, ParameterValueGroup& result) {
    ParameterErrors errors;
    validate(collected, errors);
    endPhase(errors);
    see(collected, ParameterValueGroupDefaultProviderVisitor(&mSpecification, errors));
    endPhase(errors);
    see(collected, ParameterValueAggregationVisitor(&mSpecification, result, errors, true));
    endPhase(errors);
}

void ValuePipeline::validate(ParameterValueGroup& collected, ParameterErrors& errors) {
    see(collected, ParameterValueGroupValidationVisitor(&mSpecification, errors));
}

void ValuePipeline::endPhase(ParameterErrors& errors) { errors.throwIfErrors(); }

void ValuePipeline::onMatched(ParameterValueGroup&) {}

void ValuePipeline::onAggregated(ParameterValueGroup const&) {}

bool ValuePipeline::isHelpRequest(ParameterValueGroup const& group) { return readsAsTrue(group, HELP); }

} // namespace kivo::configuration
