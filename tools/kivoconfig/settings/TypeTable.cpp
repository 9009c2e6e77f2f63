#include "settings/TypeTable.h"

#include <algorithm>

using namespace kivo::configuration;

namespace kivoconfig {

namespace {

// A schema accepts all texts that the library does. Where it cannot say exactly which these are, it accepts more.

constexpr char const* BOOLEAN = R"(<xs:pattern value="(\s*[+\-]?[0-9]+)?|[Tt][Rr][Uu][Ee]|[Ff][Aa][Ll][Ss][Ee]"/>)";
constexpr char const* DECIMAL = R"(<xs:pattern value="\s*[+\-]?([0-9]+\.?[0-9]*|\.[0-9]+)([Ee][+\-]?[0-9]+)?"/>)";
constexpr char const* HEXADECIMAL = R"(<xs:pattern value="\s*[+\-]?0[Xx][0-9A-Fa-f.]+([Pp][+\-]?[0-9]+)?"/>)";
constexpr char const* NO_NUMBER = R"(<xs:pattern value="\s*[+\-]?[A-Za-z]+(\([0-9A-Za-z_]*\))?"/>)"; // inf, nan
constexpr char const* OID = R"(<xs:pattern value="#?\s*[+\-]?[0-9]+(-\s*[+\-]?[0-9]+){3}\s*"/>)";
constexpr char const* LEAST_INT = R"(<xs:minInclusive value="-2147483648"/>)";
constexpr char const* MOST_INT = R"(<xs:maxInclusive value="2147483647"/>)";
constexpr char const* LEAST_UINT = R"(<xs:minInclusive value="0"/>)";
constexpr char const* MOST_UINT = R"(<xs:maxInclusive value="4294967295"/>)";

constexpr char const* LEAST_LONG = R"(<xs:minInclusive value="-9223372036854775808"/>)";
constexpr char const* MOST_LONG = R"(<xs:maxInclusive value="9223372036854775807"/>)";
constexpr char const* MOST_ULONG = R"(<xs:maxInclusive value="18446744073709551615"/>)";
constexpr char const* SIZE = R"(<xs:pattern value="[0-9]+(\.[0-9]+)?( ?[KkMmGgTt]([Ii]?[Bb])?)?"/>)";
constexpr char const* NO_DURATION = R"(<xs:pattern value="0+"/>)";
constexpr char const* DURATION =
    R"(<xs:pattern value="([0-9]+d)?([0-9]+h)?([0-9]+m)?([0-9]+s)?([0-9]+ms)?"/><xs:minLength value="1"/>)";

constexpr TypeRow TYPES[] = {
    // type                         word      example    base          facets
    {Parameter::BOOLEAN_PARAMETER, "bool", "true", "xs:string", {BOOLEAN}},
    {Parameter::STRING_PARAMETER, "string", nullptr, nullptr, {}},
    {Parameter::INT_PARAMETER, "int", "0", "xs:integer", {LEAST_INT, MOST_INT}},
    {Parameter::UINT_PARAMETER, "uint", "0", "xs:integer", {LEAST_UINT, MOST_UINT}},
    {Parameter::DOUBLE_PARAMETER, "double", "0", "xs:string", {DECIMAL, HEXADECIMAL, NO_NUMBER}},
    {Parameter::OID_PARAMETER, "oid", "0-0-0-0", "xs:string", {OID}},
    {Parameter::ENUM_PARAMETER, "enum", nullptr, nullptr, {}},
    {Parameter::LONG_PARAMETER, "long", "0", "xs:integer", {LEAST_LONG, MOST_LONG}},
    {Parameter::ULONG_PARAMETER, "ulong", "0", "xs:integer", {LEAST_UINT, MOST_ULONG}},
    {Parameter::SIZE_PARAMETER, "size", "0", "xs:string", {SIZE}},
    {Parameter::DURATION_PARAMETER, "duration", "0", "xs:string", {NO_DURATION, DURATION}},
};

} // namespace

TypeRow const& rowOf(Parameter::ValueType type) {
    static constexpr TypeRow UNKNOWN{Parameter::STRING_PARAMETER, "string", nullptr, nullptr, {}};
    auto const* const found = std::ranges::find(TYPES, type, &TypeRow::type);
    return found == std::end(TYPES) ? UNKNOWN : *found;
}

} // namespace kivoconfig
