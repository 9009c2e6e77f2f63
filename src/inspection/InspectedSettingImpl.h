#pragma once

#include <configuration/InspectedSetting.h>

#include "inspection/InspectedTextImpl.h"

#include <string>
#include <vector>

namespace kivo::configuration {

/// What there is to know about one setting.
class InspectedSetting::Impl {
public:
    Parameter const* parameter = nullptr;
    std::vector<std::string> path;
    std::string name; // the path, joined by dots
    std::vector<InspectedText> values;
    std::vector<InspectedText> alternatives; // the best one first
};

} // namespace kivo::configuration
