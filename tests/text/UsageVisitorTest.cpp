#include "text/UsageVisitor.h"

#include "support/Schema.h"

#include <gtest/gtest.h>

namespace {

using namespace kivo::configuration;
using namespace kivo::test;

constexpr auto FLAG = Parameter::BOOLEAN_PARAMETER;
constexpr auto CONSTRAINT = ParameterGroup::CONSTRAINT;

std::string usageOf(ParameterGroup const& root) {
    UsageVisitor visitor;
    root.accept(visitor);
    return visitor.getUsage();
}

/// Short forms for what the rows are made of.
struct Parts : Items {
    ParameterItem* flag(char const* id) { return parameter({.id = id, .type = FLAG}); }
    ParameterItem* hidden() { return parameter({.id = "h", .hidden = true}); }
    ParameterItem* constraint(ItemList const& items) { return group({.optional = true, .type = CONSTRAINT}, items); }
    ParameterItem* choice(bool optional, ItemList const& items) {
        return group({.optional = optional, .exclusive = true, .type = CONSTRAINT}, items);
    }
    ParameterItem* container(bool optional, bool unbounded, ItemList const& items) {
        return group({.optional = optional, .unbounded = unbounded}, items);
    }
};

struct UsageCase {
    char const* label;
    ItemList (*items)(Parts& p); ///< of the root, a container
    char const* usage;
};

class UsageText : public testing::TestWithParam<UsageCase> {};

TEST_P(UsageText, IsWrittenAsSpecified) {
    Parts parts;
    EXPECT_EQ(usageOf(*parts.group({.id = "root"}, GetParam().items(parts))), GetParam().usage);
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(UsageVisitor, UsageText, testing::Values(
    UsageCase{"OneLineForEachTopLevelItem", [](Parts& p) -> ItemList {
        return {p.parameter({.id = "in", .valueName = "file"}),
                p.parameter({.id = "verbose", .optional = true, .type = FLAG}),
                p.parameter({.id = "define", .optional = true, .unbounded = true, .valueName = "name"}),
                p.choice(false, {p.flag("fast"), p.flag("safe")})}; },
        "    -in file\n"
        "    [-verbose]\n"
        "    [{-define name}]\n"
        "    -fast | -safe"},
    UsageCase{"TheNameIsShownNotTheIdAndIsNoFormat", [](Parts& p) -> ItemList {
        return {p.parameter({.id = "a", .name = "100%s%n", .unbounded = true, .valueName = "%d"})}; },
        "    {-100%s%n %d}"},
    UsageCase{"AFlagShowsNoValueNameAndAValueNeedsNone", [](Parts& p) -> ItemList {
        return {p.parameter({.id = "a", .type = FLAG, .valueName = "x"}), p.parameter({.id = "b"})}; },
        "    -a\n    -b"},

    UsageCase{"NoItems", [](Parts&) -> ItemList { return {}; }, "    "},
    UsageCase{"OnlyHidden", [](Parts& p) -> ItemList { return {p.hidden(), p.hidden()}; }, "    "},
    UsageCase{"HiddenFirst", [](Parts& p) -> ItemList { return {p.hidden(), p.flag("a"), p.flag("b")}; },
        "    -a\n    -b"},
    UsageCase{"HiddenBetween", [](Parts& p) -> ItemList { return {p.flag("a"), p.hidden(), p.hidden(), p.flag("b")}; },
        "    -a\n    -b"},
    // The line was begun before the hidden parameter was seen.
    UsageCase{"HiddenLast", [](Parts& p) -> ItemList { return {p.flag("a"), p.flag("b"), p.hidden()}; },
        "    -a\n    -b\n    "},
    // Inside groups separators stay; behind a group that ends with a hidden parameter the line goes on.
    UsageCase{"HiddenInAContainer", [](Parts& p) -> ItemList {
        return {p.container(false, false, {p.hidden(), p.flag("a"), p.hidden(), p.flag("b"), p.hidden()}),
                p.flag("c"), p.flag("d")}; },
        "     -a  -b -c\n    -d"},
    UsageCase{"HiddenInAChoice", [](Parts& p) -> ItemList {
        return {p.choice(true, {p.hidden(), p.flag("a"), p.hidden()}), p.container(true, true, {p.hidden()}),
                p.flag("b")}; },
        "    [ | -a | ][{}]-b"},

    UsageCase{"NestedOptionalRepeatableContainers", [](Parts& p) -> ItemList {
        return {p.container(true, true, {p.container(true, false, {p.flag("a"),
                    p.parameter({.id = "b", .optional = true, .unbounded = true, .valueName = "x"})}),
                p.container(false, true, {p.flag("c")})})}; },
        "    [{[-a [{-b x}]] {-c}}]"},
    UsageCase{"GroupConstraintInAChoice", [](Parts& p) -> ItemList {
        return {p.choice(true, {p.constraint({p.flag("a"), p.flag("b")}), p.flag("c"), p.constraint({})})}; },
        "    [(-a -b) | -c | ()]"},
    UsageCase{"GroupConstraintElsewhere", [](Parts& p) -> ItemList {
        return {p.constraint({p.flag("a"), p.constraint({p.flag("b")})}),
                p.container(true, false, {p.constraint({p.flag("c"), p.flag("d")})})}; },
        "    -a -b\n    [-c -d]"},
    UsageCase{"ChoicesAndContainersInAChoice", [](Parts& p) -> ItemList {
        return {p.choice(false, {p.constraint({p.flag("a"), p.choice(true, {p.flag("b"), p.flag("c")})}),
                                 p.container(false, true, {p.flag("d"), p.flag("e")})})}; },
        "    (-a [-b | -c]) | {-d -e}"}),
    [](auto const& row) { return std::string(row.param.label); });
// clang-format on

TEST(UsageVisitor, TheRootsOwnKindShowsOnlyAroundGroupConstraints) {
    Parts parts;
    ItemList const items{parts.constraint({parts.flag("a"), parts.flag("b")}), parts.flag("c")};
    EXPECT_EQ(usageOf(*parts.group({.optional = true, .unbounded = true}, items)), "    -a -b\n    -c");
    EXPECT_EQ(usageOf(*parts.group({.optional = true, .exclusive = true, .type = CONSTRAINT}, items)),
              "    (-a -b)\n    -c");
}

TEST(UsageVisitor, NamesCanBeSpelledByADerivedVisitor) {
    class SlashVisitor : public UsageVisitor {
        std::string getParameterName(Parameter const& parameter) override {
            return std::string("/") + parameter.getName();
        }
    };
    Parts parts;
    auto* root = parts.group({.id = "id", .name = "name"}, {parts.parameter({.id = "a", .valueName = "x"})});
    SlashVisitor visitor;
    root->accept(visitor);
    EXPECT_EQ(visitor.getUsage(), "    /a x");
    EXPECT_EQ(visitor.getParameterGroupName(*root), "name");
}

} // namespace
