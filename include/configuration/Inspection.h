#pragma once

#include <configuration/Export.h>
#include <configuration/Finding.h>
#include <configuration/InspectedSetting.h>
#include <configuration/InspectionInputs.h>

#include <memory>
#include <string>
#include <vector>

namespace kivo::configuration {

class ParameterValueGroup;
class Specification;

/// Everything that can be said about the values of a specification: which text each setting has and where it comes
/// from, which other texts were given and why they did not win, and all faults of all sources.
///
/// Secret texts are shown as "****", in messages, too: InspectedText::getText(), Finding::getMessage(), and all texts
/// of InspectionReport.h. This is the only difference to the messages of a request.
///
/// An inspection works on copies: it writes nothing to the main log, and leaves providers and kept settings as they
/// are. A fault of a user is a finding, never an exception; a phase that finds one does not keep the next ones from
/// being run. "help" is a setting like any other. An inspection is a snapshot: what changes later does not change it.
/// It may be read by any number of threads; it is made on the thread that uses the Manager.
class KIVO_CONFIGURATION_API Inspection {
public:
    /// Inspects what a tool would get if it were started with these inputs.
    /// @throws ConfigurationException the specification has no root group; what the schema's own faults throw
    Inspection(Specification const& specification, InspectionInputs const& inputs);
    /// Inspects what the Manager's enabled providers give, as they are. A provider of the caller's own is asked once,
    /// with an empty result; what it throws for a fault becomes findings.
    /// @param required as for Manager::getValueGroup()
    /// @param flags    as for Manager::getValueGroup()
    /// @throws ConfigurationException as above
    Inspection(Specification const& specification, bool required, int flags);
    /// The same inspection.
    Inspection(Inspection const& other) noexcept;
    /// Makes this the same inspection.
    Inspection& operator=(Inspection const& other) noexcept;
    ~Inspection();

    /// The id of the specification. Lives as long as this object.
    char const* getSpecificationId() const noexcept;
    /// All settings, in the order of a walk over the specification, section after section; hidden ones only where they
    /// were given.
    std::vector<InspectedSetting> const& getSettings() const noexcept;
    /// All findings, in the order in which they were found, each message once for an origin.
    std::vector<Finding> const& getFindings() const noexcept;
    /// How many of the findings are errors, or warnings.
    unsigned long getNumberOfFindings(Finding::Severity severity) const noexcept;

    /// The settings that a user means by a name: the one with this full name; or, when there is none, those whose name
    /// it is without the numbers of occurrences ("mirror.delay"); or those whose last part it is; or those that had
    /// this name before. Hidden settings that were not given are found, too, but do not make a name ambiguous. Letter
    /// case is ignored.
    /// @throws kivo::ContractViolationException "name != 0"
    std::vector<InspectedSetting> findSettings(char const* name) const;
    /// The full name of the setting that was probably meant by a name that findSettings() does not know; empty when
    /// there is none. At most two letters, and a third of the name, may be wrong; letter case is ignored.
    /// @throws kivo::ContractViolationException "name != 0"
    std::string suggestSetting(char const* name) const;

    /// The values as a request gives them, whatever was found: a group without a name that holds the specification's
    /// group, or one for each of its occurrences; nothing when nothing was given and no default applies. Here, hidden
    /// settings are shown, and what is misplaced stands where it was given. A section that no source gave, and that
    /// only holds defaults, has an unknown origin. Secret texts are as they are. Lives as long as this object; not to
    /// be changed.
    ParameterValueGroup const& getValues() const noexcept;

    /// Whether InspectionInputs::MACHINE_CONFIG_TAKEN_IF_ADDRESSED left out a "machine.config" that is there.
    bool isMachineConfigLeftOut() const noexcept;

private:
    class KIVO_CONFIGURATION_LOCAL Impl;
    std::shared_ptr<Impl const> mImpl;
};

} // namespace kivo::configuration
