#include "support/CaseFile.h"
#include "support/Exceptions.h"
#include "support/ManagerTest.h"
#include "support/Notation.h"
#include "visitors/ConstraintSplitterVisitor.h"
#include "visitors/FirstPhaseValidationVisitor.h"
#include "visitors/ParameterMatchingVisitor.h"
#include "visitors/ParameterValueAggregationVisitor.h"
#include "visitors/ParameterValueGroupDefaultProviderVisitor.h"
#include "visitors/ParameterValueGroupValidationVisitor.h"
#include "visitors/SecondPhaseValidationVisitor.h"
#include "visitors/UnboundedParameterValueFixer.h"

#include <configuration/ConfigurationException.h>
#include <configuration/ParameterErrors.h>

#include <functional>
#include <sstream>

namespace kivo::test {

using namespace configuration;

namespace {

class VisitorsTest : public ManagerTest {
protected:
    /// Runs the cases of a file with a small schema and trees, which are walked, and with large ones, which are
    /// searched by index.
    void check(std::string const& file, std::function<std::string()> const& run) {
        for (Padding const& padding : {Padding{}, Padding{.schema = 40, .values = 12}}) {
            SCOPED_TRACE(padding.schema > 0 ? "large" : "small");
            checkCases("visitors/" + file, [&](FileCase const& row) {
                manager().reset();
                errors.clear();
                tool = createTool(row["schema"], padding);
                trees.clear();
                std::istringstream texts(row["trees"]);
                for (std::string text; std::getline(texts, text);) {
                    trees.push_back(treeOf(text, padding));
                }
                return run();
            });
        }
    }

    std::string messages() const { return errors.getNumberOfErrors() > 0 ? composeMessage(errors) : ""; }

    /// Shows a visitor the trees. @return what it throws, or an empty text
    std::string visit(auto&& visitor) {
        auto const thrown = whatOf<ConfigurationException>([&] {
            for (auto const& tree : trees) {
                tree->accept(visitor);
            }
        });
        return thrown == "<nothing>" ? "" : thrown;
    }

    /// What comes before the visitor under test.
    void match() { visit(ParameterMatchingVisitor(*tool, ignored, false)); }
    void matchAndSplit() {
        match();
        visit(ConstraintSplitterVisitor(ignored));
    }

