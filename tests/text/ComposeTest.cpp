#include "support/Exceptions.h"
#include "support/ManagerTest.h"
#include "support/Schema.h"
#include "support/ValueTree.h"

#include <configuration/ApplicationValuesProvider.h>
#include <configuration/ValueProvider.h>

namespace {

using namespace kivo::configuration;
using namespace kivo::test;

class Compose : public ManagerTest {
protected:
    void SetUp() override {
        mTool = createSpecification({.id = "tool"}, {createParameter({.id = "in", .valueName = "file"})});
        createSpecification({.id = "other"}, {createParameter({.id = "out", .description = "Target"})});
    }

    Specification* mTool = nullptr;
};

/// Composes texts that tell it from others.
class NamedProvider : public ValueProvider {
public:
    NamedProvider(int priority, char const* name, char const* text)
        : ValueProvider(priority), mName(name), mText(text) {}

    char const* getName() const override { return mName; }
    char const* composeHelpMessage(Specification const*, unsigned long, unsigned long) const override { return mText; }
    char const* composeUsageMessage(Specification const*) const override { return mText; }

private:
    char const* mName;
    char const* mText;
};

TEST_F(Compose, ChecksItsArgumentsInOrder) {
    auto& m = manager();
    auto const provider = contractText("providerName != 0 && strlen(providerName) > 0");
    auto const specification = contractText("specificationName != 0 && strlen( specificationName) > 0");
    for (char const* nothing : {static_cast<char const*>(nullptr), ""}) {
        EXPECT_EQ(whatOf([&] { m.composeUsageMessage(nothing, nothing); }), provider);
        EXPECT_EQ(whatOf([&] { m.composeHelpMessage(nothing, nothing, 0, 0); }), provider);
        EXPECT_EQ(whatOf([&] { m.composeUsageMessage("CLI", nothing); }), specification);
        EXPECT_EQ(whatOf([&] { m.composeHelpMessage("CLI", nothing, 0, 0); }), specification);
    }
    EXPECT_EQ(whatOf([&] { m.composeUsageMessage("CLI", "none"); }), "Specification \"none\" was not found");
    EXPECT_EQ(whatOf([&] { m.composeHelpMessage("CLI", "none", 0, 0); }), "Specification \"none\" was not found");
    EXPECT_EQ(whatOf([&] { m.composeHelpMessage("CLI", "tool", 0, 0); }), contractText("screenWidth > 0"));
    EXPECT_EQ(whatOf([&] { m.composeHelpMessage("CLI", "tool", 9, 9); }),
              contractText("maxParameterNameWidth < screenWidth"));

    ApplicationValuesProvider const values(1);
    EXPECT_EQ(whatOf([&] { values.composeUsageMessage(nullptr); }), contractText("specification != 0"));
    EXPECT_EQ(whatOf([&] { values.composeHelpMessage(nullptr, 0, 0); }), contractText("specification != 0"));
}

TEST_F(Compose, AsksTheFirstProviderOfTheName) {
    auto& m = manager();
    // Without a provider of the name, a command-line provider of the moment composes.
    EXPECT_STREQ(m.composeUsageMessage("NOBODY", "TOOL"), "    -in file");
    EXPECT_STREQ(m.composeHelpMessage("NOBODY", "other", 14, 13), "-out Target  \n");

    m.registerProvider(std::make_unique<NamedProvider>(2, "Name", "second").release());
    m.registerProvider(std::make_unique<NamedProvider>(1, "NAME", "first").release());
    EXPECT_STREQ(m.composeUsageMessage("name", "tool"), "first");
    EXPECT_STREQ(m.composeHelpMessage("name", "tool", 80, 30), "first");
    EXPECT_STREQ(m.composeUsageMessage("nam", "tool"), "    -in file");
    EXPECT_EQ(m.getNumberOfProviders(), 2u);
}

TEST_F(Compose, KeepsATextUntilTheSameOperationIsCalledAgain) {
    auto& m = manager();
    ApplicationValuesProvider const provider(1);
    char const* ofProvider = provider.composeUsageMessage(mTool);
    char const* usage = m.composeUsageMessage("CLI", "tool");
    char const* help = m.composeHelpMessage("CLI", "other", 14, 13);
    provider.composeHelpMessage(mTool, 80, 30);
    EXPECT_STREQ(ofProvider, "    -in file");
    EXPECT_STREQ(usage, "    -in file");
    EXPECT_STREQ(m.composeUsageMessage("CLI", "other"), "    -out");
    EXPECT_STREQ(help, "-out Target  \n");
}

TEST_F(Compose, RepresentationsOfTheTwoKindsHaveABufferEach) {
    auto const* item = createParameter({.id = "where", .validator = "STORAGELOCATION"});
    auto const tree = valueGroup("a");
    char const* shown = manager().getRepresentation(*item);
    EXPECT_STREQ(manager().getRepresentation(*tree), "a:  (0x0)\n{\n}\n");
    EXPECT_STREQ(shown, "Parameter where: \n"
                        R"({
  description: "Description"
  isOptional: false
  isUnbounded: false
  valueType: string
  default: null
  valueName: null
  validator: "storageLocation"
}
)");
}

} // namespace
