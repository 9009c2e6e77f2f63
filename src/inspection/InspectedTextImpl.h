#pragma once

#include <configuration/InspectedText.h>

#include <optional>
#include <string>

namespace kivo::configuration {

/// What there is to know about one text.
class InspectedText::Impl {
public:
    std::optional<std::string> text;
    Origin origin;
    Verdict verdict;
    bool isSecret;
};

} // namespace kivo::configuration
