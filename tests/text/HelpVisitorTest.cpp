#include "text/HelpVisitor.h"

#include "support/Schema.h"

#include <gtest/gtest.h>

namespace {

using namespace kivo::configuration;
using namespace kivo::test;

constexpr auto FLAG = Parameter::BOOLEAN_PARAMETER;

struct HelpCase {
    char const* label;
    unsigned long screenWidth;
    unsigned long maxNameWidth;
    ItemList (*items)(Items& items); ///< of the root
    char const* help;
};

class HelpText : public testing::TestWithParam<HelpCase> {};

TEST_P(HelpText, IsWrittenAsSpecified) {
    auto const& row = GetParam();
    Items items;
    HelpVisitor visitor(row.screenWidth, row.maxNameWidth);
    items.group({.id = "root"}, row.items(items))->accept(visitor);
    EXPECT_EQ(visitor.getHelp(), row.help);
}

// 67 characters: what a description line of an 80-column screen holds beside a name column of 11.
#define FULL_LINE "0123456789012345678901234567890123456789012345678901234567890123456"

// clang-format off
INSTANTIATE_TEST_SUITE_P(HelpVisitor, HelpText, testing::Values(
    HelpCase{"OneLineIsOneCharacterShorterThanTheScreen", 80, 30, [](Items& i) -> ItemList {
        return {i.parameter({.id = "output", .description = FULL_LINE, .valueName = "to"}),
                i.parameter({.id = "in", .description = FULL_LINE " and more"})}; },
        "-output to " FULL_LINE " \n"
        "-in        " FULL_LINE " \n"
        "           and more                                                            \n"},
    HelpCase{"NameColumnAtItsLimit", 30, 12, [](Items& i) -> ItemList {
        return {i.parameter({.id = "directory", .description = "Where the backup is written to", .valueName = "path"}),
                i.parameter({.id = "abcdefghijklmnopqrstuvw", .description = "Long"})}; },
        "-directory  Where the backup \n"
        "   path     is written to    \n"
        "-abcdefghij Long             \n"
        "   klmnopqr                  \n"
        "   stuvw                     \n"},
    HelpCase{"NameEndsAtASlash", 20, 9, [](Items& i) -> ItemList {
        return {i.parameter({.id = "etc/kivo", .description = "One of two"})}; },
        "-etc     One of    \n"
        "   /kivo two       \n"},
    HelpCase{"HiddenParametersWidenTheColumn", 20, 15, [](Items& i) -> ItemList {
        return {i.parameter({.id = "v", .description = "Be loud"}), i.parameter({.id = "secret", .hidden = true})}; },
        "-v      Be loud    \n"},
    HelpCase{"UnseenValueNamesOfFlagsWidenTheColumn", 20, 15, [](Items& i) -> ItemList {
        return {i.parameter({.id = "v", .description = "Be loud", .type = FLAG, .valueName = "abcdef"})}; },
        "-v        Be loud  \n"},
    HelpCase{"TraversalOrderWithoutHeadingsAndOneColumnForAll", 16, 10, [](Items& i) -> ItemList {
        return {i.parameter({.id = "a", .name = "n%s", .description = "100%n"}),
                i.group({.id = "g"}, {i.parameter({.id = "b", .description = "B"}),
                                      i.group({.exclusive = true}, {i.parameter({.id = "c", .description = "C"})})}),
                i.parameter({.id = "long", .description = "L", .optional = true, .unbounded = true,
                             .defaultValue = "x"})}; },
        "-n%s  100%n    \n"
        "-b    B        \n"
        "-c    C        \n"
        "-long L        \n"},

    HelpCase{"LineFeedInTheDescription", 20, 15, [](Items& i) -> ItemList {
        return {i.parameter({.id = "a", .description = "one\ntwo three four"}),
                i.parameter({.id = "b", .description = "one\ntwo"})}; },
        "-a one             \n"
        "   two three four  \n"
        "-b one             \n"
        "   two             \n"},
    HelpCase{"BlankLineEndsTheEntry", 20, 15, [](Items& i) -> ItemList {
        return {i.parameter({.id = "a", .description = "one\n\ntwo"}),
                i.parameter({.id = "b", .description = "one\n\ntwo three four five"}),
                i.parameter({.id = "c", .description = " "})}; },
        "-a one             \n"
        "-b one             \n"
        "-c                 \n"},
    HelpCase{"BlankLineBesideTheNameIsKept", 14, 6, [](Items& i) -> ItemList {
        return {i.parameter({.id = "abc", .description = "a\n\nb", .valueName = "de"})}; },
        "-abc  a      \n"
        "   de        \n"
        "      b      \n"},

    HelpCase{"NoNameColumn", 5, 0, [](Items& i) -> ItemList {
        return {i.parameter({.id = "a", .description = "abcd"})}; },
        "-abc \n"
        "   ad   \n"},
    HelpCase{"NoDescriptionColumn", 4, 3, [](Items& i) -> ItemList {
        return {i.parameter({.id = "abc", .description = "xy"})}; },
        "-a x\n"
        "   by\n"
        "   c\n"},
    HelpCase{"WidthsThatNoProviderAccepts", 0, 9, [](Items& i) -> ItemList {
        return {i.parameter({.id = "a", .description = "xy"})}; },
        "-a x\n"
        "   y\n"},
    HelpCase{"OnlyHidden", 80, 30, [](Items& i) -> ItemList { return {i.parameter({.hidden = true})}; }, ""}),
    [](auto const& row) { return std::string(row.param.label); });
// clang-format on

} // namespace
