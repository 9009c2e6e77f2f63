#pragma once

#include <configuration/Inspection.h>

#include <string>
#include <vector>

namespace kivo::configuration {

class InspectionPipeline;

/// What an inspection found.
class Inspection::Impl {
public:
    /// @param pipeline has all sources
    static std::shared_ptr<Impl const> make(Specification const& specification, InspectionPipeline& pipeline,
                                            bool isRequired, bool isMachineConfigLeftOut);

    std::string specificationId;
    std::vector<InspectedSetting> settings;
    std::vector<InspectedSetting> hiddenSettings; // that were not given
    std::vector<Finding> findings;
    bool isMachineConfigLeftOut = false;
};

} // namespace kivo::configuration
