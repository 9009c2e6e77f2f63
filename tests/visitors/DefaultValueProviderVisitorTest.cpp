#include "visitors/DefaultValueProviderVisitor.h"

#include "visitors/ParameterValueGroupDefaultProviderVisitor.h"
#include "visitors/VisitorTest.h"

namespace kivo::test {

using namespace configuration;

namespace {

class Defaults : public VisitorTest {};

TEST_P(Defaults, FillWhatNobodyGave) {
    matchAndSplit();
    check(ParameterValueGroupDefaultProviderVisitor(tool, errors));
}

constexpr char const* SCHEMA = "tool?{a?=1 u?* in{b?=2} con/Name(c?=3 d)}";
constexpr char const* CHOICE = "tool?{ex[a b?=1 c?=2]}";

// clang-format off
INSTANTIATE_TEST_SUITE_P(Visitors, Defaults, inBothSizes({
    {"NothingGivenForAnOptionalRoot", SCHEMA, "{}", "?{tool{a*=1 in{b*=2} con{c*=3}}}"},
    {"NothingGivenForARequiredRoot", "tool{a?=1 in{b?=2}}", "{}", "?{}"},
    {"TheRootIsNamedByItsName", "tool/Tool%s?{a?=1}", "{}", "?{tool{a*=1}}"},
    {"GivenValuesStay", SCHEMA, "{tool{A=9 in{b=<none>} c=8}}", "?{tool{a=9 in{b=<none>} con{c=8}}}"},
    {"EveryGroupGetsAValueGroup", "tool{in?{deep?*{}} con() ex?[]}", "{tool{}}", "?{tool{in{deep{}} con{} ex{}}}"},
    {"RequiredParametersHaveDefaultsToo", "tool{a=1 u*=2}", "{tool{}}", "?{tool{a*=1 u*=2}}"},
    {"ImplicitDefaults", "tool{f:bool? n:int?* d:double? u:uint?*}", "{tool{}}", "?{tool{f*=0 n*=0 d*=0}}"},
    {"OnlyTheFirstOccurrenceOfAContainer", "tool{many*{m?=1 n}}", "{tool{many{n=1} many{n=2}}}",
        "?{tool{many{n=1 m*=1} many{n=2}}}"},
    {"EveryOccurrenceOfTheRootGroup", "tool*{a?=1 b?=2}", "{tool{b=5} tool{a=6}}", "?{tool{b=5 a*=1} tool{a=6 b*=2}}"},
    {"ByIdNotByName", "tool{id/name?=1 name/other?=2}", "{tool{name=5}}", "?{tool{name=5 id*=1}}"},

    {"TheFirstAlternativeThatHasOne", CHOICE, "{tool{}}", "?{tool{ex{b*=1}}}"},
    {"NoneBesideAGivenAlternative", CHOICE, "{tool{a=5}}", "?{tool{ex{a=5}}}"},
    {"NoneInAnOptionalChoice", "tool?{ex?[a b?=1 c?=2]}", "{}", "?{tool{ex{}}}"},
    // The group that an alternative gets decides the choice before anything in it is looked at.
    {"NoneBelowAnAlternative", "tool{ex[con(a?=1) b?=2]}", "{tool{}}", "?{tool{ex{con{}}}}"},
    {"NoneFarBelowAChoice", "tool{ex?[in{con(a?=1)}] b?=2}", "{tool{}}", "?{tool{ex{in{con{}}} b*=2}}"}}),
    SizedLabel());
// clang-format on

} // namespace

} // namespace kivo::test
