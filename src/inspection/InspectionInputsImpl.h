#pragma once

#include <configuration/InspectionInputs.h>

#include "inspection/ToolSources.h"

namespace kivo::configuration {

class InspectionInputs::Impl : public ToolInputs {
public:
    bool isCommandLineOpen = false;
    int flags = 0;
    bool isRequired = false;
};

} // namespace kivo::configuration
