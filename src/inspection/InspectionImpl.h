#pragma once

#include <configuration/Inspection.h>

#include <string>
#include <vector>

namespace kivo::configuration {

/// What an inspection found.
class Inspection::Impl {
public:
    std::string specificationId;
    std::vector<InspectedSetting> settings;
    std::vector<Finding> findings;
    bool isMachineConfigLeftOut = false;
};

} // namespace kivo::configuration
