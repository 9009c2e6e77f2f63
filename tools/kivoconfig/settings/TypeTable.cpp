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
constexpr char const* SIZE = R"(<xs:pattern value="[0-9]+(\.[0-9]+)?( ?[KkMmGgTt]([Ii]?[Bb])?)?"/>)";
constexpr char const* NO_DURATION = R"(<xs:pattern value="0+"/>)";
constexpr char const* DURATION =
    R"(<xs:pattern value="([0-9]+d)?([0-9]+h)?([0-9]+m)?([0-9]+s)?([0-9]+ms)?"/><xs:minLength value="1"/>)";

constexpr WholeNumbers LONG_NUMBERS = {"-9223372036854775808", "9223372036854775807"};

constexpr TypeRow TYPES[] = {
    // type, word, forms, example, empty, least and most number, or base and patterns
    {Parameter::BOOLEAN_PARAMETER, "bool", nullptr, "true", true, {}, "xs:string", {BOOLEAN}},
    {Parameter::STRING_PARAMETER, "string", nullptr, nullptr, true, {}, nullptr, {}},
    {Parameter::INT_PARAMETER, "int", nullptr, "0", true, {"-2147483648", "2147483647"}, "xs:integer", {}},
    {Parameter::UINT_PARAMETER, "uint", nullptr, "0", true, {"0", "4294967295"}, "xs:integer", {}},
    {Parameter::DOUBLE_PARAMETER, "double", nullptr, "0", true, {}, "xs:string", {DECIMAL, HEXADECIMAL, NO_NUMBER}},
    {Parameter::OID_PARAMETER, "oid", "1-2-3-4", "0-0-0-0", false, {}, "xs:string", {OID}},
    {Parameter::ENUM_PARAMETER, "enum", nullptr, nullptr, true, {}, nullptr, {}},
    {Parameter::LONG_PARAMETER, "long", nullptr, "0", false, LONG_NUMBERS, "xs:integer", {}},
    {Parameter::ULONG_PARAMETER, "ulong", nullptr, "0", false, {"0", "18446744073709551615"}, "xs:integer", {}},
    {Parameter::SIZE_PARAMETER, "size", "64k or 1.5 GB", "0", false, {}, "xs:string", {SIZE}},
    {Parameter::DURATION_PARAMETER, "duration", "90s or 1d12h", "0", false, {}, "xs:string", {NO_DURATION, DURATION}},
};

} // namespace

TypeRow const& rowOf(Parameter::ValueType type) {
    static constexpr TypeRow UNKNOWN{Parameter::STRING_PARAMETER, "string", nullptr, nullptr, true, {}, nullptr, {}};
    auto const* const found = std::ranges::find(TYPES, type, &TypeRow::type);
    return found == std::end(TYPES) ? UNKNOWN : *found;
}

} // namespace kivoconfig
