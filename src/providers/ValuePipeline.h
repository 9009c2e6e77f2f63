#pragma once

namespace kivo::configuration {

class ParameterErrors;
class ParameterValueGroup;
class Specification;
class ValueProvider;

/// The way of all values, from a source to the result: the phases of a request, in their order.
///
/// A phase reports all that it finds. In a request, the first one that found something is the last. An inspection
/// overrides the steps between the phases: it goes on, and looks at the values on their way.
class ValuePipeline {
public:
    /// @param specification outlives this object
    /// @param flags         STRICT_RECOGNITION
    ValuePipeline(Specification const& specification, int flags);
    virtual ~ValuePipeline() = default;
    ValuePipeline(ValuePipeline const&) = delete;
    ValuePipeline& operator=(ValuePipeline const&) = delete;

    /// Adds the values of a source to those of the sources asked before it.
    /// @param source    the provider that they come from, or null
    /// @param raw       as the source gives them
    /// @param collected receives them, bound, and split under their constraints
    /// @return false when help was asked for
    bool addSource(ValueProvider const* source, ParameterValueGroup const& raw, ParameterValueGroup& collected);
    /// Checks merged values, fills in defaults, and moves the whole to the result, without its constraint groups.
    void complete(ParameterValueGroup& collected, ParameterValueGroup& result);

protected:
    /// For an inspection: steps that would throw are passed over, their faults are collected, and names that are not
    /// known are reported whatever the flags.
    enum FaultTreatment { THROW_FAULTS, COLLECT_FAULTS };
    ValuePipeline(Specification const& specification, int flags, FaultTreatment treatment);

    /// A phase has ended. Throws what it found.
    virtual void endPhase(ParameterErrors& errors);
    /// The values of a source are bound to the schema, as far as it knows them.
    virtual void onMatched(ParameterValueGroup& values);
    /// The bound values of a source are merged among themselves.
    virtual void onAggregated(ParameterValueGroup const& values);
    /// Whether the source's group of the specification asks for help, and nothing else of it counts.
    virtual bool isHelpRequest(ParameterValueGroup const& group);
    /// The second phase of validation: every group of the specification is checked.
    virtual void validate(ParameterValueGroup& collected, ParameterErrors& errors);

private:
    Specification const& mSpecification;
    int mFlags;
    FaultTreatment mTreatment;
};

} // namespace kivo::configuration
