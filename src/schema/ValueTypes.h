#pragma once

#include <configuration/Parameter.h>

#include <compare>
#include <optional>
#include <string_view>
#include <vector>

namespace kivo::configuration {

/// What sets one type of values apart. The table of all types is in ValueTypes.cpp: a new type needs a row there, a
/// check of its texts, and an accessor.
struct ValueTypeTraits {
    Parameter::ValueType type;
    char const* word;             ///< names the type in registry files
    char const* title;            ///< names the type in representations
    char const* noun;             ///< names the type in messages: "… is not a valid <noun>"
    char const* implicitDefault;  ///< of an optional parameter that declares none; null: it has to declare one
    bool (*accepts)(char const*); ///< whether a text is a value of the type
    /// Compares the numbers of two accepted texts; null for types that are no numbers.
    std::partial_ordering (*compare)(char const*, char const*);
};

/// The row of a type.
ValueTypeTraits const& traitsOf(Parameter::ValueType type);

/// The type that a registry file means by a word, letter by letter; nothing for any other word.
std::optional<Parameter::ValueType> findValueType(std::string_view word);

/// The words of all types.
std::vector<char const*> getValueTypeWords();

} // namespace kivo::configuration
