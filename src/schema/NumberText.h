#pragma once

#include <string>

// Numbers as users write them: read and written alike in every locale.

namespace kivo::configuration {

/// A decimal number read from the beginning of a text, as by strtol.
struct IntegerText {
    long value;   ///< 0 when the text begins with no number, the nearest possible one when out of range
    bool isWhole; ///< nothing follows the number, and it was in range; an empty text counts as whole
};

IntegerText parseInteger(char const* text);

/// A decimal number from 0 on, read as by parseInteger(): one below 0 is out of range.
struct UnsignedIntegerText {
    unsigned long value; ///< as IntegerText::value
    bool isWhole;        ///< as IntegerText::isWhole
};

UnsignedIntegerText parseUnsignedInteger(char const* text);

/// A floating-point number read from the beginning of a text, as by strtod.
struct DoubleText {
    double value;
    bool isWhole; ///< as IntegerText::isWhole
};

DoubleText parseDouble(char const* text);

/// Six significant digits, as the C format %g writes them.
std::string formatDouble(double value);

} // namespace kivo::configuration