    Specification* tool = nullptr;
    std::vector<std::unique_ptr<ParameterValueGroup>> trees;
    ParameterErrors errors;
    ParameterErrors ignored;
};

TEST_F(VisitorsTest, MatchingBindsWhatFitsAndReportsTheRest) {
    check("matching.txt", [&] {
        auto const thrown = visit(ParameterMatchingVisitor(*tool, errors, true));
        return lines({toText(*trees[0]), messages(), thrown});
    });
}

TEST_F(VisitorsTest, AggregationMergesBoundItems) {
    check("aggregation.txt", [&] {
        matchAndSplit();
        decltype(trees) copies;
        for (auto const& tree : trees) {
            copies.emplace_back(tree->clone(ParameterValueItem::DEEP_COPY));
        }
        ParameterValueGroup merged(nullptr);
        visit(ParameterValueAggregationVisitor(tool, merged, errors, false));
        trees.swap(copies); // the values of the others have moved
        ParameterValueGroup flat(nullptr);
        visit(ParameterValueAggregationVisitor(tool, flat, errors, true));
        return lines({toText(merged), toText(flat) == toText(merged) ? "" : toText(flat), messages()});
    });
}

TEST_F(VisitorsTest, SplittingMovesValuesUnderTheirConstraints) {
    check("splitting.txt", [&] {
        match();
        visit(ConstraintSplitterVisitor(errors));
        return lines({toText(*trees[0]), messages()});
    });
}

TEST_F(VisitorsTest, FixingMakesOneValueOfRepeatedElements) {
    check("fixing.txt", [&] {
        UnboundedParameterValueFixer fixer(tool);
        auto const before = toText(*trees[0]);
        auto const thrown = visit(fixer);
        EXPECT_EQ(toText(*trees[0]), before);
        auto const changes = " " + std::to_string(fixer.getChangeCount());
        return lines({thrown.empty() ? toText(*fixer.getResult()) + changes : thrown});
    });
}

TEST_F(VisitorsTest, DefaultsFillWhatNobodyGave) {
    check("defaults.txt", [&] {
        matchAndSplit();
        visit(ParameterValueGroupDefaultProviderVisitor(tool, errors));
        return lines({toText(*trees[0]), messages()});
    });
}

TEST_F(VisitorsTest, TheFirstPhaseReportsUnknownAndRepeatedItems) {
    check("first-phase.txt", [&] {
        match();
        visit(FirstPhaseValidationVisitor(errors));
        return lines({messages()});
    });
}

TEST_F(VisitorsTest, TheSecondPhaseReportsWrongMissingAndExclusiveValues) {
    check("second-phase.txt", [&] {
        matchAndSplit();
        auto const thrown = visit(ParameterValueGroupValidationVisitor(tool, errors));
        return lines({thrown.empty() ? messages() : thrown});
    });
}

TEST_F(VisitorsTest, WhatIsBoundStaysBoundAndBelongsToItsSpecification) {
    tool = createTool("tool{in{a}}");
    auto* other = createTool("other{inner{b}}");
    auto const tree = treeOf("{tool{in{a=1}} other{inner{b=2}}}");
    for (auto* specification : {tool, other, tool}) {
        ParameterMatchingVisitor matching(*specification, errors, false);
        tree->accept(matching);
    }
    ParameterValueGroup target(nullptr);
    ParameterValueAggregationVisitor visitor(other, target, errors, false);
    tree->accept(visitor);
    EXPECT_EQ(toText(target), "?{other{inner{b=2}}}");
    EXPECT_FALSE(visitor.isGroupInSpecification(tree.get()) || visitor.isGroupInSpecification(nullptr));

    Items items; // of the same id, which is already bound
    auto const bound = treeOf("other{b=1}", *items.group("g{b}"));
    ParameterMatchingVisitor matching(*other, errors, false);
    bound->accept(matching);
    EXPECT_NE(bound->getItem("b")->getParameterItem(), other->getParameterGroup()->getItem("b", true));
}

TEST_F(VisitorsTest, TheRequiredFlagsComeBeforeAnExclusiveRoot) {
    auto const* root = createItem("ex[a b]");
    auto const tree = treeOf("EX{c=1 d=1}");
    SecondPhaseValidationVisitor validation(*tree, errors);
    root->accept(validation);
    EXPECT_EQ(composeMessage(errors),
              "A required flag was not specified. You must provide one of the following flags: a, b\n"
              "The \"a\" and \"b\" flags are mutually exclusive, you cannot specify both.");
}

TEST_F(VisitorsTest, DefaultsAreNotCheckedAndValidatorsAre) {
    Items items;
    auto const* schema = items.group("tool{n:int v*!storageLocation}");
    auto const tree = treeOf("tool{n=x v=::a,good,b::}", *schema);
    tree->getValue("n")->setIsUsingDefaultValue(true);
    SecondPhaseValidationVisitor validation(*tree, errors);
    schema->accept(validation);
    EXPECT_EQ(composeMessage(errors), "Value is not properly formatted\nValue is not properly formatted\n");
    EXPECT_EQ(errors.getNumberOfErrors(), 1u);
}

TEST_F(VisitorsTest, RefuseWhatIsNotOfASpecification) {
    EXPECT_EQ(whatOf([&] { ParameterValueGroupValidationVisitor(nullptr, errors); }),
              contractText("specification != 0"));
    auto const unnamed = treeOf("{}");
    SecondPhaseValidationVisitor astray(*unnamed, errors);
    EXPECT_EQ(whatOf([&] { createItem("tool{}")->accept(astray); }), "\"tool\" specification was not found");
}

} // namespace

} // namespace kivo::test
