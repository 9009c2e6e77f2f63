#pragma once

// A test of visitors whose rows are a schema, a value tree, and what a visitor makes of it. Every row runs with a small
// schema and tree, which are walked, and with large ones, which are searched by index.
//
//     class Matching : public VisitorTest {};
//     TEST_P(Matching, BindsAndReports) { check(ParameterMatchingVisitor(*tool, errors, false)); }
//     INSTANTIATE_TEST_SUITE_P(Visitors, Matching, inBothSizes({{"Row", "tool{a}", "{tool{a=1}}", ...}, ...}),
//     SizedLabel());

#include "support/Exceptions.h"
#include "support/ManagerTest.h"
#include "visitors/ConstraintSplitterVisitor.h"
#include "visitors/Notation.h"
#include "visitors/ParameterMatchingVisitor.h"

#include <configuration/ConfigurationException.h>
#include <configuration/ContractViolationException.h>
#include <configuration/ParameterErrors.h>
#include <configuration/Specification.h>

#include <tuple>

namespace kivo::test {

struct VisitorCase {
    char const* label;
    char const* schema;
    char const* in;
    char const* out;           ///< the tree afterwards
    char const* messages = ""; ///< a line each
    char const* thrown = "<nothing>";
};

class VisitorTest : public ManagerTest, public testing::WithParamInterface<std::tuple<VisitorCase, Padding>> {
protected:
    VisitorCase const& row() const { return std::get<0>(GetParam()); }
    Padding const& padding() const { return std::get<1>(GetParam()); }

    /// What a visitor throws when it sees the tree.
    template <class Visitor>
    std::string visit(Visitor&& visitor) {
        return whatOf<configuration::ConfigurationException>([&] { values->accept(visitor); });
    }

    /// Lets the tree go through what comes before the visitor under test.
    void matchAndSplit() {
        visit(configuration::ParameterMatchingVisitor(*tool, ignored, false));
        visit(configuration::ConstraintSplitterVisitor(ignored));
    }

    template <class Visitor>
    void check(Visitor&& visitor) {
        checkMessages(visitor);
        EXPECT_EQ(shown(*values), row().out);
    }
    template <class Visitor>
    void checkMessages(Visitor&& visitor) {
        EXPECT_EQ(visit(visitor), row().thrown);
        EXPECT_EQ(errors.getNumberOfErrors() > 0 ? composeMessage(errors) : "", row().messages);
    }

    configuration::Specification* tool = createTool(row().schema, padding());
    std::unique_ptr<configuration::ParameterValueGroup> values = treeOf(row().in, padding());
    configuration::ParameterErrors errors;
    configuration::ParameterErrors ignored;
};

inline auto inBothSizes(std::vector<VisitorCase> const& rows) {
    return testing::Combine(testing::ValuesIn(rows), testing::Values(Padding{}, Padding{.schema = 40, .values = 12}));
}

} // namespace kivo::test
