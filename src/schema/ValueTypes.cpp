#include "kernel/kvProcessInit.h"

#include "schema/ValueTypes.h"

#include "schema/NameComparison.h"
#include "schema/NumberText.h"
#include "schema/QuantityText.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <iterator>
#include <utility>

namespace kivo::configuration {

namespace {

bool isAnything(char const*) { return true; }

bool isBoolean(char const* text) {
    return parseInteger(text).isWhole || equalIgnoringCase(text, "true") || equalIgnoringCase(text, "false");
}

template <class Number>
bool isIntegerOf(char const* text) {
    auto const number = parseInteger(text);
    return number.isWhole && std::in_range<Number>(number.value);
}

bool isDouble(char const* text) { return parseDouble(text).isWhole; }

bool isLong(char const* text) { return *text != '\0' && parseInteger(text).isWhole; }

bool isUnsignedLong(char const* text) { return *text != '\0' && parseUnsignedInteger(text).isWhole; }

bool isSize(char const* text) { return parseSize(text).has_value(); }

bool isDuration(char const* text) { return parseDuration(text).has_value(); }

/// Four numbers joined by hyphens. A fifth field means that something other than white space follows them.
bool isOid(char const* text) {
    unsigned int numbers[4];
    char rest[11];
    return std::sscanf(*text == '#' ? text + 1 : text, "%u-%u-%u-%u%10s", &numbers[0], &numbers[1], &numbers[2],
                       &numbers[3], rest) == 4;
}

long integerOf(char const* text) { return parseInteger(text).value; }

unsigned long unsignedIntegerOf(char const* text) { return parseUnsignedInteger(text).value; }

double doubleOf(char const* text) { return parseDouble(text).value; }

std::uint64_t sizeOf(char const* text) { return parseSize(text).value_or(0); }

std::int64_t durationOf(char const* text) { return parseDuration(text).value_or(0); }

template <auto numberOf>
std::partial_ordering byNumber(char const* left, char const* right) {
    return numberOf(left) <=> numberOf(right);
}

/// Any text is accepted as a label: labels are looked up when they are read. What accepts anything needs no noun.
constexpr ValueTypeTraits VALUE_TYPES[] = {
    // type                         word      title           noun                implicit default  check  order
    {Parameter::BOOLEAN_PARAMETER, "bool", "bool", "boolean", "0", isBoolean, nullptr},
    {Parameter::STRING_PARAMETER, "string", "string", "", nullptr, isAnything, nullptr},
    {Parameter::INT_PARAMETER, "int", "int", "signed integer", "0", isIntegerOf<int>, byNumber<integerOf>},
    {Parameter::UINT_PARAMETER, "uint", "unsigned int", "unsigned integer", nullptr, isIntegerOf<unsigned int>,
     byNumber<integerOf>},
    {Parameter::DOUBLE_PARAMETER, "double", "double", "double", "0", isDouble, byNumber<doubleOf>},
    {Parameter::OID_PARAMETER, "oid", "OID", "OID", nullptr, isOid, nullptr},
    {Parameter::ENUM_PARAMETER, "enum", "enum", "", nullptr, isAnything, nullptr},
    {Parameter::LONG_PARAMETER, "long", "long", "signed 64-bit integer", nullptr, isLong, byNumber<integerOf>},
    {Parameter::ULONG_PARAMETER, "ulong", "unsigned long", "unsigned 64-bit integer", nullptr, isUnsignedLong,
     byNumber<unsignedIntegerOf>},
    {Parameter::SIZE_PARAMETER, "size", "size", "size", nullptr, isSize, byNumber<sizeOf>},
    {Parameter::DURATION_PARAMETER, "duration", "duration", "duration", nullptr, isDuration, byNumber<durationOf>},
};

/// What a number that is no type comes to.
constexpr ValueTypeTraits UNKNOWN_TYPE = {Parameter::STRING_PARAMETER, "", "unknown", "", nullptr, isAnything, nullptr};

/// The row of a type. A type without a row does not compile.
template <Parameter::ValueType type>
ValueTypeTraits const& row() {
    static constexpr auto const* found = std::ranges::find(VALUE_TYPES, type, &ValueTypeTraits::type);
    static_assert(found != std::end(VALUE_TYPES), "the type has no row in VALUE_TYPES");
    return *found;
}

} // namespace

ValueTypeTraits const& traitsOf(Parameter::ValueType type) {
    switch (type) { // without a default: a type that is forgotten here does not compile
    case Parameter::BOOLEAN_PARAMETER: return row<Parameter::BOOLEAN_PARAMETER>();
    case Parameter::STRING_PARAMETER: return row<Parameter::STRING_PARAMETER>();
    case Parameter::INT_PARAMETER: return row<Parameter::INT_PARAMETER>();
    case Parameter::UINT_PARAMETER: return row<Parameter::UINT_PARAMETER>();
    case Parameter::DOUBLE_PARAMETER: return row<Parameter::DOUBLE_PARAMETER>();
    case Parameter::OID_PARAMETER: return row<Parameter::OID_PARAMETER>();
    case Parameter::ENUM_PARAMETER: return row<Parameter::ENUM_PARAMETER>();
    case Parameter::LONG_PARAMETER: return row<Parameter::LONG_PARAMETER>();
    case Parameter::ULONG_PARAMETER: return row<Parameter::ULONG_PARAMETER>();
    case Parameter::SIZE_PARAMETER: return row<Parameter::SIZE_PARAMETER>();
    case Parameter::DURATION_PARAMETER: return row<Parameter::DURATION_PARAMETER>();
    }
    return UNKNOWN_TYPE;
}

std::optional<Parameter::ValueType> findValueType(std::string_view word) {
    auto const* const found = std::ranges::find(VALUE_TYPES, word, &ValueTypeTraits::word);
    return found == std::end(VALUE_TYPES) ? std::nullopt : std::optional(found->type);
}

std::vector<char const*> getValueTypeWords() {
    std::vector<char const*> words;
    std::ranges::transform(VALUE_TYPES, std::back_inserter(words), &ValueTypeTraits::word);
    return words;
}

} // namespace kivo::configuration
